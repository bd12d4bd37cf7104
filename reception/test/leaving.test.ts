import type { Robot } from 'panorel-client'
import { fakeRobot } from 'panorel-client/testing'
import { expect, it, onTestFinished, vi } from 'vitest'
import { defaults, services } from '../src/config.js'
import { start } from '../src/start.js'
import { openPage } from './support/page.js'

/** A robot that counts who listens to it. */
function counted(robot: Robot): { robot: Robot; count(): number } {
  let count = 0
  const listen =
    <A extends unknown[]>(add: (...args: A) => () => void) =>
    (...args: A): (() => void) => {
      const stop = add(...args)
      let isOn = true
      count += 1
      return () => {
        if (isOn) count -= 1
        isOn = false
        stop()
      }
    }
  const wrapped = Object.create(robot) as Robot
  Object.defineProperties(wrapped, {
    on: { value: listen(robot.on.bind(robot) as never) },
    onAny: { value: listen(robot.onAny.bind(robot) as never) },
    onState: { value: listen(robot.onState.bind(robot)) },
  })
  return { robot: wrapped, count: () => count }
}

/** What is listened to in the page, by the target's class or name. */
function watchTargets(): () => number {
  let count = 0
  // The prototype that really has them: an engine may have more than one of this name.
  let proto = Object.getPrototypeOf(document.createElement('div')) as EventTarget
  while (!Object.hasOwn(proto, 'addEventListener')) proto = Object.getPrototypeOf(proto)
  const { addEventListener: add, removeEventListener: remove } = proto
  const known = new Map<unknown, Map<string, Set<unknown>>>()
  vi.spyOn(proto, 'addEventListener').mockImplementation(function (
    this: EventTarget,
    type,
    callback,
    options,
  ) {
    const types = known.get(this) || new Map<string, Set<unknown>>()
    known.set(this, types)
    types.set(type, (types.get(type) || new Set()).add(callback))
    count += 1
    add.call(this, type, callback, options)
  })
  vi.spyOn(proto, 'removeEventListener').mockImplementation(function (
    this: EventTarget,
    type,
    callback,
    options,
  ) {
    if (known.get(this)?.get(type)?.delete(callback)) count -= 1
    remove.call(this, type, callback, options)
  })
  return () => count
}

const all = [...services, 'operator'] as const

const press = async (action: string): Promise<void> => {
  document.querySelector<HTMLElement>(`[data-action="${action}"]`)?.click()
  await vi.advanceTimersByTimeAsync(0)
}

it('leaves no listener and no timer behind on any screen', async () => {
  const targets = watchTargets()
  const fake = fakeRobot()
  fake.answer('scanner.passport.request', ['scanner.passport.response', { success: true }])
  fake.answer('dispenser.dispense', 'dispenser.card.dispensing')
  fake.answer('operator.call.request')
  fake.answer('system.drive.control')
  const { robot, count } = counted(await fake.connect())
  const now = () => ({ targets: targets(), robot: count(), timers: vi.getTimerCount() })
  const before = now()
  const page = start(document.body, defaults, async () => robot)
  onTestFinished(page.close)
  await vi.advanceTimersByTimeAsync(0)
  const resting = now()
  expect(resting.targets).toBeGreaterThan(before.targets)
  expect(resting.robot).toBeGreaterThan(before.robot)

  for (const screen of all) {
    await press('wake')
    await press('start')
    await press(`open-${screen}`)
    expect(document.querySelector(`[data-screen="${screen}"]`)).toBeTruthy()
    // Begin whatever the screen begins.
    document.querySelector<HTMLElement>('.body [data-action]:not([data-action^="open-"])')?.click()
    await vi.advanceTimersByTimeAsync(100)
    expect(now().targets, screen).toBeGreaterThan(resting.targets)
    await press('language')
    fake.emit('dialog.question.new', { text: 'Tea?', answers: ['Yes', 'No'] })
    fake.emit('user.lost.user')
    await vi.advanceTimersByTimeAsync(300000)
    await press('finish')
    await vi.advanceTimersByTimeAsync(12000)
    expect(document.querySelector('[data-screen="attract"]'), screen).toBeTruthy()
    fake.emit('system.drive.status', { status: 3 })
    await vi.advanceTimersByTimeAsync(10000)
    expect(now(), screen).toEqual(resting)
  }

  page.close()
  expect(now()).toEqual(before)
})

it('shows nothing any more on a screen that was left', async () => {
  const page = await openPage({ config: { idleSeconds: 3600 } })
  await page.open('talk')
  const talk = page.one('[data-screen="talk"]')
  await page.press('home')
  await page.press('open-card')
  const card = page.one('[data-screen="card"]')
  await page.press('home')
  const left = [talk.innerHTML, card.innerHTML]
  await page.press('open-card')
  await page.press('dispense')
  page.fake.emit('dialog.robot.replic.start', { text: 'Hello' })
  expect([talk.innerHTML, card.innerHTML]).toEqual(left)
})
