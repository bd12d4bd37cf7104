import type { RequestOptions, Robot } from '../types.js'
import { patient } from './common.js'

/**
 * Calls a human operator. Resolves with the operator's code, 0 to 255, when one has answered. Waits
 * two minutes unless told otherwise; the call stands until it is withdrawn.
 *
 * @example
 * try {
 *   console.log('The operator says', await callOperator(robot))
 * } catch {
 *   withdrawOperator(robot)
 * }
 */
export async function callOperator(robot: Robot, options?: RequestOptions): Promise<number> {
  const { timeout, signal } = patient(options, 120000)
  let code = ''
  await robot.request(
    'operator.call.request',
    { call: true },
    {
      timeout,
      signal,
      until(reply) {
        if (reply.topic !== 'operator.call.response') return false
        code = reply.attributes.response
        return true
      },
    },
  )
  return Number(code)
}

/**
 * Withdraws the call of an operator.
 *
 * @example
 * withdrawOperator(robot)
 */
export function withdrawOperator(robot: Robot): void {
  robot.send('operator.call.request', { call: false })
}
