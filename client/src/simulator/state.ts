import type { EventTopics, RequestTopics } from '../topics.js'
import type { EventTopic, RequestTopic } from '../types.js'

/** What the robot does and what its devices hold. Numbers are the robot platform's. */
export interface SimulatedState {
  /** The page's language, such as "en". */
  language: string
  /** What the robot is saying; "" when it is silent. */
  saying: string
  /** The question that waits for its answer; "" when there is none. */
  question: string
  /** Whether an interaction runs. */
  interaction: boolean
  /** How many people stand before the camera. */
  people: number
  /** The script that runs; "" when none does. */
  script: string
  drive: {
    /** 0 manual, 1 automatic, 2 follow, 3 disabled. */
    mode: number
    status: number
    charger: number
    point: number
  }
  operator: { called: boolean; control: boolean }
  telephone: {
    /** 0 idle, 1 calling, 2 ringing, 3 connected, 4 busy, 5 failed, 6 ended. */
    state: number
    number: string
  }
  /** The mails that were taken. */
  mails: { to: string; subject: string; body: string; files: string[] }[]
  // Null is a device that the robot does not have.
  printer: {
    connected: boolean
    /** 0 idle, 1 in process, 2 error, 3 not connected. */
    state: number
    /** Sheets in its tray. */
    paper: number
    printed: number
  } | null
  dispenser: { connected: boolean; status: number; cards: number } | null
  passport_scanner: SimulatedScannerState | null
  document_scanner: SimulatedScannerState | null
  keyboard: { visible: boolean; locale: string } | null
}

export interface SimulatedScannerState {
  connected: boolean
  state: number
  /** Whether a document lies on it. */
  present: boolean
}

/** The attributes of a topic, whoever sends it. */
export type AttributesOf<T extends RequestTopic | EventTopic> = T extends RequestTopic
  ? RequestTopics[T]
  : T extends EventTopic
    ? EventTopics[T]
    : never

/** A message that went over the robot's bus. */
export interface RecordedMessage<T extends string = string, A = { [name: string]: unknown }> {
  /** Counts from 0 on. */
  readonly number: number
  readonly direction: 'from page' | 'to page' | 'inside'
  readonly topic: T
  /** Left out of very long messages. */
  readonly attributes?: A
  /** Whether the attributes were left out. */
  readonly cut?: true
}

/** Messages, and the number to go on with. */
export interface RecordedMessages {
  readonly next: number
  readonly messages: readonly RecordedMessage[]
}
