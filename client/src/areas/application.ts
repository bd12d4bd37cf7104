import type { Robot } from '../types.js'

/** What host code and page agree on. */
export type Custom = { [name: string]: unknown }

/**
 * Sends an event of the page's own, for host code that waits for "system.custom.event.js".
 *
 * @example
 * tellHost(robot, { floor: 3 })
 */
export function tellHost(robot: Robot, attributes: Custom): void {
  robot.send('system.custom.event.js', attributes)
}

/**
 * Calls back with the events of the host's own. Returns how to stop that.
 *
 * @example
 * onHost(robot, (attributes) => console.log(attributes.floor))
 */
export function onHost(robot: Robot, callback: (attributes: Custom) => void): () => void {
  return robot.on('system.custom.event.core', callback)
}
