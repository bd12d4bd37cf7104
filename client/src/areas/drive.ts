import type { EventTopics } from '../topics.js'
import type { Robot } from '../types.js'
import { all } from './common.js'

/**
 * Drives to a point. How it goes comes with `onDrive`.
 *
 * @example
 * driveTo(robot, 3)
 */
export function driveTo(robot: Robot, point: number): void {
  robot.send('system.drive.control', { drive_point: point })
}

/**
 * Stops on the way, until `resumeDrive`.
 *
 * @example
 * pauseDrive(robot)
 */
export function pauseDrive(robot: Robot): void {
  robot.send('system.drive.control', { drive_pause: true })
}

/**
 * Goes on after `pauseDrive`.
 *
 * @example
 * resumeDrive(robot)
 */
export function resumeDrive(robot: Robot): void {
  robot.send('system.drive.control', { drive_pause: false })
}

/**
 * Sets the drive mode, in the robot platform's numbering.
 *
 * @example
 * setDriveMode(robot, 1)
 */
export function setDriveMode(robot: Robot, mode: number): void {
  robot.send('system.drive.control', { drive_mode: mode })
}

/**
 * Goes to the charger.
 *
 * @example
 * driveToCharger(robot)
 */
export function driveToCharger(robot: Robot): void {
  robot.send('system.drive.control', { drive_charger: true })
}

/**
 * Leaves the charger.
 *
 * @example
 * leaveCharger(robot)
 */
export function leaveCharger(robot: Robot): void {
  robot.send('system.drive.control', { drive_charger: false })
}

/** What the drive tells, in the robot platform's numbering: one member at a time. */
export type DriveNews = Partial<
  EventTopics['system.drive.mode'] &
    EventTopics['system.drive.status'] &
    EventTopics['system.drive.charge']
>

/**
 * Calls back when mode, status or charge changes. Returns how to stop that.
 *
 * @example
 * onDrive(robot, (news) => {
 *   if (news.status !== undefined) console.log('status', news.status)
 * })
 */
export function onDrive(robot: Robot, callback: (news: DriveNews) => void): () => void {
  return all(
    robot.on('system.drive.mode', callback),
    robot.on('system.drive.status', callback),
    robot.on('system.drive.charge', callback),
  )
}
