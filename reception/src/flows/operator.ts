import { callOperator, withdrawOperator } from 'panorel-client'
import { type Problem, problemOf } from '../problems.js'
import { createStore, type Store } from '../store.js'
import { createAttempts, type Tools } from './tools.js'

export type OperatorState =
  | { readonly at: 'ready' | 'calling' | 'answered' | 'control' }
  | { readonly at: 'problem'; readonly problem: Problem }

export interface Operator {
  readonly state: Store<OperatorState>
  call(): Promise<void>
  /** An operator has taken over, or left. */
  control(isOn: boolean): void
  cancel(): void
}

/** Calls a person for help. */
export function createOperator(tools: Tools): Operator {
  const { robot } = tools
  const state = createStore<OperatorState>({ at: 'ready' })
  const attempts = createAttempts(tools)
  let release: (() => void) | undefined

  function leaveControl(): void {
    release?.()
    release = undefined
  }

  return {
    state,
    async call() {
      const signal = attempts.begin()
      state.set({ at: 'calling' })
      tools.say('operator.say')
      try {
        await callOperator(robot, { signal })
        if (signal.aborted) return
        attempts.end()
        if (state.get().at === 'calling') state.set({ at: 'answered' })
      } catch (error) {
        if (signal.aborted) return
        attempts.end()
        tools.warn(`No operator: ${String(error)}`)
        if (robot.state === 'connected') withdrawOperator(robot)
        state.set({ at: 'problem', problem: problemOf('operator', error) })
      }
    },
    control(isOn) {
      if (isOn) {
        attempts.end()
        if (!release) release = tools.busy()
        state.set({ at: 'control' })
      } else if (release) {
        leaveControl()
        // A call that stands would hide the next one.
        if (robot.state === 'connected') withdrawOperator(robot)
        state.set({ at: 'ready' })
      }
    },
    cancel() {
      const { at } = state.get()
      attempts.end()
      leaveControl()
      const isOpen = at === 'calling' || at === 'answered' || at === 'control'
      if (isOpen && robot.state === 'connected') withdrawOperator(robot)
      state.set({ at: 'ready' })
    },
  }
}
