import { connect, onUser, PanorelError, type Robot, sayToEnd } from 'panorel-client'

/** Greets whom the robot knows. */
export async function welcome(show: (words: string) => void): Promise<Robot | undefined> {
  try {
    const robot = await connect({ timeout: 5000 })
    onUser(robot, async (user) => {
      show(`Hello ${user.name}`)
      await sayToEnd(robot, `Hello ${user.name}`)
      show('What can I do for you?')
    })
    return robot
  } catch (error) {
    if (!(error instanceof PanorelError)) throw error
    show(error.message)
    return undefined
  }
}
