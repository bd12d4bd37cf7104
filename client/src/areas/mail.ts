import { PanorelError } from '../errors.js'
import type { RequestTopics } from '../topics.js'
import type { RequestOptions, Robot } from '../types.js'
import { patient } from './common.js'

/**
 * Sends a mail from the robot's account; one at a time, since answers do not say which mail they
 * mean. Resolves when it is sent. Rejects with "failed", with the server's code and words. Waits two
 * minutes unless told otherwise.
 *
 * @example
 * await sendMail(robot, { email: 'ann@example.com', subject: 'Visitor', body: 'A visitor is here.' })
 */
export async function sendMail(
  robot: Robot,
  mail: RequestTopics['mail.sender.request'],
  options?: RequestOptions,
): Promise<void> {
  const answer = await robot.request('mail.sender.request', mail, patient(options, 120000))
  if (answer.topic === 'none' || answer.attributes.status !== 'success') {
    const { code, text } = answer.attributes
    throw new PanorelError('failed', 'the mail is not sent', code, text)
  }
}
