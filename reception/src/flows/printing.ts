import { print } from 'panorel-client'
import { type Problem, problemOf } from '../problems.js'
import { createStore, type Store } from '../store.js'
import { createAttempts, type Tools } from './tools.js'

export type PrintingState =
  | { readonly at: 'form' }
  | { readonly at: 'camera' }
  | { readonly at: 'preview'; readonly isCameraMissing: boolean }
  | { readonly at: 'printing' }
  | { readonly at: 'done'; readonly isPaperLow: boolean }
  | { readonly at: 'problem'; readonly problem: Problem }

export interface Printing {
  readonly state: Store<PrintingState>
  print(picture: { toDataURL(): string }): Promise<void>
  cancel(): void
}

/** Prints a badge. */
export function createPrinting(tools: Tools): Printing {
  const { robot } = tools
  const state = createStore<PrintingState>({ at: 'form' })
  const attempts = createAttempts(tools)

  return {
    state,
    async print(picture) {
      const signal = attempts.begin()
      state.set({ at: 'printing' })
      try {
        const { isPaperLow } = await print(robot, picture, { signal })
        if (signal.aborted) return
        attempts.end()
        tools.say('badge.say')
        if (isPaperLow) tools.warn('The printer is low on paper')
        state.set({ at: 'done', isPaperLow })
      } catch (error) {
        if (signal.aborted) return
        attempts.end()
        tools.warn(`Badge not printed: ${String(error)}`)
        state.set({ at: 'problem', problem: problemOf('printer', error) })
      }
    },
    cancel() {
      attempts.end()
      state.set({ at: 'form' })
    },
  }
}
