import { PanorelError } from '../errors.js'
import type { EventTopic, Robot } from '../types.js'
import { patient } from './common.js'
import type { DeviceOptions } from './printer.js'

/** How to hand out a card. */
export interface DispenseOptions extends DeviceOptions {
  /** Called with what the dispenser says meanwhile, such as "dispenser.card.dispensing". */
  onStatus?: (topic: EventTopic) => void
}

/** What else the dispenser said. */
export interface Dispensed {
  /** There are few cards left, or none. */
  isLow: boolean
  /** The bin for cards that were taken back is full. */
  isBinFull: boolean
}

// One report brings several topics, its errors before the sensor that sees the last card.
const REPORT_TIME = 200

/**
 * Hands out a card. Resolves when it stands at the exit. Rejects with "missing-device",
 * "not-connected", "no-cards" or "failed". Waits half a minute unless told otherwise.
 *
 * @example
 * try {
 *   await dispense(robot)
 *   say(robot, 'Please take your card')
 * } catch (error) {
 *   if (error instanceof PanorelError && error.kind === 'no-cards') callOperator(robot)
 * }
 */
export async function dispense(robot: Robot, options: DispenseOptions = {}): Promise<Dispensed> {
  const { timeout, signal } = patient(options, 30000)
  const answer = await robot.request(
    'dispenser.dispense',
    { ignore_not_connected: !!options.ignoreNotConnected },
    {
      timeout,
      signal,
      until(reply) {
        options.onStatus?.(reply.topic)
        switch (reply.topic) {
          case 'dispenser.nodispenser':
          case 'dispenser.not.connected':
            return true
          case 'dispenser.sensor':
            return reply.attributes.sensor === 'DispSensor'
          case 'dispenser.card.empty':
          case 'dispenser.card.error':
          case 'dispenser.communication.timeout':
            return REPORT_TIME
          default:
            return false
        }
      },
    },
  )
  const came = (topic: EventTopic) => answer.replies.some((reply) => reply.topic === topic)
  if (answer.topic === 'dispenser.sensor') {
    return {
      isLow: came('dispenser.card.preempty') || came('dispenser.card.empty'),
      isBinFull: came('dispenser.cardbin.full'),
    }
  }
  if (answer.topic === 'dispenser.nodispenser') {
    throw new PanorelError('missing-device', 'the robot has no card dispenser')
  }
  if (answer.topic === 'dispenser.not.connected') {
    throw new PanorelError('not-connected', 'the card dispenser is not connected')
  }
  if (came('dispenser.card.error')) {
    throw new PanorelError('failed', 'the card could not be handed out')
  }
  throw answer.topic === 'dispenser.card.empty'
    ? new PanorelError('no-cards', 'there are no cards left')
    : new PanorelError('failed', 'the card dispenser does not answer the robot')
}
