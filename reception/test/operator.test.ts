import { describe, expect, it } from 'vitest'
import { languages } from '../src/texts/index.js'
import { openPage } from './support/page.js'
import { quiet } from './support/steps.js'

describe.each(languages)('in %s', (language) => {
  it('an operator who does not answer', async () => {
    const page = await openPage({ language, config: quiet })
    page.fake.answer('operator.call.request')
    await page.open('operator')
    await page.press('call-operator')
    expect(page.title()).toBe(page.t('operator.calling'))
    await page.pass(121000)
    expect(page.problem()).toBe('operator.noanswer')
    expect(page.fake.sentOf('operator.call.request').pop()).toEqual({ call: false })
  })
})

describe('the operator', () => {
  it('is called, and comes', async () => {
    const page = await openPage({ config: quiet })
    await page.open('operator')
    await page.press('call-operator')
    expect(page.title()).toBe(page.t('operator.answered'))
  })

  it('takes over from any screen and gives back', async () => {
    const page = await openPage({ config: quiet })
    page.fake.emit('operator.control.status', { status: true })
    expect(page.screen()).toBe('operator')
    expect(page.title()).toBe(page.t('operator.control'))
    page.fake.emit('operator.control.status', { status: false })
    expect(page.screen()).toBe('home')
  })

  it('is told of on another screen when the answer comes there', async () => {
    const page = await openPage({ config: quiet })
    page.fake.answer('operator.call.request')
    await page.open('operator')
    await page.press('call-operator')
    await page.press('home')
    page.fake.emit('operator.call.response', { response: '2' })
    await page.pass(0)
    expect(page.one('.notice').textContent).toBe(page.t('operator.answered'))
  })
})
