import { driveTo, onDrive, pauseDrive, resumeDrive } from 'panorel-client'
import type { Localized } from '../config.js'
import { Drive } from '../platform.js'
import type { Problem } from '../problems.js'
import { createStore, type Store } from '../store.js'
import { createAttempts, type Tools } from './tools.js'

/** Where to. */
export interface Place {
  readonly name: Localized
  readonly point: number
  readonly directions?: Localized
}

export type WayState =
  | { readonly at: 'choose' }
  | {
      readonly at: 'starting' | 'moving' | 'paused' | 'stopped' | 'arrived'
      readonly place: Place
    }
  | { readonly at: 'problem'; readonly problem: Problem; readonly place: Place }

export interface Way {
  readonly state: Store<WayState>
  /** Whether the robot has left its place for this visitor. */
  readonly isAway: boolean
  start(place: Place, name: string): void
  pause(): void
  resume(): void
  /** A drive has no stop: it is paused, until it is sent elsewhere. */
  stop(): void
  cancel(): void
}

/** A drive that says nothing for so long does not drive. */
export const START_TIME = 10000

/** Drives ahead of the visitor. */
export function createWay(tools: Tools): Way {
  const { robot } = tools
  const state = createStore<WayState>({ at: 'choose' })
  const attempts = createAttempts(tools)
  let stops: (() => void)[] = []
  let timer: ReturnType<typeof setTimeout> | undefined
  let isAway = false
  let name = ''

  function leave(): void {
    clearTimeout(timer)
    attempts.end()
    for (const stop of stops) stop()
    stops = []
  }

  function fail(place: Place, problem: Problem): void {
    clearTimeout(timer)
    tools.warn(`Drive to point ${place.point}: ${problem}`)
    if (problem === 'drive.blocked') tools.say('way.say.blocked')
    state.set({ at: 'problem', problem, place })
  }

  function follow(place: Place, status: number): void {
    clearTimeout(timer)
    switch (status) {
      case Drive.moving:
        isAway = true
        state.set({ at: 'moving', place })
        break
      case Drive.paused:
        // Stopped is paused for good.
        if (state.get().at !== 'stopped') state.set({ at: 'paused', place })
        break
      case Drive.reached:
        isAway = true
        leave()
        tools.say('way.say.arrived', { place: name })
        state.set({ at: 'arrived', place })
        break
      case Drive.blocked:
        fail(place, 'drive.blocked')
        break
      default:
        // A stand before the drive has begun is that of the one before.
        if (state.get().at !== 'starting') state.set({ at: 'stopped', place })
    }
  }

  function begin(place: Place): void {
    leave()
    attempts.begin()
    state.set({ at: 'starting', place })
    stops.push(
      onDrive(robot, (news) => {
        if (news.status !== undefined) follow(place, news.status)
      }),
      robot.onState((now) => {
        if (now !== 'connected') fail(place, 'lost')
      }),
    )
    timer = setTimeout(() => fail(place, 'drive.silent'), START_TIME)
    driveTo(robot, place.point)
  }

  return {
    state,
    get isAway() {
      return isAway
    },
    start(place, spokenName) {
      name = spokenName
      tools.say('way.say', { place: name })
      begin(place)
    },
    pause() {
      tools.say('way.say.paused')
      pauseDrive(robot)
    },
    resume() {
      const now = state.get()
      if (now.at === 'paused') resumeDrive(robot)
      else if ('place' in now) begin(now.place)
    },
    stop() {
      const now = state.get()
      if (!('place' in now)) return
      pauseDrive(robot)
      state.set({ at: 'stopped', place: now.place })
    },
    cancel() {
      const { at } = state.get()
      leave()
      // One that was interrupted may go on all the same.
      const isGoing = at === 'moving' || at === 'starting' || at === 'problem'
      if (robot.state === 'connected' && isGoing) pauseDrive(robot)
      state.set({ at: 'choose' })
    },
  }
}
