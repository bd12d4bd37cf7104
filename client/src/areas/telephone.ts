import { PanorelError } from '../errors.js'
import type { EventTopics, RequestTopics } from '../topics.js'
import type { RequestOptions, Robot } from '../types.js'
import { patient } from './common.js'

/** How to place a call that waits in the queue. */
export interface QueuedCallOptions extends RequestOptions {
  /** How often to call again. Default 1. */
  recalls?: number
}

const NO_CALL = '{00000000-0000-0000-0000-000000000000}'

/**
 * Calls a number. Resolves when the call has started; how it goes comes with `onCall`. Rejects with
 * "not-started".
 *
 * @example
 * await call(robot, '100')
 */
export async function call(robot: Robot, number: string, options?: RequestOptions): Promise<void> {
  const answer = await robot.request(
    'sip.control',
    { call_start: { number } },
    patient(options, 10000),
  )
  if (answer.topic !== 'sip.call.response' || answer.attributes.result !== true) {
    throw new PanorelError('not-started', `${number} is not called`)
  }
}

/**
 * Queues a call that speaks a text. Resolves with the call's id, which `onCall` tells when the call
 * has ended. Rejects with "not-started".
 *
 * @example
 * const id = await callWithText(robot, '100', 'Your visitor is here', { recalls: 2 })
 */
export function callWithText(
  robot: Robot,
  number: string,
  text: string,
  options: QueuedCallOptions = {},
): Promise<string> {
  const { recalls: recall_count = 1 } = options
  return queue(robot, number, { play_text: { number, text, recall_count } }, options)
}

/**
 * Queues a call that plays a sound file of the robot. Otherwise as `callWithText`.
 *
 * @example
 * const id = await callWithFile(robot, '100', '/home/robot/visitor.wav')
 */
export function callWithFile(
  robot: Robot,
  number: string,
  file: string,
  options: QueuedCallOptions = {},
): Promise<string> {
  const { recalls: recall_count = 1 } = options
  return queue(robot, number, { play_file: { number, file, recall_count } }, options)
}

/**
 * Hangs up.
 *
 * @example
 * hangUp(robot)
 */
export function hangUp(robot: Robot): void {
  robot.send('sip.control', { call_stop: true })
}

/**
 * Drops the calls that wait in the queue.
 *
 * @example
 * clearCalls(robot)
 */
export function clearCalls(robot: Robot): void {
  robot.send('sip.control', { clear_queue: true })
}

/**
 * Calls back with how calls go: "hidden_call" when a queued one has ended, "public_call" with the
 * state of the one that `call` placed, "tone" when the other party pressed a key. Returns how to
 * stop that.
 *
 * @example
 * onCall(robot, (news) => {
 *   if (news.event === 'tone') console.log('key', news.tone)
 * })
 */
export function onCall(
  robot: Robot,
  callback: (news: EventTopics['sip.events']) => void,
): () => void {
  return robot.on('sip.events', callback)
}

async function queue(
  robot: Robot,
  number: string,
  order: RequestTopics['sip.control'],
  options: RequestOptions,
): Promise<string> {
  const answer = await robot.request('sip.control', order, patient(options, 10000))
  const uuid =
    answer.topic === 'sip.text.response' || answer.topic === 'sip.file.response'
      ? answer.attributes.uuid
      : NO_CALL
  if (!uuid || uuid === NO_CALL) {
    throw new PanorelError('not-started', `${number} will not be called`)
  }
  return uuid
}
