/**
 * What went wrong:
 * - `no-robot`: there is no robot behind this page, it cannot be reached, or it refuses this page.
 * - `disconnected`: the connection broke, or `close()` or the robot's server ended it.
 * - `timeout`: the robot did not answer in time.
 * - `aborted`: the page gave up, by its AbortSignal.
 * - `no-answer`: the robot has dealt with the request and says nothing to it.
 * - `missing-device`: this robot has no such device.
 * - `not-connected`: the device is there, but not connected.
 * - `not-started`: the robot did not start what was asked.
 * - `no-paper`, `no-cards`: there is nothing left.
 * - `failed`: the device or service failed; see `code` and `said`.
 * - `mistake`: the page asked for a topic or an attribute that is not in the contract.
 */
export type ErrorKind =
  | 'no-robot'
  | 'disconnected'
  | 'timeout'
  | 'aborted'
  | 'no-answer'
  | 'missing-device'
  | 'not-connected'
  | 'not-started'
  | 'no-paper'
  | 'no-cards'
  | 'failed'
  | 'mistake'

/** What this package rejects with. */
export class PanorelError extends Error {
  /** What went wrong, for programs. */
  readonly kind: ErrorKind
  /** The robot's number for it, when it gave one. */
  readonly code: number | undefined
  /** The robot's own words, when it said some. */
  readonly said: string | undefined

  constructor(kind: ErrorKind, message: string, code?: unknown, said?: unknown) {
    super(said ? `${message}: ${said}` : message)
    // A page that knows the web's own errors by their names knows these, too.
    this.name =
      kind === 'aborted' ? 'AbortError' : kind === 'timeout' ? 'TimeoutError' : 'PanorelError'
    this.kind = kind
    this.code = number(code)
    this.said = typeof said === 'string' ? said : undefined
  }
}

/** The robot did not answer in time. */
export class TimeoutError extends PanorelError {
  constructor(message: string) {
    super('timeout', message)
  }
}

// The robot tells some numbers as texts.
function number(value: unknown): number | undefined {
  const found = typeof value === 'string' && value ? Number(value) : value
  return typeof found === 'number' && Number.isFinite(found) ? found : undefined
}
