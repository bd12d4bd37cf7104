import {
  answerQuestion,
  onQuestion,
  onUser,
  PanorelError,
  print,
  type Robot,
  say,
  setLanguage,
} from 'panorel-client'

/** What the page can show; main.ts does it with the page's elements, a test with whatever it likes. */
export interface Screen {
  show(words: string): void
  /** Buttons to choose one from; none takes them away. */
  offer(answers: readonly string[], chosen: (answer: string) => void): void
  /** The badge's button: shown with a name to print, hidden without. */
  offerBadge(name: string): void
  setConnected(isConnected: boolean): void
}

/** Lets the page greet visitors and put the robot's questions to them. */
export function runPage(robot: Robot, screen: Screen): void {
  robot.onState((state) => screen.setConnected(state === 'connected'))
  onUser(
    robot,
    ({ name }) => {
      screen.show(`Hello ${name}`)
      screen.offerBadge(name)
    },
    () => {
      screen.show('Welcome')
      screen.offerBadge('')
    },
  )
  const withdraw = () => {
    screen.show('Welcome')
    screen.offer([], () => {})
  }
  onQuestion(
    robot,
    ({ text, answers }) => {
      screen.show(text)
      screen.offer(answers, (answer) => {
        answerQuestion(robot, answer)
        withdraw()
      })
    },
    withdraw,
  )
  setLanguage(robot, 'en')
  say(robot, 'Welcome')
}

/** Prints a badge; resolves with what to tell the visitor. */
export async function printBadge(robot: Robot, picture: string): Promise<string> {
  try {
    await print(robot, picture)
    return 'Here is your badge'
  } catch (error) {
    if (!(error instanceof PanorelError)) throw error
    return error.kind === 'no-paper' ? 'I have no paper, sorry' : 'I cannot print now, sorry'
  }
}
