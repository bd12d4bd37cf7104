import type { Robot } from '../types.js'

/**
 * Starts the interaction with the user.
 *
 * @example
 * startInteraction(robot)
 */
export function startInteraction(robot: Robot): void {
  robot.send('system.interaction.control', { state: 'Start' })
}

/**
 * Stops the interaction with the user.
 *
 * @example
 * stopInteraction(robot)
 */
export function stopInteraction(robot: Robot): void {
  robot.send('system.interaction.control', { state: 'Stop' })
}

/**
 * Calls back when an interaction begins, with the reason in the robot platform's numbering, or ends.
 * Returns how to stop that.
 *
 * @example
 * onInteraction(robot, (isOn) => document.body.classList.toggle('is-awake', isOn))
 */
export function onInteraction(
  robot: Robot,
  callback: (isOn: boolean, reason: number | undefined) => void,
): () => void {
  return robot.on('system.interaction.state', ({ state, Reason }) => {
    callback(state === 'Interaction', Reason)
  })
}
