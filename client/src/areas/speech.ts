import type { EventTopics, GivenReplica, Replica, RequestTopics } from '../topics.js'
import type { RequestOptions, Robot } from '../types.js'
import { all, patient } from './common.js'

/** How the robot says something. */
export interface SayOptions {
  /** Values of macros in the text, by name: `{ hall: 'hall seven' }` for "%hall%". */
  macros?: { [name: string]: string }
  /** Whether the turn ends with it. Default true. */
  terminate?: boolean
}

/**
 * Lets the robot speak.
 *
 * @example
 * say(robot, 'Welcome to %hall%', { macros: { hall: 'hall seven' } })
 */
export function say(robot: Robot, text: string, options: SayOptions = {}): void {
  robot.send('dialog.say', spoken(text, options))
}

/**
 * Lets the robot speak, and resolves when it has spoken; several speak one after another. An empty
 * text resolves at once. Waits a minute unless told otherwise.
 *
 * @example
 * await sayToEnd(robot, 'Please follow me')
 * driveTo(robot, 3)
 */
export async function sayToEnd(
  robot: Robot,
  text: string,
  options: SayOptions & RequestOptions = {},
): Promise<void> {
  if (!text) return
  const { timeout, signal } = patient(options, 60000)
  // An end without a beginning is that of the line before.
  let hasBegun = false
  await robot.request('dialog.say', spoken(text, options), {
    timeout,
    signal,
    until(reply) {
      if (reply.topic === 'dialog.robot.replic.finish') return hasBegun
      hasBegun = true
      return false
    },
  })
}

/**
 * Lets the dialog engine choose a replica for a step of the application, and plays it.
 *
 * @example
 * playStep(robot, 'welcome', { category: 'guests' })
 */
export function playStep(
  robot: Robot,
  step: string,
  options: Omit<RequestTopics['dialog.replica.get'], 'step' | 'replica_type'> = {},
): void {
  robot.send('dialog.say', Object.assign({}, options, { step }))
}

/**
 * Plays a replica as it stands.
 *
 * @example
 * const replica = await getReplica(robot, { step: 'welcome' })
 * if (replica) playReplica(robot, replica)
 */
export function playReplica(robot: Robot, replica: GivenReplica): void {
  robot.send('dialog.say', { replica })
}

/**
 * Stops the robot's speech.
 *
 * @example
 * abortSpeech(robot)
 */
export function abortSpeech(robot: Robot): void {
  robot.send('dialog.robot.replic.abort')
}

/**
 * The replica that the dialog engine would say, which is not said; nothing when it has none.
 *
 * @example
 * const replica = await getReplica(robot, { step: 'welcome' })
 * console.log(replica ? replica.screen_text : 'nothing to say')
 */
export async function getReplica(
  robot: Robot,
  wanted: RequestTopics['dialog.replica.get'],
  options?: RequestOptions,
): Promise<Replica | undefined> {
  const answer = await robot.request('dialog.replica.get', wanted, patient(options, 10000))
  return answer.topic === 'none' ? undefined : answer.attributes.replica
}

/**
 * Switches the robot's language.
 *
 * @example
 * setLanguage(robot, 'de')
 */
export function setLanguage(robot: Robot, language: string): void {
  robot.send('system.language.set', { language })
}

/**
 * Calls back when the dialog engine asks the user something, and when it no longer asks. Returns
 * how to stop that.
 *
 * @example
 * onQuestion(robot, (question) => console.log(question.text, question.answers))
 * answerQuestion(robot, 'Yes')
 */
export function onQuestion(
  robot: Robot,
  asked: (question: EventTopics['dialog.question.new']) => void,
  cancelled: () => void = () => {},
): () => void {
  return all(
    robot.on('dialog.question.new', asked),
    robot.on('dialog.question.cancel', () => cancelled()),
  )
}

/**
 * The user's answer to a question.
 *
 * @example
 * answerQuestion(robot, 'Yes')
 */
export function answerQuestion(robot: Robot, text: string): void {
  robot.send('dialog.question.answer', { text })
}

function spoken(text: string, options: SayOptions): RequestTopics['dialog.say'] {
  const attributes: RequestTopics['dialog.say'] = { text }
  if (options.macros) attributes.macroses = options.macros
  if (options.terminate !== undefined) attributes.terminate = options.terminate
  return attributes
}
