import { describe, expect, it } from 'vitest'
import { RING_TIME } from '../src/flows/call.js'
import { Call } from '../src/platform.js'
import { languages } from '../src/texts/index.js'
import { openPage, type Page } from './support/page.js'
import { callFirst, quiet, state } from './support/steps.js'

const anna = 'Anna Berger'

describe.each(languages)('in %s', (language) => {
  it('a call that is answered', async () => {
    const page = await openPage({ language, config: quiet })
    await callFirst(page)
    expect(page.fake.sentOf('sip.control').slice(1)).toEqual([{ call_start: { number: '100' } }])
    for (const [number, key] of [
      [Call.calling, 'call.calling'],
      [Call.ringing, 'call.ringing'],
      [Call.connected, 'call.connected'],
    ] as const) {
      state(page, number)
      expect(page.title()).toBe(page.t(key, { name: anna }))
    }
    await page.pass(RING_TIME + 1)
    expect(page.title()).toBe(page.t('call.connected', { name: anna }))
    await page.press('hangup')
    expect(page.fake.sentOf('sip.control').pop()).toEqual({ call_stop: true })
    expect(page.title()).toBe(page.t('call.ended'))
  })

  it.each([
    ['call.busy', Call.busy],
    ['call.noanswer', Call.failed],
  ] as const)('a call that ends with %s', async (problem, number) => {
    const page = await openPage({ language, config: quiet })
    await callFirst(page)
    state(page, Call.calling)
    state(page, number)
    expect(page.problem()).toBe(problem)
    expect(page.title()).toBe(page.t(`problem.${problem}`, { name: anna }))
    expect(page.actions()).toEqual(expect.arrayContaining(['retry', 'message', 'other', 'skip']))
    await page.press('other')
    expect(page.screen()).toBe('call')
    expect(page.title()).toBe(page.t('call.title'))
  })

  it('a call that is refused', async () => {
    const page = await openPage({ language, config: quiet })
    page.fake.answer('sip.control', ['sip.call.response', { result: false }])
    await callFirst(page)
    expect(page.problem()).toBe('call.unreachable')
    expect(page.text()).toContain(page.t('problem.call.unreachable.advice'))
  })
})

describe('a call', () => {
  it('is given up when nobody answers for long', async () => {
    const page = await openPage({ config: quiet })
    await callFirst(page)
    state(page, Call.ringing)
    await page.pass(RING_TIME + 1)
    expect(page.problem()).toBe('call.noanswer')
    expect(page.fake.sentOf('sip.control').pop()).toEqual({ call_stop: true })
  })

  it('ends when its screen is left', async () => {
    const page = await openPage({ config: quiet })
    await callFirst(page)
    state(page, Call.connected)
    await page.press('home')
    expect(page.fake.sentOf('sip.control').pop()).toEqual({ call_stop: true })
  })

  it.each([
    [true, 'call.message.done'],
    [false, 'problem.call.message'],
  ] as const)('leaves a message: %s', async (success, key) => {
    const page = await openPage({ config: quiet })
    await callFirst(page)
    state(page, Call.busy)
    await page.press('message')
    const uuid = '{9b2c7d10-5e3f-4a86-b1d4-7c0e2f9a6b35}'
    const [first] = page.fake.sentOf('sip.control').slice(-1)
    expect(first).toMatchObject({
      play_text: { number: '100', text: page.t('call.message.nobody') },
    })
    expect(page.title()).toBe(page.t('call.message.waiting', { name: anna }))
    page.fake.emit('sip.events', { event: 'hidden_call', uuid: '{other}', success: !success })
    expect(page.title()).toBe(page.t('call.message.waiting', { name: anna }))
    page.fake.emit('sip.events', { event: 'hidden_call', uuid: await idOf(page, uuid), success })
    expect(page.title()).toBe(page.t(key, { name: anna }))
  })

  it('finds people by name and department, whatever the accents', async () => {
    const page = await openPage({ config: quiet })
    await page.open('call')
    const found = (): (string | undefined)[] =>
      page.all('[data-action="call-person"]').map((one) => one.dataset.number)
    expect(found()).toHaveLength(page.config.people.length)
    page.type('search', 'lucia')
    expect(found()).toEqual(['102'])
    page.type('search', 'SALES fernandez')
    expect(found()).toEqual(['102'])
    page.type('search', '小明')
    expect(found()).toEqual(['103'])
    page.type('search', 'nobody')
    expect(found()).toEqual([])
    expect(page.text()).toContain(page.t('call.none'))
    expect(page.actions()).toContain('home')
  })
})

/** The id that the fake robot gives queued calls. */
async function idOf(page: Page, _: string): Promise<string> {
  const { uuid } = (
    await page.robot.request('sip.control', { play_text: { number: '1', text: 'x' } })
  ).attributes as { uuid: string }
  return uuid
}
