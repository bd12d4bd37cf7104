import { PanorelError } from '../errors.js'
import type { EventTopics } from '../topics.js'
import type { RequestOptions, Robot } from '../types.js'
import { patient } from './common.js'

/** A state of the printer; the errors also have `error_code` and `error_message`. */
export type PrinterState = EventTopics['printer.state.info']

/** How to use a device. */
export interface DeviceOptions extends RequestOptions {
  /** Does not ask whether the device is connected. Default false. */
  ignoreNotConnected?: boolean
}

/**
 * Prints a picture: a canvas, or a PNG as base64 or data URL. Rejects with "missing-device",
 * "not-connected", "no-paper", "no-answer", or "failed" with what the printer says. Waits a minute
 * unless told otherwise.
 *
 * @example
 * const canvas = document.querySelector('canvas')!
 * const { isPaperLow } = await print(robot, canvas)
 * if (isPaperLow) log(robot, 'warning', 'Paper is low')
 */
export async function print(
  robot: Robot,
  picture: string | { toDataURL(): string },
  options: DeviceOptions = {},
): Promise<{ isPaperLow: boolean }> {
  const data = typeof picture === 'string' ? picture : picture.toDataURL()
  const answer = await robot.request(
    'printer.print',
    { data, ignore_not_connected: !!options.ignoreNotConnected },
    patient(options, 60000),
  )
  switch (answer.topic) {
    case 'printer.success':
      return { isPaperLow: answer.replies.some((reply) => reply.topic === 'printer.paper.low') }
    case 'printer.nopaper':
      throw new PanorelError('no-paper', 'the printer has no paper')
    case 'printer.noprinter':
      throw new PanorelError('missing-device', 'the robot has no printer')
    case 'none':
      throw new PanorelError(
        'no-answer',
        'the printer has an error of which the robot says nothing',
      )
    case 'printer.error':
      throw await reasonOf(robot, options)
  }
}

/**
 * The state that the printer last announced; nothing when it has no name.
 *
 * @example
 * const printer = await printerState(robot)
 * if (printer && printer.error_message) console.warn(printer.error_message)
 */
export async function printerState(
  robot: Robot,
  options: DeviceOptions = {},
): Promise<PrinterState | undefined> {
  const answer = await robot.request(
    'printer.state',
    { ignore_not_connected: !!options.ignoreNotConnected },
    patient(options, 10000),
  )
  return answer.topic === 'none' ? undefined : answer.attributes
}

// "printer.error" has no attributes, but the printer's state tells more.
async function reasonOf(robot: Robot, options: RequestOptions): Promise<PanorelError> {
  let state: PrinterState | undefined
  try {
    state = await printerState(robot, { signal: options.signal })
  } catch {
    // Then nothing more is known.
  }
  return state?.state === 'NOT_CONNECTED'
    ? new PanorelError('not-connected', 'the printer is not connected')
    : new PanorelError(
        'failed',
        'the picture is not printed',
        state?.error_code,
        state?.error_message,
      )
}
