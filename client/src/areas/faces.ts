import { members } from '../messages.js'
import type { Face, Match } from '../topics.js'
import type { RequestOptions, Robot } from '../types.js'
import { patient } from './common.js'

/** A face that the robot sees, with its matches as a list. */
export type SeenFace = Omit<Face, 'matches'> & { matches: Match[] }

/**
 * Calls back with the faces that the robot sees, up to 25 times a second. Returns how to stop that.
 *
 * @example
 * onFaces(robot, (faces) => console.log(faces.map((face) => face.emotion).join()))
 */
export function onFaces(robot: Robot, callback: (faces: SeenFace[]) => void): () => void {
  return robot.on('face.recognize.info', ({ info }) => {
    callback(
      members(info).map((face) => Object.assign({}, face, { matches: members(face.matches) })),
    )
  })
}

/**
 * Lets the robot look at one face.
 *
 * @example
 * onFaces(robot, (faces) => faces.slice(0, 1).forEach((face) => trackFace(robot, face.id_track)))
 */
export function trackFace(robot: Robot, idTrack: number): void {
  robot.send('face.recognize.control', { tracking_face: idTrack })
}

/**
 * Lets the robot choose at whom it looks, or not.
 *
 * @example
 * trackAutomatically(robot, true)
 */
export function trackAutomatically(robot: Robot, isOn: boolean): void {
  robot.send('face.recognize.control', { tracking_auto: isOn })
}

/**
 * Lets the robot move its head, or not.
 *
 * @example
 * moveHead(robot, false)
 */
export function moveHead(robot: Robot, isOn: boolean): void {
  robot.send('face.recognize.control', { head_enabled: isOn })
}

/**
 * Learns the face with this id. The steps of the training come as "face.add.status".
 *
 * @example
 * robot.on('face.add.status', (training) => console.log('step', training.status))
 * learnFace(robot, 7)
 */
export function learnFace(robot: Robot, id: number): void {
  robot.send('face.recognize.control', { add_face: id })
}

/**
 * Forgets the face with this id.
 *
 * @example
 * forgetFace(robot, 7)
 */
export function forgetFace(robot: Robot, id: number): void {
  robot.send('face.recognize.control', { del_face: id })
}

/**
 * A touch on the camera's picture, in pixels of the page. The robot looks at the faces there;
 * resolves with their ids, 0 for a face that nobody knows.
 *
 * @example
 * addEventListener('click', async (event) => {
 *   console.log(await touch(robot, event.clientX, event.clientY))
 * })
 */
export async function touch(
  robot: Robot,
  x: number,
  y: number,
  options?: RequestOptions,
): Promise<number[]> {
  const answer = await robot.request('system.general.touch', { x, y }, patient(options, 10000))
  return answer.replies.map((reply) => reply.attributes.setted_id)
}
