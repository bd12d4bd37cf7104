import { call, callWithText, clearCalls, hangUp, onCall } from 'panorel-client'
import type { Person } from '../config.js'
import { Call as Numbers } from '../platform.js'
import { type Problem, problemOf } from '../problems.js'
import { createStore, type Store } from '../store.js'
import { createAttempts, type Tools } from './tools.js'

export type CallState =
  | { readonly at: 'choose' }
  | { readonly at: 'calling' | 'ringing' | 'connected' | 'ended'; readonly person: Person }
  | { readonly at: 'leaving' | 'left'; readonly person: Person }
  | { readonly at: 'problem'; readonly problem: Problem; readonly person: Person }

export interface Call {
  readonly state: Store<CallState>
  start(person: Person): Promise<void>
  /** Calls again and speaks a message. */
  leaveMessage(person: Person, visitor: string): Promise<void>
  hangUp(): void
  cancel(): void
}

/** Nobody waits longer for an answer. */
export const RING_TIME = 45000
/** A message needs a call, and another one if nobody answered the first. */
export const MESSAGE_TIME = 120000

/** Calls the person visited. */
export function createCall(tools: Tools): Call {
  const { robot } = tools
  const state = createStore<CallState>({ at: 'choose' })
  const attempts = createAttempts(tools)
  let stops: (() => void)[] = []

  function leaveLine(): void {
    attempts.end()
    for (const stop of stops) stop()
    stops = []
  }

  function fail(person: Person, problem: Problem): void {
    leaveLine()
    tools.warn(`Call: ${problem}`)
    state.set({ at: 'problem', problem, person })
  }

  function waitFor(milliseconds: number, over: () => void): () => void {
    const timer = setTimeout(over, milliseconds)
    const stop = (): void => clearTimeout(timer)
    stops.push(stop)
    return stop
  }

  function follow(person: Person, number: number, answered: () => void): void {
    switch (number) {
      case Numbers.calling:
        state.set({ at: 'calling', person })
        break
      case Numbers.ringing:
        state.set({ at: 'ringing', person })
        break
      case Numbers.connected:
        answered()
        state.set({ at: 'connected', person })
        break
      case Numbers.busy:
        fail(person, 'call.busy')
        break
      case Numbers.failed:
        fail(person, 'call.noanswer')
        break
      case Numbers.ended:
        leaveLine()
        state.set({ at: 'ended', person })
    }
  }

  async function start(person: Person): Promise<void> {
    end()
    const signal = attempts.begin()
    state.set({ at: 'calling', person })
    tools.say('call.say', { name: person.name })
    const answered = waitFor(RING_TIME, () => {
      hangUp(robot)
      fail(person, 'call.noanswer')
    })
    stops.push(
      onCall(robot, (news) => {
        if (news.event === 'public_call') follow(person, news.state, answered)
      }),
      robot.onState((now) => {
        if (now === 'connected') return
        fail(person, 'lost')
        // The line itself may have lasted.
        const stop = robot.onState((later) => {
          if (later === 'connected' && state.get().at === 'problem') hangUp(robot)
          stop()
        })
      }),
    )
    try {
      await call(robot, person.number, { signal })
    } catch (error) {
      if (!signal.aborted) fail(person, problemOf('call', error))
    }
  }

  async function leaveMessage(person: Person, visitor: string): Promise<void> {
    end()
    const signal = attempts.begin()
    state.set({ at: 'leaving', person })
    // The end of the call may be told before its id is known here.
    const ended = new Map<string, boolean>()
    let mine: string | undefined
    const settle = (): void => {
      const success = mine === undefined ? undefined : ended.get(mine)
      if (success === undefined) return
      if (!success) {
        fail(person, 'call.message')
        return
      }
      leaveLine()
      state.set({ at: 'left', person })
    }
    waitFor(MESSAGE_TIME, () => fail(person, 'call.message'))
    stops.push(
      onCall(robot, (news) => {
        if (news.event !== 'hidden_call') return
        ended.set(news.uuid, news.success)
        settle()
      }),
    )
    const text = visitor
      ? tools.t('call.message.text', { name: visitor })
      : tools.t('call.message.nobody')
    try {
      mine = await callWithText(robot, person.number, text, { signal })
      settle()
    } catch (error) {
      if (!signal.aborted) fail(person, problemOf('message', error))
    }
  }

  function end(): void {
    const { at } = state.get()
    const isOnLine = at === 'calling' || at === 'ringing' || at === 'connected'
    leaveLine()
    if (robot.state !== 'connected') return
    if (isOnLine) hangUp(robot)
    else if (at === 'leaving') clearCalls(robot)
  }

  return {
    state,
    start,
    leaveMessage,
    hangUp() {
      const now = state.get()
      end()
      if ('person' in now) state.set({ at: 'ended', person: now.person })
    },
    cancel() {
      end()
      state.set({ at: 'choose' })
    },
  }
}
