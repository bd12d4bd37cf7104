import type { Opener } from '../channel.js'
import { connect } from '../connect.js'
import { createListeners } from '../listeners.js'
import { read, type Told } from '../messages.js'
import type { EventTopics, RequestTopics } from '../topics.js'
import type { AnsweredTopic, EventTopic, RequestTopic, Robot } from '../types.js'
import { type FakeReply, isAtOnce, type Sent, working } from './answers.js'

/** What to say to a request, by its attributes. */
export type FakeAnswer<T extends AnsweredTopic> = (
  attributes: RequestTopics[T],
) => readonly FakeReply<T>[]

/** A robot in memory, for the tests of a page. */
export interface FakeRobot {
  /** For `connect({ open: fake.open })`. */
  readonly open: Opener
  /** What the page sent, in order. */
  readonly sent: readonly { readonly topic: string; readonly attributes: Sent }[]

  /** Connects to it, in one call. */
  connect(): Promise<Robot>

  /** Puts it where a page looks for its robot, so that the page's own `connect()` finds it. Returns
   *  how to take it away again. */
  install(target?: object): () => void

  /** The attributes of what the page sent of one topic. */
  sentOf<T extends RequestTopic>(topic: T): RequestTopics[T][]

  /**
   * What to say to a request from now on: replies in their order, none for silence, or a function
   * that gives a list of them. Those that the contract calls direct come before the robot has done
   * with the request, the others soon after. `answer(topic, undefined)` brings back the default.
   */
  answer<T extends AnsweredTopic>(
    topic: T,
    ...replies: FakeReply<T>[] | [FakeAnswer<T> | undefined]
  ): void

  /** Tells the page something, at once. */
  emit<T extends EventTopic>(
    topic: T,
    ...attributes: {} extends EventTopics[T]
      ? [attributes?: EventTopics[T]]
      : [attributes: EventTopics[T]]
  ): void

  /** Hands the page any message, whatever it is. */
  emitRaw(message: unknown): void

  /** Breaks the connection; the next attempts fail until `recover()`. */
  lose(): void
  recover(): void
}

type Answering = (attributes: Sent) => readonly (string | readonly [string, unknown])[]

/**
 * Makes a robot that answers as one on which everything works.
 *
 * @example
 * const fake = fakeRobot()
 * const robot = await fake.connect()
 * fake.answer('printer.print', 'printer.nopaper')
 */
export function fakeRobot(): FakeRobot {
  const answers = new Map<string, Answering>()
  const sent: { topic: string; attributes: Sent }[] = []
  const listeners = createListeners<[unknown]>()
  const losers = createListeners<[]>()
  const stops = new Map<(message: unknown) => void, () => void>()
  let isThere = true
  let count = 0

  function tell(topic: string, attributes: unknown): void {
    count += 1
    const id = `{00000000-0000-4000-8000-${String(count).padStart(12, '0')}}`
    listeners.call('', json(Object.assign({}, attributes, { id, type: topic })))
  }

  function respond(request: Told, returned?: (value: unknown) => void): void {
    const { topic, attributes } = request
    const given = answers.get(topic) || (working as { [topic: string]: Answering })[topic]
    const replies = (given ? given(attributes) : []).map((reply) =>
      typeof reply === 'string' ? ([reply, {}] as const) : reply,
    )
    const isDirect = ([name]: readonly [string, unknown]): boolean =>
      isAtOnce(topic, name as EventTopic, attributes)
    replies.filter(isDirect).forEach(([name, value]) => tell(name, value))
    returned?.(false)
    replies.filter((reply) => !isDirect(reply)).forEach(([name, value]) => tell(name, value))
  }

  const core = {
    message: {
      connect(callback: (message: unknown) => void) {
        stops.set(callback, listeners.add('', callback))
      },
      disconnect(callback: (message: unknown) => void) {
        stops.get(callback)?.()
      },
    },
    sendMessage(message: object, returned?: (value: unknown) => void) {
      // What the page does with the object afterwards does not travel.
      const told = read(json(message))
      if (!told) return
      sent.push(told)
      // As over the real channel, nothing comes before the page's script has gone on.
      Promise.resolve().then(() => isThere && respond(told, returned))
    },
    log_string() {},
    log_json() {},
  }

  const open: Opener = (lost) => {
    const stop = losers.add('', lost)
    return {
      ready: isThere ? Promise.resolve(core) : Promise.reject(new Error('the fake robot is lost')),
      close: stop,
    }
  }

  const fake = {
    open,
    sent,
    connect: () => connect({ open }),
    install(target: object = globalThis) {
      const page = target as { [name: string]: unknown }
      const before = { qt: page.qt, QWebChannel: page.QWebChannel }
      page.qt = { webChannelTransport: { send() {} } }
      page.QWebChannel = function QWebChannel(_: unknown, opened: (channel: object) => void) {
        Promise.resolve().then(() => opened({ objects: { _karvel_internal: core } }))
      }
      return () => {
        Object.assign(page, before)
      }
    },
    sentOf: (topic: string) =>
      sent.filter((message) => message.topic === topic).map((message) => message.attributes),
    answer(topic: string, ...replies: unknown[]) {
      const [first] = replies
      if (replies.length === 1 && first === undefined) answers.delete(topic)
      else if (typeof first === 'function') answers.set(topic, first as Answering)
      else answers.set(topic, () => replies as ReturnType<Answering>)
    },
    emit: tell,
    emitRaw: (message: unknown) => listeners.call('', message),
    lose() {
      isThere = false
      losers.call('')
    },
    recover() {
      isThere = true
    },
  }
  return fake as unknown as FakeRobot
}

function json(value: unknown): unknown {
  return JSON.parse(JSON.stringify(value)) as unknown
}
