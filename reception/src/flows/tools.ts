import type { Robot } from 'panorel-client'
import type { Config } from '../config.js'
import type { Key, Values } from '../texts/index.js'

/** What a flow needs of the page around it. */
export interface Tools {
  readonly robot: Robot
  readonly config: Config
  /** A text in the visitor's language. */
  t(key: Key, values?: Values): string
  /** Lets the robot say it. */
  say(key: Key, values?: Values): void
  /** Tells the staff, by the robot's log. */
  warn(words: string): void
  /** The visitor waits for the robot: the page is patient until the returned function is called. */
  busy(): () => void
}

/** One attempt at a time: a new one, or the end, gives the one before up. */
export interface Attempts {
  begin(): AbortSignal
  end(): void
}

export function createAttempts(tools: Tools): Attempts {
  let current: AbortController | undefined
  let release: (() => void) | undefined
  const end = (): void => {
    current?.abort()
    current = undefined
    release?.()
    release = undefined
  }
  return {
    begin() {
      end()
      current = new AbortController()
      release = tools.busy()
      return current.signal
    },
    end,
  }
}
