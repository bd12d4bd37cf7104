import { describe, expect, it } from 'vitest'
import { Drive } from '../src/platform.js'
import { openPage, type Page } from './support/page.js'

const user = {
  user_id: 7,
  name: 'Ann',
  age: 34,
  gender: 1,
  extra_data: null,
  acquaintance_date: '2026-05-04T10:15:00',
  last_visit: '2026-05-05T09:00:00',
}

async function enterName(page: Page): Promise<void> {
  await page.open('badge')
  page.type('name', 'Secret Visitor')
  await page.press('preview')
}

async function expectForgotten(page: Page): Promise<void> {
  expect(page.screen()).toBe('attract')
  expect(page.text()).not.toContain('Secret')
  await page.open('badge')
  expect((page.one('[data-field="name"]') as HTMLInputElement).value).toBe('')
}

const countdown = (page: Page): string | undefined =>
  page.all('.countdown-number')[0]?.textContent || undefined

describe('a visitor who does nothing', () => {
  it('is asked after a minute, for ten seconds, and forgotten', async () => {
    const page = await openPage()
    await enterName(page)
    await page.pass(59000)
    expect(countdown(page)).toBeUndefined()
    await page.pass(1000)
    expect(countdown(page)).toBe('10')
    await page.pass(4000)
    expect(countdown(page)).toBe('6')
    await page.pass(6000)
    expect(countdown(page)).toBeUndefined()
    expect(page.fake.sentOf('system.interaction.control').pop()).toEqual({ state: 'Stop' })
    await expectForgotten(page)
  })

  it('may stay', async () => {
    const page = await openPage()
    await enterName(page)
    await page.pass(65000)
    await page.press('stay')
    expect(countdown(page)).toBeUndefined()
    await page.pass(50000)
    expect(page.screen()).toBe('badge')
  })

  it('may finish at once', async () => {
    const page = await openPage()
    await enterName(page)
    await page.pass(65000)
    page.one('[data-action="finish"]').dispatchEvent(new Event('pointerdown', { bubbles: true }))
    await page.press('finish')
    await expectForgotten(page)
  })

  it('is there as long as the screen is touched', async () => {
    const page = await openPage()
    await enterName(page)
    for (let minute = 0; minute < 5; minute += 1) {
      await page.pass(50000)
      document.body.dispatchEvent(new Event('pointerdown', { bubbles: true }))
    }
    expect(countdown(page)).toBeUndefined()
    expect(page.screen()).toBe('badge')
  })

  it('is given the times of the site', async () => {
    const page = await openPage({ config: { idleSeconds: 5, countdownSeconds: 2 } })
    await page.open('home')
    await page.pass(5000)
    expect(countdown(page)).toBe('2')
    await page.pass(2000)
    expect(page.screen()).toBe('attract')
  })

  it('is given time while the robot drives', async () => {
    const page = await openPage()
    page.fake.answer('system.drive.control')
    await page.open('way')
    await page.press('destination')
    page.fake.emit('system.drive.status', { status: Drive.moving })
    await page.pass(200000)
    expect(countdown(page)).toBeUndefined()
    page.fake.emit('user.lost.user')
    await page.pass(20000)
    expect(page.screen()).toBe('way')
    page.fake.emit('system.drive.status', { status: Drive.reached })
    await page.pass(0)
    expect(countdown(page)).toBe('10')
    await page.pass(10000)
    expect(page.screen()).toBe('attract')
  })

  it('is forgotten in the end also while the robot waits', async () => {
    const page = await openPage()
    await page.open('operator')
    page.fake.emit('operator.control.status', { status: true })
    await page.pass(311000)
    expect(page.screen()).toBe('attract')
  })
})

describe('a visitor whom the robot loses', () => {
  it('is asked at once, and forgotten', async () => {
    const page = await openPage()
    await enterName(page)
    page.fake.emit('user.lost.user')
    expect(countdown(page)).toBe('10')
    await page.pass(10000)
    await expectForgotten(page)
  })

  it('is not asked when nothing has begun yet', async () => {
    const page = await openPage()
    await page.press('wake')
    page.fake.emit('user.lost.user')
    expect(page.screen()).toBe('attract')
  })

  it('may come back', async () => {
    const page = await openPage()
    page.fake.emit('user.has.user', user)
    await page.press('start')
    page.fake.emit('user.lost.user')
    await page.pass(3000)
    page.fake.emit('user.has.user', user)
    expect(countdown(page)).toBeUndefined()
    await page.pass(20000)
    expect(page.screen()).toBe('home')
  })

  it('leaves nothing to the next one', async () => {
    const page = await openPage()
    page.fake.emit('user.has.user', user)
    await page.press('start')
    await page.press('open-badge')
    expect((page.one('[data-field="name"]') as HTMLInputElement).value).toBe('Ann')
    page.fake.emit('user.has.user', { ...user, user_id: 8, name: 'Bob' })
    expect(page.screen()).toBe('greeting')
    expect(page.text()).not.toContain('Ann')
    expect(page.title()).toBe(page.t('greeting.known', { name: 'Bob' }))
  })
})

describe('what is forgotten', () => {
  it('is what was said, too', async () => {
    const page = await openPage()
    await page.open('talk')
    page.fake.emit('dialog.user.said', { text: 'My secret', is_finish: true })
    expect(page.text()).toContain('My secret')
    await page.pass(71000)
    await page.open('talk')
    expect(page.text()).not.toContain('My secret')
  })

  it('is the passport, the host and the language', async () => {
    const page = await openPage()
    await page.open('passport')
    await page.press('scan')
    expect(page.text()).toContain('ERIKA')
    await page.press('language')
    await page.press('language-ar')
    expect(page.text()).toContain('ERIKA')
    await page.pass(71000)
    expect(document.documentElement.lang).toBe('en')
    expect(page.fake.sentOf('system.language.set').pop()).toEqual({ language: 'en' })
    await page.open('passport')
    expect(page.text()).not.toContain('ERIKA')
    expect(page.title()).toBe(page.t('passport.intro'))
  })

  it('is what comes late, too', async () => {
    const page = await openPage()
    page.fake.answer('scanner.passport.request', ['scanner.passport.response', { success: true }])
    await page.open('passport')
    await page.press('scan')
    page.fake.emit('user.lost.user')
    await page.pass(400000)
    expect(page.screen()).toBe('attract')
    page.fake.emit('scanner.passport.finish', { data: { name: 'SECRET' } })
    await page.pass(0)
    await page.open('badge')
    expect((page.one('[data-field="name"]') as HTMLInputElement).value).toBe('')
  })
})
