import { type ChildProcess, spawn } from 'node:child_process'
import {
  cpSync,
  mkdtempSync,
  readFileSync,
  realpathSync,
  rmSync,
  symlinkSync,
  writeFileSync,
} from 'node:fs'
import { createServer } from 'node:net'
import { tmpdir } from 'node:os'
import { basename, join } from 'node:path'
import { fileURLToPath } from 'node:url'
import { afterEach, beforeEach, expect, it } from 'vitest'
import { askServer } from '../../src/simulator/http.js'
import { argumentsFor, environmentFor } from '../../src/simulator/options.js'
import { findProgram } from '../../src/simulator/program.js'
import { createRobot } from '../../src/simulator/robot.js'
import { launchBrowser } from '../support/browser.js'

const template = fileURLToPath(new URL('../../template/', import.meta.url))

let folder: string
let child: ChildProcess | undefined

beforeEach(() => {
  folder = realpathSync(mkdtempSync(join(tmpdir(), 'panorel-template-')))
})

afterEach(async () => {
  const ended = child && new Promise((resolve) => child?.once('exit', resolve))
  if (child?.exitCode === null && child.kill()) await ended
  child = undefined
  rmSync(folder, { recursive: true, maxRetries: 10, retryDelay: 100 })
})

/** Runs a program until its output fits; resolves with what the groups hold. */
function saying(program: string, list: string[], options: object, pattern: RegExp) {
  const started = spawn(program, list, { stdio: ['ignore', 'pipe', 'pipe'], ...options })
  child = started
  return new Promise<string[]>((resolve, reject) => {
    let output = ''
    const hear = (text: Buffer) => {
      output += text
      const match = pattern.exec(output)
      if (match) resolve(match.slice(1))
    }
    started.stdout.on('data', hear)
    started.stderr.on('data', hear)
    started.on('error', reject)
    started.on('exit', () => reject(new Error(`it ended and said:\n${output}`)))
  })
}

function freePort(): Promise<number> {
  return new Promise((resolve) => {
    const server = createServer().listen(0, '127.0.0.1', () => {
      const { port } = server.address() as { port: number }
      server.close(() => resolve(port))
    })
  })
}

it("runs from files in the robot's own web engine", async () => {
  const page = join(template, 'dist')
  expect(readFileSync(join(page, 'index.html'), 'utf8')).not.toMatch(/module|crossorigin/)
  // The window shows the page when nothing is served; the log tells what the page asks for.
  const [, , , ...list] = argumentsFor({ page }, folder)
  const env = environmentFor({ env: { QT_LOGGING_RULES: '' } }, folder)
  const asked = /ReplicEventHandler QJsonObject\((.*)\)\n/
  const [said = ''] = await saying(findProgram(undefined), [...list, '--log'], { env }, asked)
  expect(JSON.parse(said)).toMatchObject({ type: 'dialog.say', text: 'Welcome' })
})

it('shows changes at once, with its robot behind the development server', async () => {
  const skipped = ['node_modules', 'dist', 'test-results']
  const copy = join(folder, 'page')
  cpSync(template, copy, { recursive: true, filter: (name) => !skipped.includes(basename(name)) })
  symlinkSync(join(template, 'node_modules'), join(copy, 'node_modules'))
  const env = { ...process.env, PORT: String(await freePort()), DISPLAY: '', WAYLAND_DISPLAY: '' }
  const options = { cwd: copy, env }
  const told = /robot alone: (http:\S+)\n.*robot: (http:\S+)\n/
  const [alone = '', url = ''] = await saying(process.execPath, ['dev.mjs'], options, told)

  const browser = await launchBrowser()
  try {
    const page = await browser.newPage()
    page.setDefaultTimeout(8000)
    const hot = page.waitForEvent('console', (line) => line.text() === '[vite] connected.')
    await page.goto(url)
    await hot
    const robot = createRobot(async (path, body) => {
      const address = new URL(`/robot/${path}`, alone)
      address.searchParams.set('token', new URL(alone).searchParams.get('token') ?? '')
      return (await askServer(address, body, 5000)).value
    })
    await robot.waitForMessage('dialog.say')
    await robot.enter({ name: 'Ada' })
    await page.getByText('Hello Ada').waitFor()
    await page.evaluate(() => Object.assign(self, { isTheSame: true }))
    const css = join(copy, 'page.css')
    writeFileSync(css, readFileSync(css, 'utf8').replace('#f3f6f9', 'rgb(1, 2, 3)'))
    await expect
      .poll(() => page.evaluate(() => getComputedStyle(document.body).backgroundColor), {
        timeout: 8000,
      })
      .toBe('rgb(1, 2, 3)')
    expect(await page.evaluate(() => 'isTheSame' in self)).toBe(true)
    await page.getByText('Hello Ada').waitFor()
  } finally {
    await browser.close()
  }
})
