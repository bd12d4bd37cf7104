import { PanorelError } from '../errors.js'
import { isRecord, members } from '../messages.js'
import type { EventTopics, Setting } from '../topics.js'
import type { RequestOptions, Robot } from '../types.js'
import { patient } from './common.js'

/** Which robot this is. */
export type Environment = EventTopics['system.environment.load']['environment']

/**
 * The settings of a group; none when there is no such group.
 *
 * @example
 * for (const setting of await getSettings(robot, 'system', 'sound')) {
 *   console.log(setting.name, setting.value)
 * }
 */
export async function getSettings(
  robot: Robot,
  type: Setting['settings_type'],
  group: string,
  options?: RequestOptions,
): Promise<Setting[]> {
  return load(robot, type, group, '', options)
}

/**
 * The value of one setting; undefined when there is none.
 *
 * @example
 * const volume = await getSetting(robot, 'system', 'sound', 'volume')
 */
export async function getSetting(
  robot: Robot,
  type: Setting['settings_type'],
  group: string,
  name: string,
  options?: RequestOptions,
): Promise<unknown> {
  const found = (await load(robot, type, group, name, options)).filter((one) => one.name === name)
  return found[0]?.value
}

/**
 * Which robot this is. Its `id` comes without the line break that the robot sends.
 *
 * @example
 * const { name, id } = await environment(robot)
 * console.log(`This is ${name} on ${id}`)
 */
export async function environment(robot: Robot, options?: RequestOptions): Promise<Environment> {
  const answer = await robot.request('system.environment.get', {}, patient(options, 10000))
  if (answer.topic === 'none' || !isRecord(answer.attributes.environment)) {
    throw new PanorelError('no-answer', 'the robot does not say which one it is')
  }
  const found = answer.attributes.environment
  return Object.assign({}, found, { id: String(found.id).trim() })
}

async function load(
  robot: Robot,
  type: Setting['settings_type'],
  group: string,
  name: string,
  options?: RequestOptions,
): Promise<Setting[]> {
  const answer = await robot.request(
    'system.settings.get',
    { settings_type: type, group, name },
    patient(options, 10000),
  )
  return answer.topic === 'none' ? [] : members(answer.attributes.settings)
}
