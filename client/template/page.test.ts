import { fakeRobot } from 'panorel-client/testing'
import { expect, it } from 'vitest'
import { printBadge, runPage, type Screen } from './page.js'

/** A screen that remembers. */
class TestScreen implements Screen {
  words = ''
  answers: readonly string[] = []
  choose: (answer: string) => void = () => {}
  badgeName = ''
  isConnected = true

  show(words: string): void {
    this.words = words
  }
  offer(answers: readonly string[], chosen: (answer: string) => void): void {
    this.answers = answers
    this.choose = chosen
  }
  offerBadge(name: string): void {
    this.badgeName = name
  }
  setConnected(isConnected: boolean): void {
    this.isConnected = isConnected
  }
}

async function running() {
  const fake = fakeRobot()
  const robot = await fake.connect()
  const screen = new TestScreen()
  runPage(robot, screen)
  return { fake, robot, screen }
}

const ada = {
  user_id: 7,
  name: 'Ada',
  age: 36,
  gender: 0,
  extra_data: null,
  acquaintance_date: '',
  last_visit: '',
}

it('greets who is known, until nobody is there', async () => {
  const { fake, screen } = await running()
  fake.emit('user.has.user', ada)
  expect([screen.words, screen.badgeName]).toEqual(['Hello Ada', 'Ada'])
  fake.emit('user.lost.user')
  expect([screen.words, screen.badgeName]).toEqual(['Welcome', ''])
})

it("hands the visitor's answer to the robot", async () => {
  const { fake, screen } = await running()
  fake.emit('dialog.question.new', { text: 'Tea?', answers: ['yes', 'no'] })
  expect([screen.words, screen.answers]).toEqual(['Tea?', ['yes', 'no']])
  screen.choose('no')
  expect(fake.sentOf('dialog.question.answer')).toEqual([{ text: 'no' }])
  expect(screen.answers).toEqual([])
})

it('takes back a question that the robot withdraws', async () => {
  const { fake, screen } = await running()
  fake.emit('dialog.question.new', { text: 'Tea?', answers: ['yes', 'no'] })
  fake.emit('dialog.question.cancel')
  expect([screen.words, screen.answers]).toEqual(['Welcome', []])
})

it('tells whether the badge is printed', async () => {
  const { fake, robot } = await running()
  expect(await printBadge(robot, 'picture')).toBe('Here is your badge')
  fake.answer('printer.print', 'printer.nopaper')
  expect(await printBadge(robot, 'picture')).toBe('I have no paper, sorry')
  fake.answer('printer.print', 'printer.noprinter')
  expect(await printBadge(robot, 'picture')).toBe('I cannot print now, sorry')
})

it('says when the robot is lost', async () => {
  const { fake, screen } = await running()
  fake.lose()
  expect(screen.isConnected).toBe(false)
})
