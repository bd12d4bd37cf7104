import { type Dispensed, dispense } from 'panorel-client'
import { type Problem, problemOf } from '../problems.js'
import { createStore, type Store } from '../store.js'
import { createAttempts, type Tools } from './tools.js'

export type CardState =
  | { readonly at: 'ready' }
  | { readonly at: 'waiting' }
  | ({ readonly at: 'done' } & Readonly<Dispensed>)
  | { readonly at: 'problem'; readonly problem: Problem; readonly isBinFull: boolean }

export interface Card {
  readonly state: Store<CardState>
  start(): Promise<void>
  cancel(): void
}

/** Hands out a visitor's card. */
export function createCard(tools: Tools): Card {
  const { robot } = tools
  const state = createStore<CardState>({ at: 'ready' })
  const attempts = createAttempts(tools)

  return {
    state,
    async start() {
      const signal = attempts.begin()
      let isBinFull = false
      state.set({ at: 'waiting' })
      try {
        const dispensed = await dispense(robot, {
          signal,
          onStatus(topic) {
            isBinFull = isBinFull || topic === 'dispenser.cardbin.full'
          },
        })
        if (signal.aborted) return
        attempts.end()
        tools.say('card.say')
        if (dispensed.isLow) tools.warn('There are few cards left')
        if (dispensed.isBinFull) tools.warn('The card bin is full')
        state.set({ at: 'done', isLow: dispensed.isLow, isBinFull: dispensed.isBinFull })
      } catch (error) {
        if (signal.aborted) return
        attempts.end()
        tools.warn(`No card: ${String(error)}`)
        state.set({ at: 'problem', problem: problemOf('dispenser', error), isBinFull })
      }
    },
    cancel() {
      attempts.end()
      state.set({ at: 'ready' })
    },
  }
}
