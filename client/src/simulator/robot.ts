import type { EventTopics } from '../topics.js'
import type { EventTopic, RequestTopic } from '../types.js'
import { SimulatorError } from './errors.js'
import type { AttributesOf, RecordedMessage, RecordedMessages, SimulatedState } from './state.js'

/** An error of a device or service. */
export interface SimulatedFault {
  code: number
  text?: string
}

export interface SimulatedScannerChanges {
  connected?: boolean
  /** Whether a document lies on it. */
  present?: boolean
  /** What the next scans read. */
  fields?: { readonly [name: string]: string }
  error?: SimulatedFault
}

/** How to wait for a message. */
export interface WaitOptions<T extends RequestTopic | EventTopic> {
  /** Milliseconds. Default 5000. */
  timeout?: number
  /** Which one of the topic; default any. */
  where?(attributes: Partial<AttributesOf<T>>): boolean
}

/** The robot behind the page, as a test steers it. Each function resolves when it has happened, and
 *  rejects with a SimulatorError when the simulator refuses it. */
export interface SimulatedRobot {
  /** Somebody comes before the camera: a stranger, or with a name somebody whom the robot is made to
   *  know, or with an id a person of its database. */
  enter(visitor?: {
    name?: string
    age?: number
    id?: number
  }): Promise<{ id: number; track: number }>
  /** This one goes; without a track, everybody. */
  leave(visitor?: { track?: number }): Promise<void>
  /** Somebody speaks; not final means that recognition still changes it. */
  hear(text: string, options?: { final?: boolean }): Promise<void>
  /** The robot puts a question to the screen; without a text the open one is withdrawn. */
  ask(question?: { text?: string; answers?: readonly string[] }): Promise<void>
  /** An interaction starts for this reason; without one it stops. */
  interaction(start?: {
    reason?: 'unknown' | 'face' | 'speech' | 'touch' | 'request'
  }): Promise<void>
  printer(changes: {
    connected?: boolean
    /** Sheets in its tray. */
    paper?: number
    refusing?: boolean
    error?: SimulatedFault
    /** Ends an error. */
    clear?: boolean
  }): Promise<void>
  dispenser(changes: {
    connected?: boolean
    cards?: number
    jammed?: boolean
    bin_full?: boolean
    /** A visitor takes the card. */
    taken?: boolean
    /** Any status word. */
    status?: number
  }): Promise<void>
  passportScanner(changes: SimulatedScannerChanges): Promise<void>
  documentScanner(changes: SimulatedScannerChanges): Promise<void>
  /** What becomes of calls, and what the called one does. */
  telephone(changes: {
    outcome?: 'answered' | 'busy' | 'no answer'
    /** 0 to 9, 10 for *, 11 for #. */
    key?: number
    hang_up?: boolean
  }): Promise<void>
  drive(changes: {
    mode?: 'manual' | 'automatic' | 'follow' | 'disabled'
    /** Milliseconds. */
    travel_time?: number
    /** Puts something in the way. */
    block?: boolean
  }): Promise<void>
  /** The operator answers; takes over or hands back. */
  operator(changes: { response?: number; control?: boolean }): Promise<void>
  /** Mails are refused with this error; without one they are taken again. */
  mail(changes?: { error?: SimulatedFault }): Promise<void>
  /** How fast the robot's time runs; 1 unless given. */
  pace(changes?: { speed?: number }): Promise<void>
  /** The robot tells the page this, whatever it is. */
  tell<T extends EventTopic>(
    topic: T,
    ...attributes: {} extends EventTopics[T]
      ? [attributes?: EventTopics[T]]
      : [attributes: EventTopics[T]]
  ): Promise<void>

  /** What the robot does and what its devices hold. */
  state(): Promise<SimulatedState>
  /** The last 1000 messages, reports of faces left out, from this number on. */
  messages(since?: number): Promise<RecordedMessages>
  /**
   * The next message of the topic: the first that no earlier call has resolved with, also when it
   * has come already. So nothing is lost between what makes the page send it and the call.
   */
  waitForMessage<T extends RequestTopic | EventTopic>(
    topic: T,
    options?: WaitOptions<T>,
  ): Promise<RecordedMessage<T, AttributesOf<T>>>
}

/** Asks the simulator for a path below /robot/: with a body to do something, without to tell. */
export type Ask = (path: string, body?: object) => Promise<unknown>

const POLL_TIME = 40

export function createRobot(ask: Ask): SimulatedRobot {
  // The number behind the last message of each topic that somebody has waited for.
  const taken = new Map<string, number>()
  const does =
    (action: string) =>
    async (values: object = {}): Promise<void> => {
      await ask(action, values)
    }
  const messages = (since = 0) => ask(`messages?since=${since}`) as Promise<RecordedMessages>

  async function waitForMessage<T extends RequestTopic | EventTopic>(
    topic: T,
    { timeout = 5000, where = () => true }: WaitOptions<T> = {},
  ): Promise<RecordedMessage<T, AttributesOf<T>>> {
    const end = Date.now() + timeout
    const seen = new Set<string>()
    let since = taken.get(topic) ?? 0
    for (;;) {
      const { next, messages: news } = await messages(since)
      since = next
      for (const message of news as RecordedMessage<T, AttributesOf<T>>[]) {
        seen.add(message.topic)
        const isNew = message.number >= (taken.get(topic) ?? 0)
        if (message.topic === topic && isNew && where(message.attributes ?? {})) {
          taken.set(topic, message.number + 1)
          return message
        }
      }
      if (Date.now() >= end) break
      await new Promise((resolve) => setTimeout(resolve, POLL_TIME))
    }
    const others = [...seen].join(', ') || 'nothing'
    throw new SimulatorError('timeout', `no ${topic} came within ${timeout} ms, but ${others}`)
  }

  return {
    enter: (visitor = {}) => ask('enter', visitor) as Promise<{ id: number; track: number }>,
    leave: does('leave'),
    hear: (text, options) => does('hear')({ ...options, text }),
    ask: does('ask'),
    interaction: does('interaction'),
    printer: does('printer'),
    dispenser: does('dispenser'),
    passportScanner: does('passport-scanner'),
    documentScanner: does('document-scanner'),
    telephone: does('telephone'),
    drive: does('drive'),
    operator: does('operator'),
    mail: does('mail'),
    pace: does('pace'),
    tell: (topic, ...[attributes = {}]) => does('tell')({ topic, attributes }),
    state: () => ask('state') as Promise<SimulatedState>,
    messages,
    waitForMessage,
  }
}
