import { PanorelError, print, type Robot, say } from 'panorel-client'

/** Prints a badge; resolves with what to show. */
export async function printBadge(robot: Robot, picture: string): Promise<string> {
  try {
    const { isPaperLow } = await print(robot, picture)
    say(robot, 'Here is your badge')
    return isPaperLow ? 'Printed. Paper is low.' : 'Printed.'
  } catch (error) {
    if (!(error instanceof PanorelError)) throw error
    switch (error.kind) {
      case 'no-paper':
        return 'There is no paper.'
      case 'missing-device':
      case 'not-connected':
        return 'This robot cannot print.'
      default:
        return `Not printed: ${error.said || error.message}`
    }
  }
}
