import { fakeRobot } from 'panorel-client/testing'
import { expect, it, onTestFinished, vi } from 'vitest'
import { defaults } from '../src/config.js'
import { RETRY_TIME, start } from '../src/start.js'
import { texts } from '../src/texts/index.js'

const screen = (): string | undefined =>
  document.querySelector<HTMLElement>('[data-screen]')?.dataset.screen

it('says kindly that there is no robot, and finds it later', async () => {
  const fake = fakeRobot()
  const find = vi.fn(() => Promise.reject(new Error('nobody')) as ReturnType<typeof fake.connect>)
  const page = start(document.body, defaults, find)
  onTestFinished(page.close)
  await vi.advanceTimersByTimeAsync(0)
  expect(screen()).toBe('offline')
  // Nobody knows yet which language the visitor speaks.
  for (const language of ['en', 'es', 'zh', 'ar'] as const) {
    expect(document.body.textContent).toContain(texts[language]['offline.title'])
  }
  await vi.advanceTimersByTimeAsync(RETRY_TIME)
  expect(find).toHaveBeenCalledTimes(2)
  document.querySelector<HTMLElement>('[data-action="retry"]')?.click()
  expect(find).toHaveBeenCalledTimes(3)
  await vi.advanceTimersByTimeAsync(0)
  find.mockImplementation(fake.connect)
  await vi.advanceTimersByTimeAsync(RETRY_TIME)
  expect(screen()).toBe('attract')
  await vi.advanceTimersByTimeAsync(RETRY_TIME * 3)
  expect(find).toHaveBeenCalledTimes(4)
})

it('begins anew when the robot is gone for good', async () => {
  const fake = fakeRobot()
  const robot = await fake.connect()
  let isThere = true
  const page = start(document.body, defaults, async () => {
    if (!isThere) throw new Error('gone')
    return robot
  })
  onTestFinished(page.close)
  await vi.advanceTimersByTimeAsync(0)
  expect(screen()).toBe('attract')
  isThere = false
  robot.close()
  await vi.advanceTimersByTimeAsync(0)
  expect(screen()).toBe('offline')
})

it('finds the robot that shows the page by itself', async () => {
  const fake = fakeRobot()
  onTestFinished(fake.install())
  vi.stubGlobal('reception', { company: 'Somewhere' })
  await import('../src/main.js')
  await vi.advanceTimersByTimeAsync(10)
  expect(screen()).toBe('attract')
  expect(document.body.textContent).toContain('Welcome to Somewhere')
})
