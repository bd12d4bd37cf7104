import { createServer } from 'node:net'
import {
  type Simulator,
  type SimulatorOptions,
  startSimulator,
} from 'panorel-client/testing/simulator'
import { type Browser, chromium, type Page } from 'playwright-core'
import { afterAll, describe } from 'vitest'
import { launchBrowser } from './browser.js'
import { startRelay } from './relay.js'

/** A robot, and the page in front of it. */
export interface Opened {
  readonly simulator: Simulator
  readonly page: Page
  close(): Promise<void>
}

/** How page and robot come together. */
export interface Road {
  readonly name: string
  /** Whether the page runs in the robot's own, old web engine. */
  readonly isScreen: boolean
  open(options: SimulatorOptions): Promise<Opened>
}

// One for all tests of a file.
let browser: Promise<Browser> | undefined

afterAll(async () => {
  await (await browser)?.close()
})

/** Debian's Chromium, over a WebSocket. */
export const desk: Road = {
  name: 'in Chromium',
  isScreen: false,
  async open(options) {
    const simulator = await startSimulator(options)
    browser ??= launchBrowser()
    const context = await (await browser).newContext({ viewport: { width: 1280, height: 800 } })
    const page = await context.newPage()
    await page.goto(simulator.url)
    return {
      simulator,
      page,
      async close() {
        await context.close()
        await simulator.stop()
      },
    }
  },
}

/** The robot's screen, over its widget; the page comes from files. */
const screen: Road = {
  name: "on the robot's screen",
  isScreen: true,
  async open(options) {
    const screenPort = await freePort()
    const simulator = await startSimulator({ ...options, screenPort })
    const relay = await startRelay(screenPort)
    const tool = await chromium.connectOverCDP(relay.address)
    const page = tool.contexts()[0]?.pages()[0]
    if (!page) throw new Error('the screen shows no page')
    return {
      simulator,
      page,
      async close() {
        await tool.close()
        await relay.close()
        await simulator.stop()
      },
    }
  },
}

/** The same tests over both roads. */
export function onBothRoads(tests: (road: Road) => void): void {
  for (const road of [desk, screen]) describe(road.name, () => tests(road))
}

function freePort(): Promise<number> {
  return new Promise((resolve) => {
    const server = createServer().listen(0, '127.0.0.1', () => {
      const { port } = server.address() as { port: number }
      server.close(() => resolve(port))
    })
  })
}
