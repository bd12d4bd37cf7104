import { PanorelError } from '../errors.js'
import { isRecord } from '../messages.js'
import type { RequestOptions, Robot } from '../types.js'
import { patient } from './common.js'

/** How loud the robot is and how sensitive its microphone, in the mixer's scale. */
export interface Volumes {
  volume: number
  mic: number
}

/** How to play. */
export interface PlayOptions extends RequestOptions {
  /** 0 to 100 percent. Default 60. */
  volume?: number
}

// The player may stop before it says that it reached the end or failed.
const STOP_TIME = 250

/**
 * The volumes of loudspeaker and microphone.
 *
 * @example
 * const { volume } = await volumes(robot)
 * setVolume(robot, volume + 5)
 */
export async function volumes(robot: Robot, options?: RequestOptions): Promise<Volumes> {
  const answer = await robot.request(
    'system.sound.properties',
    { get_volume: true, get_mic: true },
    patient(options, 10000),
  )
  if (answer.topic === 'none' || !isRecord(answer.attributes.sound)) {
    throw new PanorelError('no-answer', 'the robot does not tell its volumes')
  }
  const { volume = 0, mic = 0 } = answer.attributes.sound
  return { volume, mic }
}

/**
 * Sets the loudspeaker's volume, in the mixer's scale.
 *
 * @example
 * setVolume(robot, 30)
 */
export function setVolume(robot: Robot, volume: number): void {
  robot.send('system.sound.properties', { set_volume: volume })
}

/**
 * Sets the microphone's level, in the mixer's scale.
 *
 * @example
 * setMicrophone(robot, 80)
 */
export function setMicrophone(robot: Robot, level: number): void {
  robot.send('system.sound.properties', { set_mic: level })
}

/**
 * Plays a sound on the robot. What one page plays comes one after another; `stopPlaying` cuts short
 * what is playing. Resolves with "end" when it has ended or with "stopped" when something stopped it;
 * rejects with "failed". Waits ten minutes unless told otherwise: a robot that builds its handlers
 * anew stops without a word.
 *
 * @example
 * await play(robot, 'file:///home/robot/chime.wav', { volume: 40 })
 */
export async function play(
  robot: Robot,
  url: string,
  options: PlayOptions = {},
): Promise<'end' | 'stopped'> {
  if (!url) throw new PanorelError('not-started', 'there is nothing to play')
  const { timeout, signal } = patient(options, 600000)
  // What stops before this plays is what was playing.
  let isPlaying = false
  const answer = await robot.request(
    'system.play.external',
    options.volume === undefined ? { url } : { url, volume: options.volume },
    {
      timeout,
      signal,
      until({ attributes }) {
        if (attributes.status === 'PlayingState') isPlaying = true
        if (attributes.status === 'error') return true
        if (attributes.status === 'EndOfMedia') return isPlaying
        return attributes.status === 'StoppedState' && isPlaying ? STOP_TIME : false
      },
    },
  )
  const { status, error, error_description } = answer.attributes
  if (status === 'error') {
    throw new PanorelError('failed', `${url} does not play`, error, error_description)
  }
  return status === 'EndOfMedia' ? 'end' : 'stopped'
}

/**
 * Stops what is playing.
 *
 * @example
 * stopPlaying(robot)
 */
export function stopPlaying(robot: Robot): void {
  robot.send('system.play.external', { stop: true })
}

/**
 * Records from the robot's microphone. Resolves with the file's path on the robot when the time is
 * over or `stopRecording` was called. The file is complete a moment later.
 *
 * @example
 * const file = await record(robot, 5)
 * setTimeout(() => sendMail(robot, { email: 'ann@example.com', filename: file }), 2000)
 */
export async function record(
  robot: Robot,
  seconds = 20,
  options?: RequestOptions,
): Promise<string> {
  const answer = await robot.request(
    'record.audio.request',
    { start: true, timeout: seconds },
    patient(options, (seconds + 10) * 1000),
  )
  if (answer.topic === 'none') throw new PanorelError('no-answer', 'the robot does not record')
  return answer.attributes.file
}

/**
 * Ends the recording now; `record` resolves.
 *
 * @example
 * record(robot, 60).then((file) => console.log(file))
 * addEventListener('click', () => stopRecording(robot))
 */
export function stopRecording(robot: Robot): void {
  robot.send('record.audio.request', { stop: true })
}
