import { type Fields, PanorelError, scanPassport } from 'panorel-client'
import { NO_DOCUMENT, Scanner } from '../platform.js'
import { type Problem, problemOf } from '../problems.js'
import { createStore, type Store } from '../store.js'
import { createAttempts, type Tools } from './tools.js'

export type PassportStage = 'waiting' | 'scanning' | 'recognizing'

export type PassportState =
  | { readonly at: 'ready' }
  | { readonly at: 'scanning'; readonly stage: PassportStage }
  | { readonly at: 'done'; readonly fields: Fields }
  | { readonly at: 'problem'; readonly problem: Problem }

export interface Passport {
  readonly state: Store<PassportState>
  start(): Promise<void>
  cancel(): void
}

const stages: { readonly [state: number]: PassportStage } = {
  [Scanner.waiting]: 'waiting',
  [Scanner.scanning]: 'scanning',
  [Scanner.recognizing]: 'recognizing',
}

/** Reads a passport. */
export function createPassport(tools: Tools): Passport {
  const { robot, config } = tools
  const state = createStore<PassportState>({ at: 'ready' })
  const attempts = createAttempts(tools)

  async function start(): Promise<void> {
    const signal = attempts.begin()
    state.set({ at: 'scanning', stage: 'waiting' })
    tools.say('passport.say')
    try {
      const fields = await scanPassport(robot, {
        seconds: config.scanSeconds,
        signal,
        onState(number) {
          const stage = stages[number]
          if (stage && !signal.aborted) state.set({ at: 'scanning', stage })
        },
      })
      if (signal.aborted) return
      attempts.end()
      if (Object.keys(fields).length === 0) {
        state.set({ at: 'problem', problem: 'scanner.unread' })
        return
      }
      tools.say('passport.say.done')
      state.set({ at: 'done', fields })
    } catch (error) {
      if (signal.aborted) return
      attempts.end()
      tools.warn(`Passport not read: ${String(error)}`)
      const isEmpty = error instanceof PanorelError && error.code === NO_DOCUMENT
      state.set({
        at: 'problem',
        problem: isEmpty ? 'scanner.nothing' : problemOf('scanner', error),
      })
    }
  }

  return {
    state,
    start,
    cancel() {
      attempts.end()
      if (state.get().at !== 'done') state.set({ at: 'ready' })
    },
  }
}

/** The name as people write it: passports have capitals only. */
export function nameOf(fields: Fields): string {
  const given = fields.name || ''
  const surname = fields.surname || ''
  if (/\p{Script=Han}/u.test(given + surname)) return surname + given
  return [given, surname].filter(Boolean).map(capitalized).join(' ')
}

/** What a screen may show to whoever stands behind the visitor. */
export function masked(value: string): string {
  return value.length > 4 ? '•'.repeat(value.length - 3) + value.slice(-3) : value
}

function capitalized(name: string): string {
  return name.toLowerCase().replace(/(^|[\s'’-])(\p{L})/gu, (_, before: string, letter: string) => {
    return before + letter.toUpperCase()
  })
}
