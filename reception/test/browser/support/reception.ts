import { mkdirSync } from 'node:fs'
import { join } from 'node:path'
import type { SimulatedRobot, Simulator, SimulatorOptions } from 'panorel-client/testing/simulator'
import type { Locator, Page } from 'playwright-core'
import { expect, onTestFinished } from 'vitest'
import type { Config } from '../../../src/config.js'
import { adviceOf, type Problem, titleOf } from '../../../src/problems.js'
import type { ScreenName } from '../../../src/screens/index.js'
import { type Key, type Language, translate, type Values } from '../../../src/texts/index.js'
import type { Opened, Road } from './roads.js'
import { createSite } from './site.js'

const PATIENCE = 8000
const PICTURES = process.env.PANOREL_PICTURES
const SIZES = [
  { width: 1280, height: 800 },
  { width: 1080, height: 1920 },
]

export interface ReceptionOptions extends SimulatorOptions {
  readonly site?: Partial<Config>
  /** Whether pictures on the page move, as they do for visitors; tests that wait for none are faster. */
  readonly isMoving?: boolean
}

/** A reception as a visitor finds it: the page, and the robot behind it. */
export class Reception {
  /** In which language the texts are expected. */
  language: Language = 'en'
  readonly page: Page
  readonly simulator: Simulator
  /** What went wrong in the page. */
  private readonly mistakes: string[] = []

  private constructor(
    private road: Road,
    opened: Opened,
  ) {
    this.page = opened.page
    this.simulator = opened.simulator
    this.page.setDefaultTimeout(PATIENCE)
    this.page.on('pageerror', (error) => this.mistakes.push(error.message))
    this.page.on('console', (line) => {
      if (line.type() === 'error') this.mistakes.push(line.text())
    })
  }

  /** Opens one for this test. The robot lives forty times as fast. */
  static async open(
    road: Road,
    { site, isMoving, ...options }: ReceptionOptions = {},
  ): Promise<Reception> {
    const built = createSite(site)
    onTestFinished(() => built.remove())
    const opened = await road.open({ speed: 40, ...options, page: built.folder })
    onTestFinished(() => opened.close())
    const reception = new Reception(road, opened)
    onTestFinished(() => expect(reception.mistakes, 'what went wrong in the page').toEqual([]))
    if (!isMoving) await reception.page.emulateMedia({ reducedMotion: 'reduce' })
    await reception.robot.waitForMessage('system.language.set')
    await reception.screen('attract')
    return reception
  }

  get robot(): SimulatedRobot {
    return this.simulator.robot
  }

  /** Takes what the console had to complain of. */
  takeMistakes(): string[] {
    return this.mistakes.splice(0)
  }

  t(key: Key, values: Values = {}): string {
    return translate(this.language, key, values)
  }

  /** What fits, and holds this text. */
  find(selector: string, text?: string): Locator {
    return this.page.locator(selector, text === undefined ? {} : { hasText: text })
  }

  async screen(name: ScreenName | 'offline'): Promise<void> {
    await this.find(`[data-screen="${name}"]`).waitFor()
  }

  action(name: string): Locator {
    return this.find(`[data-action="${name}"]`)
  }

  async press(...actions: string[]): Promise<void> {
    for (const name of actions) await this.action(name).first().click()
  }

  /** Wakes the page and goes to the screen of this tile. */
  async goTo(what: ScreenName): Promise<void> {
    await this.press('wake', 'start')
    await this.screen('home')
    if (what === 'home') return
    await this.press(`open-${what}`)
    await this.screen(what)
  }

  /** Types in place of what the field holds: as text, the old engine takes no keys from tools. */
  async type(field: string, text: string): Promise<void> {
    await this.field(field).click({ clickCount: 3 })
    await this.page.keyboard.insertText(text)
  }

  field(name: string): Locator {
    return this.find(`[data-field="${name}"]`)
  }

  /** Waits until the screen's headline says this. */
  async says(key: Key, values: Values = {}): Promise<void> {
    const words = this.t(key, values)
    const headline = this.find('h1').first()
    await expect.poll(() => headline.textContent(), { timeout: PATIENCE }).toBe(words)
  }

  /** Waits until this is told, with ways on. */
  async tells(problem: Problem, values: Values = {}, ...actions: string[]): Promise<void> {
    const panel = this.find(`[data-problem="${problem}"]`)
    await panel.waitFor()
    expect(await panel.locator('.panel-title').textContent()).toBe(this.t(titleOf(problem), values))
    expect(await panel.locator('.panel-text').textContent()).toBe(this.t(adviceOf(problem), values))
    for (const name of ['retry', 'skip', ...(actions.length ? actions : ['call-help'])]) {
      expect(await panel.locator(`[data-action="${name}"]`).isEnabled(), name).toBe(true)
    }
  }

  /** Waits until the robot's state is so. */
  async reaches(state: object): Promise<void> {
    await expect.poll(() => this.robot.state(), { timeout: PATIENCE }).toMatchObject(state)
  }

  /** Waits until the robot is told to say this. */
  async speaks(text: string): Promise<void> {
    await this.robot.waitForMessage('dialog.say', { where: (said) => said.text === text })
  }

  /** With PANOREL_PICTURES=FOLDER: what the page looks like now. */
  async picture(name: string): Promise<void> {
    if (!PICTURES) return
    const save = async (folder: string): Promise<void> => {
      mkdirSync(join(PICTURES, folder), { recursive: true })
      const path = join(PICTURES, folder, `${name}.png`)
      await this.page.screenshot({ path, animations: 'disabled' })
    }
    if (this.road.isScreen) {
      await save('screen')
      return
    }
    const before = this.page.viewportSize()
    for (const size of SIZES) {
      await this.page.setViewportSize(size)
      await save(`${size.width}x${size.height}`)
    }
    if (before) await this.page.setViewportSize(before)
  }
}
