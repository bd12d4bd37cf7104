import { fakeRobot } from 'panorel-client/testing'
import { expect, it } from 'vitest'
import { printBadge } from './badge.js'

it('prints a badge and says so', async () => {
  const fake = fakeRobot()
  const robot = await fake.connect()
  expect(await printBadge(robot, 'iVBORw0KGgo')).toBe('Printed.')
  expect(fake.sentOf('dialog.say')).toEqual([{ text: 'Here is your badge' }])
})

it('tells what went wrong', async () => {
  const fake = fakeRobot()
  const robot = await fake.connect()
  fake.answer('printer.print', 'printer.paper.low', 'printer.nopaper')
  expect(await printBadge(robot, 'iVBORw0KGgo')).toBe('There is no paper.')

  fake.answer('printer.print', 'printer.error')
  fake.answer('printer.state', () => [
    ['printer.state.info', { state: 'ERROR', error_code: 7, error_message: 'jam' }],
  ])
  expect(await printBadge(robot, 'iVBORw0KGgo')).toBe('Not printed: jam')
})
