import type { RequestOptions, Robot } from '../types.js'
import { patient } from './common.js'

/**
 * Shows the robot's on-screen keyboard, in another locale if one is given.
 *
 * @example
 * showKeyboard(robot, 'de_DE')
 */
export function showKeyboard(robot: Robot, locale?: string): void {
  robot.send(
    'keyboard.control.request',
    locale ? { set_locale: locale, show: true } : { show: true },
  )
}

/**
 * Hides the keyboard.
 *
 * @example
 * hideKeyboard(robot)
 */
export function hideKeyboard(robot: Robot): void {
  robot.send('keyboard.control.request', { hide: true })
}

/**
 * Sets the keyboard's locale.
 *
 * @example
 * setKeyboardLocale(robot, 'en_GB')
 */
export function setKeyboardLocale(robot: Robot, locale: string): void {
  robot.send('keyboard.control.request', { set_locale: locale })
}

/**
 * The keyboard's locale, such as "en_GB"; nothing on a robot without a keyboard.
 *
 * @example
 * console.log(await keyboardLocale(robot))
 */
export async function keyboardLocale(
  robot: Robot,
  options?: RequestOptions,
): Promise<string | undefined> {
  const answer = await robot.request(
    'keyboard.control.request',
    { get_locale: true },
    patient(options, 10000),
  )
  return answer.topic === 'none' ? undefined : answer.attributes.locale
}

/**
 * Whether the keyboard shows; nothing on a robot without a keyboard.
 *
 * @example
 * if (await isKeyboardVisible(robot)) hideKeyboard(robot)
 */
export async function isKeyboardVisible(
  robot: Robot,
  options?: RequestOptions,
): Promise<boolean | undefined> {
  const answer = await robot.request(
    'keyboard.control.request',
    { is_visible: true },
    patient(options, 10000),
  )
  return answer.topic === 'none' ? undefined : answer.attributes.is_visible
}
