import type { Robot } from 'panorel-client'

/** Shows a banner while the robot cannot be reached, and asks anew when it is back. */
export function watch(robot: Robot, banner: { hidden: boolean }, refresh: () => void): void {
  robot.onState((state) => {
    banner.hidden = state === 'connected'
    if (state === 'connected') refresh()
  })
}
