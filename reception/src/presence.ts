import { onFaces, onUser, type Robot } from 'panorel-client'

/** Somebody whom the robot knows. */
export interface Known {
  readonly id: number
  readonly name: string
}

/** What the robot notices of people. */
export interface PresenceCalls {
  came(user: Known | undefined): void
  left(): void
}

// Whoever has just finished a visit still stands there: that wakes nobody.
const AWAY_TIME = 3000

/** Calls back when somebody comes and when nobody is there any more. */
export function watchPresence(robot: Robot, calls: PresenceCalls) {
  let isSeen = false
  let timer: ReturnType<typeof setTimeout> | undefined
  const gone = (): void => {
    isSeen = false
    calls.left()
  }
  const stops = [
    onUser(robot, (user) => calls.came({ id: user.user_id, name: user.name }), calls.left),
    robot.on('dialog.user.said', ({ is_finish }) => {
      if (is_finish) calls.came(undefined)
    }),
    onFaces(robot, (faces) => {
      if (faces.length === 0) {
        // The next one may be another's. Nobody has left before AWAY_TIME: a face is lost at times.
        isSeen = false
        return
      }
      clearTimeout(timer)
      timer = setTimeout(gone, AWAY_TIME)
      if (isSeen) return
      isSeen = true
      calls.came(undefined)
    }),
  ]
  return () => {
    clearTimeout(timer)
    for (const stop of stops) stop()
  }
}
