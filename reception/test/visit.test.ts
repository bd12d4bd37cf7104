import { describe, expect, it } from 'vitest'
import { initials } from '../src/badge.js'
import { masked, nameOf } from '../src/flows/passport.js'
import { Call, Drive } from '../src/platform.js'
import { openPage } from './support/page.js'
import { drive, quiet, state } from './support/steps.js'

describe('the guided visit', () => {
  it('leads through all steps', async () => {
    const page = await openPage({ config: quiet })
    page.fake.answer('system.drive.control')
    await page.open('visit')
    await page.press('begin')
    expect(page.screen()).toBe('passport')
    await page.press('scan')
    await page.press('next')
    expect(page.screen()).toBe('badge')
    expect((page.one('[data-field="name"]') as HTMLInputElement).value).toBe('Erika')
    await page.press('preview')
    await page.press('print')
    await page.press('next')
    expect(page.screen()).toBe('card')
    await page.press('dispense')
    await page.press('next')
    expect(page.screen()).toBe('call')
    await page.press('call-person')
    state(page, Call.connected)
    state(page, Call.ended)
    await page.press('next')
    expect(page.screen()).toBe('way')
    // The way to the host comes first.
    expect(page.one('[data-action="destination"]').dataset.point).toBe('2')
    await page.press('destination')
    drive(page, Drive.reached)
    await page.press('next')
    expect(page.screen()).toBe('finish')
    expect(page.title()).toBe(page.t('visit.finish', { name: 'Erika' }))
    await page.press('end')
    expect(page.screen()).toBe('attract')
  })

  it('lets every step be skipped and shows where one is', async () => {
    const page = await openPage({ config: quiet })
    await page.open('visit')
    await page.press('begin')
    for (const step of page.config.steps) {
      expect(page.screen()).toBe(step)
      expect(page.one('[data-state="current"]').dataset.step).toBe(step)
      await page.press('skip')
    }
    expect(page.screen()).toBe('finish')
    expect(page.all('[data-state="skipped"]')).toHaveLength(5)
  })

  it('goes on where it was after help', async () => {
    const page = await openPage({ config: quiet })
    await page.open('visit')
    await page.press('begin')
    await page.press('skip')
    await page.press('help')
    await page.press('back')
    expect(page.screen()).toBe('badge')
  })

  it('skips a step whose device does not work', async () => {
    const page = await openPage({ config: quiet })
    page.fake.answer('scanner.passport.request', ['scanner.passport.response', { success: false }])
    await page.open('visit')
    await page.press('begin')
    await page.press('scan')
    await page.press('skip')
    expect(page.screen()).toBe('badge')
  })
})

it('writes names as people do', () => {
  expect(nameOf({ surname: 'MUSTERMANN', name: 'ERIKA' })).toBe('Erika Mustermann')
  expect(nameOf({ surname: "O'NEILL-SMITH", name: 'ANNA MARÍA' })).toBe("Anna María O'Neill-Smith")
  expect(nameOf({ surname: '王', name: '小明' })).toBe('王小明')
  expect(nameOf({ surname: 'الأحمد', name: 'فاطمة' })).toBe('فاطمة الأحمد')
  expect(nameOf({})).toBe('')
  expect(masked('C01X00T47')).toBe('••••••T47')
  expect(initials('Anna María López')).toBe('AL')
  expect(initials('王小明 (Wang)')).toBe('王')
  expect(initials(' ')).toBe('')
})
