/** How long a visitor may do nothing. */
export interface IdleTimes {
  readonly idleSeconds: number
  readonly countdownSeconds: number
  readonly busySeconds: number
}

export interface Idle {
  start(): void
  stop(): void
  /** The visitor did something. */
  touch(): void
  /** Nobody is seen any more: the count-down begins now, or when the robot is no longer busy. */
  hurry(): void
  /** The visitor waits for the robot. Returns how to end that. */
  hold(): () => void
}

/** Calls @p tell with the seconds left while it counts down, with nothing when it does not any more, and
 *  @p over at the end. */
export function createIdle(
  times: IdleTimes,
  tell: (secondsLeft: number | undefined) => void,
  over: () => void,
): Idle {
  let holds = 0
  let isRunning = false
  let isAlone = false
  let isCounting = false
  let timer: ReturnType<typeof setTimeout> | undefined

  function rest(): void {
    clearTimeout(timer)
    if (!isCounting) return
    isCounting = false
    tell(undefined)
  }

  function wait(): void {
    rest()
    if (!isRunning) return
    if (isAlone && holds === 0) {
      countDown(times.countdownSeconds)
      return
    }
    const seconds = holds > 0 ? times.busySeconds : times.idleSeconds
    timer = setTimeout(() => countDown(times.countdownSeconds), seconds * 1000)
  }

  function countDown(left: number): void {
    isCounting = true
    if (left <= 0) {
      rest()
      over()
      return
    }
    tell(left)
    timer = setTimeout(() => countDown(left - 1), 1000)
  }

  return {
    start() {
      isRunning = true
      isAlone = false
      wait()
    },
    stop() {
      isRunning = false
      rest()
    },
    touch() {
      isAlone = false
      wait()
    },
    hurry() {
      isAlone = true
      if (!isCounting) wait()
    },
    hold() {
      holds += 1
      wait()
      let isHeld = true
      return () => {
        if (!isHeld) return
        isHeld = false
        holds -= 1
        wait()
      }
    },
  }
}
