import { driveTo, onDrive, pauseDrive } from 'panorel-client'
import { Drive } from '../platform.js'
import { createStore, type Store } from '../store.js'
import type { Tools } from './tools.js'

/** The robot's way back to its place, when it has taken a visitor somewhere. */
export interface Returning {
  readonly isUnderWay: Store<boolean>
  start(): void
  /** Somebody is there: stand still until the visit is over. */
  interrupt(): void
  /** Goes on where it was interrupted. */
  resume(): void
}

/** How long to wait for a free way. */
export const BLOCKED_TIME = 20000

export function createReturning(tools: Tools): Returning {
  const { robot, config } = tools
  const isUnderWay = createStore(false)
  let isOwed = false
  let timer: ReturnType<typeof setTimeout> | undefined
  let stop: (() => void) | undefined

  function leave(): void {
    clearTimeout(timer)
    stop?.()
    stop = undefined
    isUnderWay.set(false)
  }

  function begin(point: number): void {
    leave()
    isUnderWay.set(true)
    stop = onDrive(robot, ({ status }) => {
      if (status === Drive.reached) {
        isOwed = false
        leave()
      } else if (status === Drive.blocked) {
        tools.say('way.say.blocked')
        clearTimeout(timer)
        timer = setTimeout(() => driveTo(robot, point), BLOCKED_TIME)
      }
    })
    driveTo(robot, point)
  }

  function start(): void {
    isOwed = true
    if (config.homePoint !== undefined && robot.state === 'connected') begin(config.homePoint)
  }

  return {
    isUnderWay,
    start,
    interrupt() {
      if (!isUnderWay.get()) return
      leave()
      if (robot.state === 'connected') pauseDrive(robot)
    },
    resume() {
      if (isOwed) start()
    },
  }
}
