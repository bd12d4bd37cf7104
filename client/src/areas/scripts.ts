import { PanorelError } from '../errors.js'
import type { RequestOptions, Robot } from '../types.js'
import { patient } from './common.js'

/**
 * Starts a script of the robot. Resolves with what the script engine says to it.
 *
 * @example
 * onScriptEnd(robot, () => say(robot, 'That was all'))
 * console.log(await startScript(robot, 'welcome'))
 */
export async function startScript(
  robot: Robot,
  name: string,
  options?: RequestOptions,
): Promise<string[]> {
  const answer = await robot.request(
    'system.scripts.control',
    { start: name },
    patient(options, 10000),
  )
  if (answer.topic === 'none') {
    throw new PanorelError('no-answer', `the robot says nothing to the script ${name}`)
  }
  return answer.attributes.result
}

/**
 * Cancels the running script.
 *
 * @example
 * stopScript(robot)
 */
export function stopScript(robot: Robot): void {
  robot.send('system.scripts.control', { stop: true })
}

/**
 * Calls back when a script has ended. Returns how to stop that.
 *
 * @example
 * const stop = onScriptEnd(robot, () => stop())
 */
export function onScriptEnd(robot: Robot, callback: () => void): () => void {
  return robot.on('system.scripts.end', () => callback())
}
