import { PanorelError } from '../errors.js'
import { isRecord } from '../messages.js'
import type { EventTopics, Person, RequestTopics } from '../topics.js'
import type { RequestOptions, Robot } from '../types.js'
import { all, patient } from './common.js'

type UserRequest = RequestTopics['database.user.request']
type UserResponse = EventTopics['database.user.response']['response']

/**
 * The person with this id; nothing when the robot does not know one.
 *
 * @example
 * const person = await getUser(robot, 7)
 * console.log(person ? person.name : 'nobody')
 */
export async function getUser(
  robot: Robot,
  id: number,
  options?: RequestOptions,
): Promise<Person | undefined> {
  return (await ask(robot, { get_user: id }, options)).get_user || undefined
}

/**
 * Adds a person. Resolves with whether that was done.
 *
 * @example
 * if (!(await addUser(robot, { id: 7, name: 'Ann' }))) console.warn('Ann was not added')
 */
export async function addUser(
  robot: Robot,
  person: NonNullable<UserRequest['add_user']>,
  options?: RequestOptions,
): Promise<boolean> {
  return (await ask(robot, { add_user: person }, options)).add_user === true
}

/**
 * Deletes a person. Resolves with whether that was done.
 *
 * @example
 * await deleteUser(robot, 7)
 */
export async function deleteUser(
  robot: Robot,
  id: number,
  options?: RequestOptions,
): Promise<boolean> {
  return (await ask(robot, { del_user: id }, options)).del_user === true
}

/**
 * Calls back when somebody comes whom the robot knows, and when nobody is there any more. Returns
 * how to stop that.
 *
 * @example
 * onUser(robot, (user) => say(robot, `Hello ${user.name}`), () => abortSpeech(robot))
 */
export function onUser(
  robot: Robot,
  came: (user: EventTopics['user.has.user']) => void,
  left: () => void = () => {},
): () => void {
  return all(
    robot.on('user.has.user', came),
    robot.on('user.lost.user', () => left()),
  )
}

async function ask(
  robot: Robot,
  request: UserRequest,
  options?: RequestOptions,
): Promise<UserResponse> {
  const answer = await robot.request('database.user.request', request, patient(options, 10000))
  if (answer.topic === 'none' || !isRecord(answer.attributes.response)) {
    throw new PanorelError('no-answer', 'the robot says nothing of this person')
  }
  return answer.attributes.response
}
