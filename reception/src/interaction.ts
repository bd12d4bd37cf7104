import { onInteraction, type Robot, startInteraction, stopInteraction } from 'panorel-client'

/** Whether the robot attends to somebody. Page and robot both begin and end that. */
export interface Interaction {
  start(): void
  stop(): void
  end(): void
}

/** Calls back when the robot begins or ends by itself, not when it answers this page. */
export function createInteraction(
  robot: Robot,
  calls: { began(): void; ended(): void },
): Interaction {
  // What it told last, and its answers that are still to come: they may come when the page has asked
  // for the opposite, and would undo that.
  let isOn = false
  let coming: boolean[] = []

  function ask(wanted: boolean): void {
    if (robot.state !== 'connected') return
    const [last = isOn] = coming.slice(-1)
    // Without a change there is no answer.
    if (last !== wanted) coming.push(wanted)
    if (wanted) startInteraction(robot)
    else stopInteraction(robot)
  }

  const stops = [
    onInteraction(robot, (now) => {
      isOn = now
      if (coming[0] === now) {
        coming.shift()
        return
      }
      coming = []
      if (now) calls.began()
      else calls.ended()
    }),
    robot.onState(() => {
      coming = []
    }),
  ]
  return {
    start: () => ask(true),
    stop: () => ask(false),
    end() {
      for (const stop of stops) stop()
    },
  }
}
