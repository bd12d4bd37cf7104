import { PanorelError } from '../errors.js'
import { texts } from '../messages.js'
import type { RequestTopics } from '../topics.js'
import type { Reply, Robot } from '../types.js'
import { patient } from './common.js'
import type { DeviceOptions } from './printer.js'

/** How to scan. */
export interface ScanOptions extends DeviceOptions {
  /** Seconds that the scanner waits for something to scan. Default 30. */
  seconds?: number
  /** Called when the scanner's state changes, in the robot platform's numbering. */
  onState?: (state: number) => void
}

/** How to scan a document. */
export interface DocumentOptions extends ScanOptions {
  /** In the scanner's numbering, 0 to 255; left as it is when missing. */
  mode?: number
  /** In the scanner's numbering, 0 to 255; left as it is when missing. */
  brightness?: number
  /** Dots per inch; left as it is when missing. */
  resolution?: number
  /** Called while the scan goes on, with the scanner's number for it. */
  onProgress?: (progress: number) => void
}

/** What was read, by field; empty when nothing was. */
export type Fields = { [name: string]: string }

type Kind = 'scanner.document.request' | 'scanner.passport.request'

/**
 * Scans a passport. Rejects with "not-started", or "failed" with the scanner's code and words.
 * Waits for the scanner's own time limit and a minute more unless told otherwise.
 *
 * @example
 * const fields = await scanPassport(robot, { seconds: 15 })
 * say(robot, `Welcome ${fields.name}`)
 */
export function scanPassport(robot: Robot, options: ScanOptions = {}): Promise<Fields> {
  return scan(robot, 'scanner.passport.request', {}, options)
}

/**
 * Scans a document. Rejects as `scanPassport` does.
 *
 * @example
 * const fields = await scanDocument(robot, {
 *   resolution: 300,
 *   onProgress: (progress) => console.log(progress),
 * })
 */
export function scanDocument(robot: Robot, options: DocumentOptions = {}): Promise<Fields> {
  const settings: RequestTopics['scanner.document.request'] = {}
  // What is not there is left out: the scanner keeps it as it is.
  for (const name of ['mode', 'brightness', 'resolution'] as const) {
    const value = options[name]
    if (value !== undefined) settings[name] = value
  }
  return scan(robot, 'scanner.document.request', settings, options)
}

async function scan(
  robot: Robot,
  topic: Kind,
  settings: RequestTopics['scanner.document.request'],
  options: DocumentOptions,
): Promise<Fields> {
  const { seconds = 30 } = options
  const { timeout, signal } = patient(options, (seconds + 60) * 1000)
  const answer = await robot.request<Kind>(
    topic,
    Object.assign(settings, {
      timeout: seconds,
      ignore_not_connected: !!options.ignoreNotConnected,
    }),
    { timeout, signal, until: (reply) => follow(reply, options) },
  )
  switch (answer.topic) {
    case 'scanner.document.finish':
    case 'scanner.passport.finish':
      return texts(answer.attributes.data)
    case 'scanner.document.error':
    case 'scanner.passport.error':
      throw new PanorelError(
        'failed',
        'the scan failed',
        answer.attributes.code,
        answer.attributes.text,
      )
    default:
      throw new PanorelError('not-started', 'the scan did not start')
  }
}

// Whether the scan ends with this.
function follow(reply: Reply<Kind>, options: DocumentOptions): boolean {
  switch (reply.topic) {
    case 'scanner.document.response':
    case 'scanner.passport.response':
      return reply.attributes.success !== true
    case 'scanner.document.state':
    case 'scanner.passport.state':
      options.onState?.(reply.attributes.state)
      return false
    case 'scanner.document.progress':
      // It travels as a text.
      options.onProgress?.(Number(reply.attributes.progress))
      return false
    default:
      return true
  }
}
