import type { RequestTopics } from '../topics.js'
import type { Robot } from '../types.js'

/**
 * Writes a line to the robot's log.
 *
 * @example
 * log(robot, 'info', 'Page ready')
 */
export function log(
  robot: Robot,
  level: RequestTopics['system.log']['level'],
  message: string,
): void {
  robot.send('system.log', { level, message })
}

/**
 * Appends rows to a CSV file on the robot, one file for each topic and period. Cells are separated
 * by semicolons and quoted where they have to be.
 *
 * @example
 * statistic(robot, 'visits', [[new Date().toISOString(), 1]])
 */
export function statistic(
  robot: Robot,
  topic: string,
  rows: readonly (readonly (string | number | boolean)[])[],
): void {
  const data = rows.map((row) => `${row.map((cell) => quoted(String(cell))).join(';')}\n`)
  robot.send('system.statistic', { topic, data })
}

function quoted(cell: string): string {
  return /[";\r\n]/.test(cell) ? `"${cell.replace(/"/g, '""')}"` : cell
}
