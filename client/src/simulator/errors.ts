/**
 * What went wrong:
 * - `not-found`: the simulator's program is not there.
 * - `ended`: the simulator ended, by itself or because it was stopped.
 * - `timeout`: it did not start in time, or what was waited for did not come.
 * - `refused`: it did not do what was asked; the message holds its reason.
 */
export type SimulatorErrorKind = 'not-found' | 'ended' | 'timeout' | 'refused'

/** What the simulator's runner rejects with. */
export class SimulatorError extends Error {
  /** What went wrong, for programs. */
  readonly kind: SimulatorErrorKind

  constructor(kind: SimulatorErrorKind, message: string) {
    super(message)
    this.name = 'SimulatorError'
    this.kind = kind
  }
}
