import { describe, expect, it, vi } from 'vitest'
import { openPage, type Page } from './support/page.js'
import { drawnOn } from './support/setup.js'

const begun = ['scanner.passport.response', { success: true }] as const

async function typeName(page: Page): Promise<void> {
  page.type('name', 'Ann Example')
  await page.press('preview')
}

describe('the badge', () => {
  it('is printed with the name, and a picture of letters where there is no camera', async () => {
    const page = await openPage()
    await page.open('badge')
    await typeName(page)
    await page.press('picture')
    await page.pass(0)
    expect(page.text()).toContain(page.t('badge.camera.none'))
    await page.press('print')
    const [sent] = page.fake.sentOf('printer.print')
    const texts = atob(String(sent?.data).split(',')[1]!)
    expect(texts).toContain('Ann Example')
    expect(texts).toContain('AE')
    expect(texts).toContain('Example Company')
    expect(page.title()).toBe(page.t('badge.done'))
  })

  it('has the picture of a camera, which is switched off afterwards', async () => {
    const stop = vi.fn()
    const stream = { getTracks: () => [{ stop }] }
    vi.stubGlobal('navigator', { mediaDevices: { getUserMedia: async () => stream } })
    vi.spyOn(HTMLMediaElement.prototype, 'play').mockResolvedValue()
    vi.spyOn(HTMLMediaElement.prototype, 'srcObject', 'set').mockImplementation(() => {})
    const page = await openPage()
    await page.open('badge')
    await typeName(page)
    await page.press('picture')
    await page.pass(3100)
    expect(page.actions()).toContain('no-picture')
    expect(drawnOn(page.one('canvas') as HTMLCanvasElement).pictures).toHaveLength(1)
    expect(stop).toHaveBeenCalledTimes(1)
    await page.press('no-picture')
    expect(drawnOn(page.one('canvas') as HTMLCanvasElement).pictures).toHaveLength(0)
  })

  it('does without a camera that never answers', async () => {
    const getUserMedia = () => new Promise(() => {})
    vi.stubGlobal('navigator', { mediaDevices: { getUserMedia } })
    const page = await openPage()
    await page.open('badge')
    await typeName(page)
    await page.press('picture')
    await page.pass(6000)
    expect(page.text()).toContain(page.t('badge.camera.none'))
    expect(page.actions()).toContain('print')
  })

  it('sends a camera away that comes too late', async () => {
    const stop = vi.fn()
    let give = (_: unknown): void => {}
    const getUserMedia = () => new Promise((resolve) => (give = resolve))
    vi.stubGlobal('navigator', { mediaDevices: { getUserMedia } })
    const page = await openPage()
    await page.open('badge')
    await typeName(page)
    await page.press('picture')
    await page.pass(6000)
    give({ getTracks: () => [{ stop }] })
    await page.pass(0)
    expect(stop).toHaveBeenCalledTimes(1)
  })

  it('asks for a name', async () => {
    const page = await openPage()
    await page.open('badge')
    page.type('name', '   ')
    await page.press('preview')
    expect(page.text()).toContain(page.t('badge.needed'))
    expect(page.all('canvas')).toEqual([])
  })

  it('tells that paper is low, the staff too', async () => {
    const page = await openPage()
    page.fake.answer('printer.print', 'printer.paper.low', 'printer.success')
    await page.open('badge')
    await typeName(page)
    await page.press('print')
    expect(page.text()).toContain(page.t('badge.low'))
    expect(page.fake.sentOf('system.log').pop()?.level).toBe('warning')
  })

  it('shows and hides the keyboard of the robot', async () => {
    const page = await openPage({ language: 'es' })
    await page.open('badge')
    const input = page.one('[data-field="name"]')
    input.focus()
    await page.pass(0)
    input.blur()
    await page.pass(0)
    expect(page.fake.sentOf('keyboard.control.request')).toEqual([
      { set_locale: 'es_ES', show: true },
      { hide: true },
    ])
    input.focus()
    await page.press('home')
    expect(page.fake.sentOf('keyboard.control.request')).toHaveLength(4)
  })
})

describe('the card', () => {
  it('tells that few cards are left and that the bin is full', async () => {
    const page = await openPage()
    page.fake.answer('dispenser.dispense', 'dispenser.card.preempty', 'dispenser.cardbin.full', [
      'dispenser.sensor',
      { sensor: 'DispSensor' },
    ])
    await page.open('card')
    await page.press('dispense')
    expect(page.title()).toBe(page.t('card.done'))
    expect(page.text()).toContain(page.t('card.low'))
    expect(page.text()).toContain(page.t('card.full'))
  })

  it('tells of a full bin beside an error', async () => {
    const page = await openPage()
    page.fake.answer('dispenser.dispense', 'dispenser.cardbin.full', 'dispenser.card.error')
    await page.open('card')
    await page.press('dispense')
    await page.pass(300)
    expect(page.problem()).toBe('dispenser.failed')
    expect(page.text()).toContain(page.t('card.full'))
  })
})

describe('the passport', () => {
  it('shows how far the scan is, what was read, and only the end of the number', async () => {
    const page = await openPage()
    page.fake.answer('scanner.passport.request', begun)
    await page.open('passport')
    await page.press('scan')
    for (const [state, key] of [
      [1, 'passport.waiting'],
      [2, 'passport.scanning'],
      [3, 'passport.recognizing'],
    ] as const) {
      page.fake.emit('scanner.passport.state', { state })
      expect(page.title()).toBe(page.t(key))
    }
    // The robot tells them by the alphabet.
    const data = {
      birth_date: '1',
      name: 'ERIKA <b>',
      nationality: 'UTO',
      number: 'C01X00T47',
      surname: 'MUSTERMANN',
    }
    page.fake.emit('scanner.passport.finish', { data })
    await page.pass(0)
    expect(page.title()).toBe(page.t('passport.done', { name: 'Erika <b> Mustermann' }))
    const order = ['surname', 'name', 'number', 'birth_date', 'nationality']
    expect(page.all('[data-result]').map((row) => row.dataset.result)).toEqual(order)
    expect(page.one('[data-result="number"]').textContent).toContain('T47')
    expect(page.text()).not.toContain('C01X')
    // What a passport holds is never HTML.
    expect(page.all('b')).toEqual([])
    await page.press('next')
    await page.press('open-badge')
    expect((page.one('[data-field="name"]') as HTMLInputElement).value).toBe('Erika <b> Mustermann')
  })

  it('can be given up, and the next state of the scanner changes nothing', async () => {
    const page = await openPage()
    page.fake.answer('scanner.passport.request', begun)
    await page.open('passport')
    await page.press('scan')
    await page.press('cancel')
    page.fake.emit('scanner.passport.finish', { data: { name: 'ERIKA' } })
    await page.pass(0)
    expect(page.title()).toBe(page.t('passport.intro'))
  })
})
