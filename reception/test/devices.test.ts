import { describe, expect, it } from 'vitest'
import { adviceOf, type Problem, titleOf } from '../src/problems.js'
import { languages } from '../src/texts/index.js'
import { openPage, type Page } from './support/page.js'

type Prepare = (page: Page) => void | Promise<void>

async function typeName(page: Page): Promise<void> {
  page.type('name', 'Ann Example')
  await page.press('preview')
}

const printed: { problem: Problem; prepare: Prepare; after?: number }[] = [
  {
    problem: 'printer.missing',
    prepare: ({ fake }) => fake.answer('printer.print', 'printer.noprinter'),
  },
  {
    problem: 'printer.paper',
    prepare: ({ fake }) => fake.answer('printer.print', 'printer.nopaper'),
  },
  {
    problem: 'printer.failed',
    prepare({ fake }) {
      fake.answer('printer.print', 'printer.error')
    },
  },
  {
    problem: 'printer.unplugged',
    prepare({ fake }) {
      fake.answer('printer.print', 'printer.error')
      fake.answer('printer.state', ['printer.state.info', { state: 'NOT_CONNECTED' }])
    },
  },
  { problem: 'printer.silent', prepare: ({ fake }) => fake.answer('printer.print') },
]

const dispensed: { problem: Problem; prepare: Prepare; after?: number }[] = [
  {
    problem: 'dispenser.missing',
    prepare: ({ fake }) => fake.answer('dispenser.dispense', 'dispenser.nodispenser'),
  },
  {
    problem: 'dispenser.unplugged',
    prepare: ({ fake }) => fake.answer('dispenser.dispense', 'dispenser.not.connected'),
  },
  {
    problem: 'dispenser.empty',
    prepare: ({ fake }) => fake.answer('dispenser.dispense', 'dispenser.card.empty'),
    after: 300,
  },
  {
    problem: 'dispenser.failed',
    prepare: ({ fake }) => fake.answer('dispenser.dispense', 'dispenser.card.error'),
    after: 300,
  },
  {
    problem: 'dispenser.silent',
    prepare: ({ fake }) => fake.answer('dispenser.dispense', 'dispenser.card.dispensing'),
    after: 31000,
  },
]

const refused = ['scanner.passport.response', { success: false }] as const
const begun = ['scanner.passport.response', { success: true }] as const
const failed = (code: string) => ['scanner.passport.error', { code, text: 'said' }] as const

const scanned: { problem: Problem; prepare: Prepare; after?: number }[] = [
  {
    problem: 'scanner.closed',
    prepare: ({ fake }) => fake.answer('scanner.passport.request', refused),
  },
  {
    problem: 'scanner.nothing',
    prepare: ({ fake }) => fake.answer('scanner.passport.request', begun, failed('1')),
  },
  {
    problem: 'scanner.failed',
    prepare: ({ fake }) => fake.answer('scanner.passport.request', begun, failed('7')),
  },
  {
    problem: 'scanner.unread',
    prepare: ({ fake }) =>
      fake.answer('scanner.passport.request', begun, ['scanner.passport.finish', { data: {} }]),
  },
  {
    problem: 'scanner.silent',
    prepare: ({ fake }) => fake.answer('scanner.passport.request', begun),
    after: 91000,
  },
]

/** Every problem is told in the language, and there are ways on. */
async function expectProblem(page: Page, problem: Problem, values = {}): Promise<void> {
  expect(page.problem()).toBe(problem)
  expect(page.title()).toBe(page.t(titleOf(problem), values))
  expect(page.text()).toContain(page.t(adviceOf(problem), values))
  expect(page.actions()).toEqual(expect.arrayContaining(['retry', 'skip', 'home']))
}

describe.each(languages)('in %s', (language) => {
  it.each(printed)('the printer: $problem', async ({ problem, prepare, after = 0 }) => {
    const page = await openPage({ language, config: { idleSeconds: 3600 } })
    await page.open('badge')
    await typeName(page)
    prepare(page)
    await page.press('print')
    await page.pass(after)
    await expectProblem(page, problem)
    page.fake.answer('printer.print', undefined)
    await page.press('retry')
    expect(page.title()).toBe(page.t('badge.done'))
  })

  it.each(dispensed)('the dispenser: $problem', async ({ problem, prepare, after = 0 }) => {
    const page = await openPage({ language, config: { idleSeconds: 3600 } })
    await page.open('card')
    prepare(page)
    await page.press('dispense')
    await page.pass(after)
    await expectProblem(page, problem)
    page.fake.answer('dispenser.dispense', undefined)
    await page.press('retry')
    expect(page.title()).toBe(page.t('card.done'))
  })

  it.each(scanned)('the scanner: $problem', async ({ problem, prepare, after = 0 }) => {
    const page = await openPage({ language, config: { idleSeconds: 3600 } })
    await page.open('passport')
    prepare(page)
    await page.press('scan')
    await page.pass(after)
    await expectProblem(page, problem)
    page.fake.answer('scanner.passport.request', undefined)
    await page.press('retry')
    expect(page.one('[data-result="name"]').textContent).toContain('ERIKA')
  })

  it('an interrupted connection', async () => {
    const page = await openPage({ language, config: { idleSeconds: 3600 } })
    await page.open('card')
    page.fake.answer('dispenser.dispense', 'dispenser.card.dispensing')
    await page.press('dispense')
    page.fake.lose()
    await page.pass(0)
    expect(page.one('[data-overlay="lost"]').textContent).toContain(page.t('lost.title'))
    await expectProblem(page, 'lost')
    page.fake.recover()
    await page.pass(20000)
    expect(page.all('[data-overlay="lost"]')).toEqual([])
    expect(page.screen()).toBe('card')
    // The robot may have started anew.
    expect(page.fake.sentOf('system.language.set').pop()).toEqual({ language })
  })
})
