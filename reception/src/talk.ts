import { onQuestion, type Robot } from 'panorel-client'
import type { Config } from './config.js'
import { createStore, type Store } from './store.js'

/** One line of the conversation. */
export interface Line {
  readonly id: number
  readonly who: 'robot' | 'visitor'
  readonly text: string
  /** The robot still speaks it, or the recognition still changes it. */
  readonly isOpen: boolean
}

export type Offer = Config['actions'][string]

export interface Conversation {
  readonly lines: readonly Line[]
  readonly question: { readonly text: string; readonly answers: readonly string[] } | undefined
  /** What the screen can do about what the robot said last. */
  readonly offers: readonly Offer[]
}

export interface Talk {
  readonly state: Store<Conversation>
  /** The visitor chose an answer on the screen. */
  answered(text: string): void
  clear(): void
  end(): void
}

const MAX_LINES = 40
const nothing: Conversation = { lines: [], question: undefined, offers: [] }

/** What robot and visitor say to each other, as the robot tells it. */
export function createTalk(robot: Robot, config: Config): Talk {
  const state = createStore<Conversation>(nothing)
  let count = 0
  // What the dialog engine is about to say, and what the screen shows for it.
  let announced = { spoken: '', shown: '' }

  function change(changes: Partial<Conversation>): void {
    state.set({ ...state.get(), ...changes })
  }

  function add(who: Line['who'], text: string, isOpen: boolean): void {
    count += 1
    const lines = [...closed(who), { id: count, who, text, isOpen }]
    change({ lines: lines.slice(-MAX_LINES) })
  }

  function closed(who: Line['who']): Line[] {
    return state.get().lines.map((line) => (line.who === who ? { ...line, isOpen: false } : line))
  }

  function heard(text: string, isFinal: boolean): void {
    const { lines } = state.get()
    const open = lines.find((line) => line.who === 'visitor' && line.isOpen)
    if (!open) {
      if (text) add('visitor', text, !isFinal)
      return
    }
    change({
      lines: lines.map((line) =>
        line === open ? { ...line, text: text || line.text, isOpen: !isFinal } : line,
      ),
    })
  }

  function announce(replica: { text: string; screen_text?: string; actions: string }): void {
    announced = { spoken: replica.text, shown: replica.screen_text || replica.text }
    const offers = replica.actions
      .split(',')
      .map((action) => action.trim())
      .map((action) =>
        Object.keys(config.actions).includes(action) ? config.actions[action] : undefined,
      )
      .filter((offer): offer is Offer => offer !== undefined)
    change({ offers })
  }

  const stops = [
    robot.on('dialog.robot.replic.start', ({ text }) => {
      if (text) add('robot', text === announced.spoken ? announced.shown : text, true)
    }),
    robot.on('dialog.robot.replic.finish', () => change({ lines: closed('robot') })),
    robot.on('dialog.user.said', ({ text, is_finish }) => heard(text, is_finish)),
    robot.on('dialog.answer.load', ({ answer }) => announce(answer.replica)),
    robot.on('dialog.greeting.load', ({ greeting }) => announce(greeting)),
    robot.on('dialog.replica.extra.load', ({ replica }) => announce(replica)),
    onQuestion(
      robot,
      ({ text, answers }) => change({ question: { text, answers } }),
      () => change({ question: undefined }),
    ),
  ]

  return {
    state,
    answered(text) {
      add('visitor', text, false)
      change({ question: undefined })
    },
    clear() {
      announced = { spoken: '', shown: '' }
      state.set(nothing)
    },
    end() {
      for (const stop of stops) stop()
    },
  }
}

/** What the robot says now. */
export function speaking(conversation: Conversation): string | undefined {
  return conversation.lines.find((line) => line.who === 'robot' && line.isOpen)?.text
}
