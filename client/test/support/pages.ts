import { copyFileSync, mkdirSync, mkdtempSync, rmSync } from 'node:fs'
import { tmpdir } from 'node:os'
import { join } from 'node:path'
import { fileURLToPath } from 'node:url'
import type { Browser, Page } from 'playwright-core'
import { afterAll, beforeAll, beforeEach, expect } from 'vitest'
import { type SimulatedRobot, type Simulator, startSimulator } from '../../src/simulator/index.js'
import { launchBrowser } from './browser.js'

const source = (name: string) => fileURLToPath(new URL(`../../${name}`, import.meta.url))

/** The page of docs/client.md: for each test a robot and an empty tab of a browser. */
export class Desk {
  simulator!: Simulator
  page!: Page

  constructor() {
    let folder: string
    let browser: Browser
    beforeAll(async () => {
      folder = mkdtempSync(join(tmpdir(), 'panorel-pages-'))
      mkdirSync(join(folder, 'page'))
      copyFileSync(source('examples/page.html'), join(folder, 'page/index.html'))
      copyFileSync(source('dist/panorel.min.js'), join(folder, 'page/panorel.min.js'))
      browser = await launchBrowser()
    })
    afterAll(async () => {
      await browser?.close()
      rmSync(folder, { recursive: true })
    })
    beforeEach(async () => {
      const simulator = await startSimulator({ page: join(folder, 'page'), speed: 20 })
      const page = await browser.newPage()
      page.setDefaultTimeout(8000)
      Object.assign(this, { simulator, page })
      return async () => {
        await page.close()
        await simulator.stop()
      }
    })
  }

  get robot(): SimulatedRobot {
    return this.simulator.robot
  }

  /** Opens the page, and waits until it has found its robot. */
  async open(): Promise<void> {
    await this.page.goto(this.simulator.url)
    await this.robot.waitForMessage('system.language.set')
  }

  /** Waits until the robot's state is so. */
  async reaches(state: object): Promise<void> {
    await expect.poll(() => this.robot.state(), { timeout: 5000 }).toMatchObject(state)
  }
}
