import { expect, it } from 'vitest'
import { openPage, type Page } from './support/page.js'

const person = (user_id: number, name: string) => ({
  user_id,
  name,
  age: 34,
  gender: 1,
  extra_data: null,
  acquaintance_date: '2026-05-04T10:15:00',
  last_visit: '2026-05-05T09:00:00',
})

const asked = (page: Page): unknown[] =>
  page.fake.sentOf('system.interaction.control').map(({ state }) => state)

const told = (page: Page, isOn: boolean): void =>
  page.fake.emit(
    'system.interaction.state',
    isOn ? { state: 'Interaction', Reason: 4 } : { state: 'NonInteraction' },
  )

async function openQuiet(): Promise<Page> {
  const page = await openPage({ config: { idleSeconds: 3600, greetingSeconds: 3600 } })
  page.fake.answer('system.interaction.control')
  return page
}

it("is not begun and ended for ever by a robot's answers that come late", async () => {
  const page = await openQuiet()
  page.fake.emit('user.has.user', person(1, 'Ada'))
  told(page, true)
  await page.press('start')
  page.fake.emit('user.has.user', person(2, 'Grace'))
  expect(asked(page)).toEqual(['Start', 'Stop', 'Start'])
  told(page, false)
  told(page, true)
  expect(asked(page)).toEqual(['Start', 'Stop', 'Start'])
  expect(page.screen()).toBe('greeting')
  expect(page.title()).toContain('Grace')
})

it('does not wake the page whose visitor has just finished', async () => {
  const page = await openQuiet()
  await page.open('talk')
  page.fake.emit('user.lost.user')
  await page.pass(1000)
  await page.press('finish')
  told(page, true)
  told(page, false)
  expect(page.screen()).toBe('attract')
  expect(asked(page)).toEqual(['Start', 'Stop'])
})

it('is begun and ended by the robot, too', async () => {
  const page = await openQuiet()
  told(page, true)
  expect(page.screen()).toBe('greeting')
  told(page, false)
  expect(page.screen()).toBe('attract')
  // Its answers that never came hide nothing later.
  told(page, true)
  expect(page.screen()).toBe('greeting')
  told(page, false)
  expect(page.screen()).toBe('attract')
})

it('is asked for by a page that does not know that it goes on', async () => {
  const page = await openQuiet()
  await page.press('wake')
  // It went on before the page was there, so there was no answer.
  told(page, false)
  expect(page.screen()).toBe('attract')
})
