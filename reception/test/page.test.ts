import { describe, expect, it } from 'vitest'
import { names } from '../src/texts/index.js'
import { openPage } from './support/page.js'

const user = {
  user_id: 7,
  name: 'Ann',
  age: 34,
  gender: 1,
  extra_data: null,
  acquaintance_date: '2026-05-04T10:15:00',
  last_visit: '2026-05-05T09:00:00',
}

const face = {
  id: 0,
  type: 0,
  id_track: 1,
  name: '',
  matches: {},
} as never

const replica = {
  id: { id: 12, uuid: '' },
  anchor: { id: 0, uuid: '' },
  category: { id: 3, uuid: '' },
  text: 'The café is on the second floor.',
  screen_text: 'Second floor',
  url: '',
  actions: 'head.left,screen.map',
  animation: 0,
  type: 1,
}

const answer = (one: typeof replica) => ({
  answer: {
    id: { id: 1, uuid: '' },
    source: 1,
    id_pattern: { id: 0, uuid: '' },
    pattern: '',
    question: '',
    replica: one,
  },
})

describe('the attract screen', () => {
  it('wakes on a touch, greets and goes on to the menu', async () => {
    const page = await openPage()
    await page.press('wake')
    expect(page.screen()).toBe('greeting')
    expect(page.fake.sentOf('system.interaction.control')).toEqual([{ state: 'Start' }])
    await page.pass(1000)
    expect(page.fake.sentOf('dialog.say')).toEqual([
      { text: page.t('greeting.say', { company: 'Example Company' }) },
    ])
    await page.pass(6000)
    expect(page.screen()).toBe('home')
  })

  it('wakes when an interaction begins', async () => {
    const page = await openPage()
    page.fake.emit('system.interaction.state', { state: 'Interaction', Reason: 2 })
    expect(page.screen()).toBe('greeting')
  })

  it('wakes on a word', async () => {
    const page = await openPage()
    page.fake.emit('dialog.user.said', { text: 'Hel', is_finish: false })
    expect(page.screen()).toBe('attract')
    page.fake.emit('dialog.user.said', { text: 'Hello', is_finish: true })
    expect(page.screen()).toBe('greeting')
  })

  it('greets by name, and leaves the words to a robot that greets by itself', async () => {
    const page = await openPage()
    page.fake.emit('user.has.user', user)
    page.fake.emit('dialog.robot.replic.start', { text: 'Hello Ann' })
    expect(page.title()).toBe(page.t('greeting.known', { name: 'Ann' }))
    await page.pass(2000)
    expect(page.fake.sentOf('dialog.say')).toEqual([])
  })

  it('wakes when somebody comes, not for whoever still stands there', async () => {
    const page = await openPage()
    const seen = (): void => page.fake.emit('face.recognize.info', { info: { a: face } })
    seen()
    expect(page.screen()).toBe('greeting')
    await page.pass(6000)
    seen()
    for (let second = 0; second < 80; second += 2) {
      await page.pass(2000)
      seen()
    }
    expect(page.screen()).toBe('attract')
    page.fake.emit('face.recognize.info', { info: {} })
    seen()
    expect(page.screen()).toBe('greeting')
  })

  it('hangs up what a page before it may have left', async () => {
    const page = await openPage()
    expect(page.fake.sentOf('sip.control')).toEqual([{ call_stop: true }])
  })

  it('counts down when a stranger is seen no more, not for a face that is lost for a moment', async () => {
    const page = await openPage()
    const faces = (info: { [key: string]: typeof face }): void =>
      page.fake.emit('face.recognize.info', { info })
    await page.open('home')
    faces({ a: face })
    faces({})
    await page.pass(1000)
    faces({ a: face })
    await page.pass(2500)
    expect(page.all('[data-overlay="idle"]')).toEqual([])
    faces({})
    await page.pass(3500)
    expect(page.all('[data-overlay="idle"]')).toHaveLength(1)
  })

  it('learns the name of somebody who is recognised later', async () => {
    const page = await openPage()
    await page.open('home')
    page.fake.emit('user.has.user', user)
    expect(page.title()).toBe(page.t('home.known', { name: 'Ann' }))
  })
})

describe('the conversation', () => {
  it('shows both, while they speak', async () => {
    const page = await openPage()
    await page.open('talk')
    const lines = (): string[] =>
      page.all('[data-line]').map((line) => line.lastElementChild?.textContent || '')
    page.fake.emit('dialog.user.said', { text: 'Where is', is_finish: false })
    page.fake.emit('dialog.user.said', { text: 'Where is the café', is_finish: false })
    expect(lines()).toEqual(['Where is the café'])
    expect(page.one('[aria-busy="true"]')).toBeTruthy()
    page.fake.emit('dialog.user.said', { text: 'Where is the café?', is_finish: true })
    expect(page.all('[aria-busy="true"]')).toEqual([])
    page.fake.emit('dialog.answer.load', answer(replica))
    page.fake.emit('dialog.robot.replic.start', { text: replica.text })
    expect(lines()).toEqual(['Where is the café?', 'Second floor'])
    expect(page.one('.bubble-robot').classList.contains('is-open')).toBe(true)
    page.fake.emit('dialog.robot.replic.finish')
    expect(page.one('.bubble-robot').classList.contains('is-open')).toBe(false)
    await page.press('open-way')
    expect(page.screen()).toBe('way')
  })

  it('asks with answers as buttons', async () => {
    const page = await openPage()
    await page.open('home')
    page.fake.emit('dialog.question.new', { text: 'Tea or coffee?', answers: ['Tea', '<b>No</b>'] })
    expect(page.screen()).toBe('talk')
    expect(page.text()).toContain('Tea or coffee?')
    const buttons = page.all('[data-action="answer"]')
    expect(buttons.map((one) => one.textContent)).toEqual(['Tea', '<b>No</b>'])
    expect(page.all('b')).toEqual([])
    buttons[1]!.click()
    await page.pass(0)
    expect(page.fake.sentOf('dialog.question.answer')).toEqual([{ text: '<b>No</b>' }])
    expect(page.all('[data-action="answer"]')).toEqual([])
  })

  it('comes up when the visitor speaks to the menu, but not on a form', async () => {
    const page = await openPage()
    await page.open('home')
    page.fake.emit('dialog.user.said', { text: 'Where', is_finish: false })
    expect(page.screen()).toBe('home')
    page.fake.emit('dialog.user.said', { text: 'Where is the café?', is_finish: true })
    expect(page.screen()).toBe('talk')
    await page.press('home')
    page.fake.emit('dialog.robot.replic.finish')
    expect(page.screen()).toBe('home')
    await page.press('open-badge')
    page.fake.emit('dialog.user.said', { text: 'Hello', is_finish: true })
    expect(page.screen()).toBe('badge')
  })

  it('takes a question back', async () => {
    const page = await openPage()
    await page.open('talk')
    page.fake.emit('dialog.question.new', { text: 'Tea?', answers: ['Yes'] })
    page.fake.emit('dialog.question.cancel')
    expect(page.all('[data-action="answer"]')).toEqual([])
  })

  it('does not pull a visitor away from a form', async () => {
    const page = await openPage()
    await page.open('badge')
    page.fake.emit('dialog.question.new', { text: 'Tea?', answers: ['Yes'] })
    expect(page.screen()).toBe('badge')
    await page.press('open-question')
    expect(page.screen()).toBe('talk')
    expect(page.text()).toContain('Tea?')
    expect(page.actions()).not.toContain('open-question')
  })

  it('shows on every screen what the robot says', async () => {
    const page = await openPage()
    await page.open('card')
    page.fake.emit('dialog.robot.replic.start', { text: 'Please take a seat' })
    const caption = page.one('.caption-words')
    expect(caption.textContent).toBe('Please take a seat')
    expect(caption.getAttribute('aria-live')).toBe('polite')
    page.fake.emit('dialog.robot.replic.finish')
    await page.pass(3100)
    expect(caption.textContent).toBe('')
  })
})

describe('the language', () => {
  it.each(['es', 'zh', 'ar'] as const)('%s is shown, told to the robot and spoken', async (one) => {
    const page = await openPage()
    await page.open('home')
    await page.press('language')
    expect(page.all('[data-overlay="language"]')).toHaveLength(1)
    await page.press(`language-${one}`)
    expect(page.all('[data-overlay="language"]')).toEqual([])
    expect(document.documentElement.lang).toBe(one)
    expect(document.documentElement.dir).toBe(one === 'ar' ? 'rtl' : 'ltr')
    expect(page.fake.sentOf('system.language.set').pop()).toEqual({ language: one })
    expect(page.screen()).toBe('home')
    const other = await openPage({ language: one })
    await other.open('home')
    expect(other.title()).toBe(other.t('home.title'))
  })

  it('is offered in its own words, on the greeting too', async () => {
    const page = await openPage({ config: { languages: ['en', 'ar'] } })
    await page.press('wake')
    const buttons = page.all('[lang][data-action^="language-"]')
    expect(buttons.map((one) => one.textContent)).toEqual([names.en, names.ar])
    expect(buttons[1]!.dir).toBe('rtl')
    await page.press('language-ar')
    expect(page.title()).toBe('أهلًا، تسرّني رؤيتك!')
  })

  it('changes without an end of what goes on', async () => {
    const page = await openPage()
    await page.open('call')
    await page.press('call-person')
    page.fake.emit('sip.events', { event: 'public_call', state: 3 })
    await page.press('language')
    await page.press('language-es')
    expect(page.title()).toBe('Está hablando con Anna Berger')
    expect(page.fake.sentOf('sip.control').slice(1)).toHaveLength(1)
  })
})

it('has a way home on every screen', async () => {
  const page = await openPage()
  for (const what of ['visit', 'badge', 'passport', 'card', 'call', 'way', 'talk', 'operator']) {
    await page.open(what)
    expect(page.screen()).toBe(what)
    await page.press('home')
    expect(page.screen()).toBe('home')
    page.fake.emit('user.lost.user')
    await page.pass(10000)
    expect(page.screen()).toBe('attract')
  }
})

it('shows the tiles that the site wants', async () => {
  const page = await openPage({ config: { services: ['way', 'talk'] } })
  await page.open('home')
  expect(page.all('.tile').map((one) => one.dataset.action)).toEqual([
    'open-way',
    'open-talk',
    'open-operator',
  ])
})
