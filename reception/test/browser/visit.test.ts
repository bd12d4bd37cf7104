import { expect, it } from 'vitest'
import { defaults } from '../../src/config.js'
import type { Language } from '../../src/texts/index.js'
import { Reception } from './support/reception.js'
import { onBothRoads } from './support/roads.js'

onBothRoads((road) => {
  it('a visitor with an appointment is taken through everything', async () => {
    // What moves is most likely to be in the way of an old engine.
    const isMoving = road.isScreen
    const reception = await Reception.open(road, { site: { camera: false }, isMoving })
    const { robot } = reception
    const [host] = defaults.people
    if (!host) throw new Error('there is nobody to visit')
    await reception.says('attract.title', { company: 'Example Company' })
    await reception.picture('01-attract')

    await robot.enter({ name: 'Ada Byron' })
    await reception.screen('greeting')
    await reception.says('greeting.known', { name: 'Ada Byron' })
    await robot.waitForMessage('dialog.greeting.load')
    await reception.reaches({ interaction: true, people: 1 })
    await reception.picture('02-greeting')

    await reception.press('start')
    await reception.screen('home')
    await reception.says('home.known', { name: 'Ada Byron' })
    await reception.picture('03-home')
    await reception.press('open-visit')
    await reception.screen('visit')
    await reception.picture('04-visit')

    await reception.press('begin')
    await reception.screen('passport')
    await reception.picture('05-passport')
    await robot.passportScanner({
      fields: { surname: 'LOVELACE', name: 'ADA', number: 'C01X00T47', birth_date: '10.12.1815' },
    })
    await reception.press('scan')
    await robot.waitForMessage('scanner.passport.finish')
    await reception.says('passport.done', { name: 'Ada Lovelace' })
    const results = reception.find('[data-result] dd')
    expect(await results.allTextContents()).toEqual(['LOVELACE', 'ADA', '••••••T47', '10.12.1815'])
    await reception.picture('06-passport-read')

    await reception.press('next')
    await reception.screen('badge')
    expect(await reception.field('name').inputValue()).toBe('Ada Lovelace')
    await reception.type('name', 'Ada King')
    await reception.type('company', 'Analytical Engines')
    await reception.reaches({ keyboard: { visible: true, locale: 'en_GB' } })
    await reception.picture('07-badge')
    await reception.press('preview')
    await reception.says('badge.preview')
    await reception.reaches({ keyboard: { visible: false } })
    expect(await reception.find('canvas').getAttribute('aria-label')).toBe('Ada King')
    await reception.picture('08-badge-preview')
    await reception.press('print')
    await reception.says('badge.done')
    await reception.reaches({ printer: { printed: 1 } })
    await reception.picture('09-badge-printed')

    await reception.press('next')
    await reception.screen('card')
    const cards = (await robot.state()).dispenser?.cards ?? 0
    await reception.press('dispense')
    await reception.says('card.done')
    await reception.reaches({ dispenser: { cards: cards - 1 } })
    await robot.dispenser({ taken: true })
    await reception.reaches({ dispenser: { status: 0 } })
    await reception.picture('10-card')

    await reception.press('next')
    await reception.screen('call')
    await robot.telephone({ outcome: 'answered' })
    await reception.picture('11-call')
    await reception.find(`[data-number="${host.number}"]`).click()
    await reception.says('call.connected', { name: host.name })
    await reception.reaches({ telephone: { state: 3, number: host.number } })
    await reception.picture('12-call-connected')
    await robot.telephone({ hang_up: true })
    await reception.says('call.ended')

    await reception.press('next')
    await reception.screen('way')
    await reception.picture('13-way')
    await robot.drive({ travel_time: 60000 })
    const [first] = await reception.action('destination').all()
    expect(await first?.getAttribute('data-point')).toBe(String(host.point))
    await first?.click()
    await reception.says('way.moving')
    await reception.reaches({ drive: { status: 1, point: host.point } })
    await reception.picture('14-way-moving')
    await reception.says('way.arrived', { place: 'Meeting rooms' })
    await reception.reaches({ drive: { status: 3, point: host.point } })
    await reception.picture('15-way-arrived')

    await robot.drive({ travel_time: 1000 })
    await reception.press('next')
    await reception.screen('finish')
    await reception.says('visit.finish', { name: 'Ada King' })
    expect(await reception.find('.skipped').count()).toBe(0)
    await reception.picture('16-finish')
    await reception.press('end')
    await reception.screen('attract')
    await reception.reaches({ interaction: false, drive: { status: 3, point: defaults.homePoint } })
  })

  it('a badge has a picture, or initials where there is no camera', async () => {
    const reception = await Reception.open(road)
    await reception.goTo('badge')
    await reception.type('name', 'Ada Byron')
    await reception.press('preview', 'picture')
    await reception.says('badge.preview')
    const isMissing = (await reception.action('no-picture').count()) === 0
    // The screen's engine gives no page a camera.
    expect(isMissing).toBe(road.isScreen)
    if (isMissing) await reception.find('.panel-note', reception.t('badge.camera.none')).waitFor()
    await reception.picture('17-badge-picture')
    await reception.press('print')
    await reception.says('badge.done')
    await reception.reaches({ printer: { printed: 1 } })
  })

  it('the visitor changes the language, and the robot with it', async () => {
    const reception = await Reception.open(road)
    await reception.goTo('home')
    const root = reception.find('html')
    for (const language of ['es', 'zh', 'ar', 'en'] satisfies Language[]) {
      await reception.press('language')
      await reception.press(`language-${language}`)
      reception.language = language
      await reception.says('home.title')
      await reception.reaches({ language })
      expect(await root.getAttribute('lang')).toBe(language)
      expect(await root.getAttribute('dir')).toBe(language === 'ar' ? 'rtl' : 'ltr')
      // What comes first stands where reading begins.
      const [tile, help] = [reception.action('open-visit'), reception.action('language')]
      const [first, last] = [await tile.boundingBox(), await help.boundingBox()]
      expect((first?.x ?? 0) < (last?.x ?? 0)).toBe(language !== 'ar')
      await reception.picture(`20-home-${language}`)
      await reception.press('open-badge')
      await reception.field('name').click()
      await reception.reaches({ keyboard: { visible: true } })
      await reception.picture(`21-badge-${language}`)
      await reception.press('home')
    }
  })
})
