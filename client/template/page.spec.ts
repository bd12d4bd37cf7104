import { test as base, expect } from '@playwright/test'
import { type Simulator, startSimulator } from 'panorel-client/testing/simulator'

// Each test has a robot of its own, which lives twenty times as fast.
const test = base.extend<{ simulator: Simulator }>({
  simulator: async ({}, use) => {
    const simulator = await startSimulator({ page: 'dist', speed: 20 })
    await use(simulator)
    await simulator.stop()
  },
})

test.beforeEach(async ({ page, simulator }) => {
  await page.goto(simulator.url)
  await simulator.robot.waitForMessage('dialog.say')
})

test('greets who is known, until nobody is there', async ({ page, simulator }) => {
  await simulator.robot.enter({ name: 'Ada' })
  await expect(page.getByText('Hello Ada')).toBeVisible()
  await simulator.robot.leave()
  await expect(page.getByText('Welcome')).toBeVisible()
})

test("hands the visitor's answer to the robot", async ({ page, simulator: { robot } }) => {
  await robot.ask({ text: 'Tea or coffee?', answers: ['tea', 'coffee'] })
  await page.getByRole('button', { name: 'coffee' }).click()
  const answer = await robot.waitForMessage('dialog.question.answer')
  expect(answer.attributes).toEqual({ text: 'coffee' })
})

test('says why there is no badge', async ({ page, simulator: { robot } }) => {
  await robot.printer({ paper: 0 })
  await robot.enter({ name: 'Ada' })
  await page.getByRole('button', { name: 'Print my badge' }).click()
  await expect(page.getByText('I have no paper, sorry')).toBeVisible()
  await robot.waitForMessage('dialog.say', {
    where: ({ text }) => text === 'I have no paper, sorry',
  })
})

test('says when the robot is gone', async ({ page, simulator }) => {
  await simulator.stop()
  await expect(page.getByRole('status')).toHaveText('The robot cannot be reached.')
})
