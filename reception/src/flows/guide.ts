import type { Step } from '../config.js'
import { createStore, type Store } from '../store.js'

/** How a step of the guided visit stands. */
export type StepState = 'open' | 'done' | 'skipped'

/** A guided visit: one step after another, each of which may be skipped. */
export interface Guide {
  readonly steps: readonly Step[]
  readonly state: Store<{ readonly index: number; readonly results: readonly StepState[] }>
  readonly current: Step | undefined
  /** Ends the current step; the next one, or nothing after the last. */
  next(result: 'done' | 'skipped'): Step | undefined
  /** The step before. */
  back(): Step | undefined
}

export function createGuide(steps: readonly Step[]): Guide {
  const state: Guide['state'] = createStore({
    index: 0,
    results: steps.map((): StepState => 'open'),
  })
  const guide: Guide = {
    steps,
    state,
    get current() {
      return steps[state.get().index]
    },
    next(result) {
      const { index, results } = state.get()
      state.set({
        index: Math.min(index + 1, steps.length),
        results: results.map((one, at) => (at === index ? result : one)),
      })
      return guide.current
    },
    back() {
      const { index, results } = state.get()
      if (index === 0) return undefined
      state.set({
        index: index - 1,
        results: results.map((one, at) => (at === index - 1 ? 'open' : one)),
      })
      return guide.current
    },
  }
  return guide
}
