import type { EventTopics, ReplyTopics, RequestTopics } from './topics.js'

/** A topic that the page can send. */
export type RequestTopic = keyof RequestTopics
/** A topic that the page is told. */
export type EventTopic = keyof EventTopics
/** A topic that may be answered. */
export type AnsweredTopic = keyof ReplyTopics

/** One of the given topics with its attributes; `topic` tells which. */
export type EventOf<E extends EventTopic> = {
  [T in E]: { readonly topic: T; readonly attributes: EventTopics[T] }
}[E]

type Now<T extends AnsweredTopic> = ReplyTopics[T]['now']
type Later<T extends AnsweredTopic> = ReplyTopics[T]['later']
type Interim<T extends AnsweredTopic> = ReplyTopics[T]['interim']

/** Whatever may come of a request. */
export type Reply<T extends AnsweredTopic> = EventOf<Now<T> | Later<T>>

/** What a request resolves with unless `until` says otherwise: the robot's direct answer or, where
 *  there is none by its nature, the first that comes of it; never one that another must follow. */
export type FirstReply<T extends AnsweredTopic> = EventOf<
  Exclude<[Now<T>] extends [never] ? Later<T> : Now<T>, Interim<T>>
>

/** The robot has dealt with the request and does not answer. */
export interface None {
  readonly topic: 'none'
  readonly attributes: { readonly [name: string]: never }
}

/** An answer, or none, and all that came on the way, in order, the answer included. */
export type Result<T extends AnsweredTopic, A = FirstReply<T> | None> = A & {
  readonly replies: readonly Reply<T>[]
}

/** How long a page waits. */
export interface RequestOptions {
  /** Milliseconds from sending on; `Infinity` waits for ever. Default 10000. */
  timeout?: number | undefined
  /** Gives up. What was sent is not taken back. */
  signal?: AbortSignal | undefined
}

/** Waits for more than the first answer. */
export interface UntilOptions<T extends AnsweredTopic> extends RequestOptions {
  /**
   * Called with every reply, those that come later included. `true` ends the request with this
   * reply, a number ends it so many milliseconds later, unless another reply ends it before.
   */
  until(reply: Reply<T>): boolean | number
}

// Attributes may be left out where all of them may.
type Arguments<A, Options> = {} extends A
  ? [attributes?: A, options?: Options]
  : [attributes: A, options?: Options]

/** "connected"; "reconnecting" after the connection broke; "closed" after `close()`, or when the
 *  robot's server refuses this page. */
export type RobotState = 'connected' | 'reconnecting' | 'closed'

/** The robot behind the page. */
export interface Robot {
  readonly state: RobotState

  /** Calls back whenever the state changes. Returns how to stop that. */
  onState(callback: (state: RobotState) => void): () => void

  /**
   * Sends a message. What comes of it is told by messages of the robot. Throws a PanorelError of kind
   * "mistake" for a topic or an attribute that is not in the contract. While there is no
   * connection it is dropped, with a warning on the console: what was meant for a moment ago must
   * not happen later.
   */
  send<T extends RequestTopic>(
    topic: T,
    ...attributes: {} extends RequestTopics[T]
      ? [attributes?: RequestTopics[T]]
      : [attributes: RequestTopics[T]]
  ): void

  /** Calls back with the attributes of every such message. Returns how to stop that. */
  on<T extends EventTopic>(topic: T, callback: (attributes: EventTopics[T]) => void): () => void

  /** Calls back with every message, those of topics unknown here included. Good for logging. */
  onAny(callback: (topic: string, attributes: { [name: string]: unknown }) => void): () => void

  /**
   * Sends a message and resolves with the robot's answer: with the first reply where the robot
   * answers before it has done with the request, with topic "none" when it then has not answered,
   * and otherwise with the first reply that comes later. A reply that another must follow, such as
   * "printer.paper.low", does not count. Replies do not say which request they mean, so requests
   * with a common reply wait for each other. Rejects with a PanorelError.
   */
  request<T extends AnsweredTopic>(
    topic: T,
    ...rest: Arguments<RequestTopics[T], RequestOptions & { until?: undefined }>
  ): Promise<Result<T>>
  request<T extends AnsweredTopic>(
    topic: T,
    attributes: RequestTopics[T],
    options: UntilOptions<T>,
  ): Promise<Result<T, Reply<T>>>

  /** Ends the connection, for good. */
  close(): void
}
