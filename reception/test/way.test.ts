import { describe, expect, it } from 'vitest'
import { START_TIME } from '../src/flows/way.js'
import { Drive } from '../src/platform.js'
import { languages } from '../src/texts/index.js'
import { openPage } from './support/page.js'
import { drive, driveFirst, quiet } from './support/steps.js'

describe.each(languages)('in %s', (language) => {
  it('a drive that is blocked, and goes on', async () => {
    const page = await openPage({ language, config: quiet })
    await driveFirst(page)
    drive(page, Drive.moving)
    expect(page.title()).toBe(page.t('way.moving'))
    drive(page, Drive.blocked)
    expect(page.problem()).toBe('drive.blocked')
    expect(page.text()).toContain(page.t('problem.drive.blocked.advice'))
    await page.press('retry')
    drive(page, Drive.moving)
    drive(page, Drive.reached)
    expect(page.title()).toContain(
      page
        .t('way.arrived', { place: '' })
        .replace(/[\u2066-\u2069]/g, '')
        .trim(),
    )
    expect(page.fake.sentOf('system.drive.control')).toEqual([
      { drive_point: 2 },
      { drive_point: 2 },
    ])
  })

  it('a drive that says nothing', async () => {
    const page = await openPage({ language, config: quiet })
    await driveFirst(page)
    await page.pass(START_TIME + 1)
    expect(page.problem()).toBe('drive.silent')
    expect(page.text()).toContain(page.t('way.walk'))
  })
})

describe('the way', () => {
  it('pauses, goes on and stops', async () => {
    const page = await openPage({ config: quiet })
    await driveFirst(page)
    drive(page, Drive.stopped)
    expect(page.title()).toBe(page.t('way.starting'))
    drive(page, Drive.moving)
    await page.press('pause')
    drive(page, Drive.paused)
    expect(page.title()).toBe(page.t('way.paused'))
    await page.press('resume')
    drive(page, Drive.moving)
    await page.press('stop')
    drive(page, Drive.paused)
    expect(page.title()).toBe(page.t('way.stopped'))
    await page.press('resume')
    expect(page.fake.sentOf('system.drive.control')).toEqual([
      { drive_point: 2 },
      { drive_pause: true },
      { drive_pause: false },
      { drive_pause: true },
      { drive_point: 2 },
    ])
  })

  it('stands still when its screen is left, and returns when the visitor has gone', async () => {
    const page = await openPage({ config: quiet })
    await driveFirst(page)
    drive(page, Drive.moving)
    await page.press('home')
    expect(page.fake.sentOf('system.drive.control').pop()).toEqual({ drive_pause: true })
    page.fake.emit('user.lost.user')
    await page.pass(11000)
    expect(page.screen()).toBe('attract')
    expect(page.fake.sentOf('system.drive.control').pop()).toEqual({ drive_point: 1 })
    expect(page.text()).toContain(page.t('attract.returning'))
    drive(page, Drive.reached)
    expect(page.text()).toContain(page.t('attract.hint'))
  })

  it('returns once', async () => {
    const page = await openPage({ config: quiet })
    await driveFirst(page)
    drive(page, Drive.reached)
    await page.press('end')
    drive(page, Drive.reached)
    await page.press('wake')
    page.fake.emit('user.lost.user')
    expect(page.screen()).toBe('attract')
    await page.pass(0)
    expect(page.fake.sentOf('system.drive.control')).toEqual([
      { drive_point: 2 },
      { drive_point: 1 },
    ])
  })

  it('waits for a free way on its return', async () => {
    const page = await openPage({ config: quiet })
    await driveFirst(page)
    drive(page, Drive.reached)
    await page.press('end')
    drive(page, Drive.blocked)
    await page.pass(20000)
    expect(page.fake.sentOf('system.drive.control').slice(1)).toEqual([
      { drive_point: 1 },
      { drive_point: 1 },
    ])
  })

  it('interrupts its return for the next visitor, and goes on afterwards', async () => {
    const page = await openPage({ config: quiet })
    await driveFirst(page)
    drive(page, Drive.moving)
    drive(page, Drive.reached)
    await page.press('end')
    await page.press('wake')
    expect(page.fake.sentOf('system.drive.control').pop()).toEqual({ drive_pause: true })
    page.fake.emit('user.lost.user')
    await page.pass(0)
    expect(page.screen()).toBe('attract')
    expect(page.fake.sentOf('system.drive.control').pop()).toEqual({ drive_point: 1 })
  })
})
