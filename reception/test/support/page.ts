import type { Robot } from 'panorel-client'
import { type FakeRobot, fakeRobot } from 'panorel-client/testing'
import { expect, onTestFinished, vi } from 'vitest'
import { type Config, defaults } from '../../src/config.js'
import { start } from '../../src/start.js'
import { type Key, type Language, translate, type Values } from '../../src/texts/index.js'

/** The page as a visitor sees it, with a robot in memory. */
export interface Page {
  readonly fake: FakeRobot
  readonly robot: Robot
  readonly config: Config
  /** The name of the screen that shows. */
  screen(): string | undefined
  all(selector: string): HTMLElement[]
  one(selector: string): HTMLElement
  /** The buttons that show, by their action. */
  actions(): string[]
  press(action: string): Promise<void>
  /** From the start to the screen of this tile. */
  open(what: string): Promise<void>
  type(field: string, text: string): void
  title(): string
  text(): string
  t(key: Key, values?: Values): string
  /** Lets time pass. */
  pass(milliseconds: number): Promise<void>
  problem(): string | undefined
  close(): void
}

export interface PageOptions {
  readonly config?: Partial<Config>
  readonly language?: Language
  readonly fake?: FakeRobot
}

export async function openPage(options: PageOptions = {}): Promise<Page> {
  const fake = options.fake || fakeRobot()
  const robot = await fake.connect()
  const language = options.language || 'en'
  const config = { ...defaults, language, ...options.config }
  const running = start(document.body, config, async () => robot)
  const all = (selector: string): HTMLElement[] => [
    ...document.body.querySelectorAll<HTMLElement>(selector),
  ]
  const page: Page = {
    fake,
    robot,
    config,
    screen: () => all('[data-screen]')[0]?.dataset.screen,
    all,
    one(selector) {
      const [found] = all(selector)
      if (!found) throw new Error(`there is no ${selector} on ${page.screen()}: ${page.actions()}`)
      return found
    },
    actions: () => all('[data-action]').map((element) => element.dataset.action || ''),
    async press(action) {
      page.one(`[data-action="${action}"]`).click()
      await page.pass(0)
    },
    async open(what) {
      await page.press('wake')
      await page.press('start')
      if (what !== 'home') await page.press(`open-${what}`)
    },
    type(field, text) {
      const input = page.one(`[data-field="${field}"]`) as HTMLInputElement
      input.value = text
      input.dispatchEvent(new Event('input', { bubbles: true }))
    },
    title: () => page.one('h1').textContent || '',
    text: () => document.body.textContent || '',
    t: (key, values) => translate(language, key, values),
    async pass(milliseconds) {
      await vi.advanceTimersByTimeAsync(milliseconds)
    },
    problem: () => all('[data-problem]')[0]?.dataset.problem,
    close: () => running.close(),
  }
  onTestFinished(() => running.close())
  await page.pass(0)
  expect(page.screen()).toBe('attract')
  return page
}
