/// <reference lib="esnext.disposable" preserve="true" />
import { mkdtempSync, rmSync } from 'node:fs'
import { tmpdir } from 'node:os'
import { join } from 'node:path'
import { SimulatorError } from './errors.js'
import { askServer } from './http.js'
import { argumentsFor, environmentFor, type SimulatorOptions } from './options.js'
import { Watched } from './process.js'
import { findProgram } from './program.js'
import { createRobot, type SimulatedRobot } from './robot.js'

/** A simulator that runs. */
export interface Simulator extends AsyncDisposable {
  /** The page's address, token included. */
  readonly url: string
  readonly robot: SimulatedRobot
  /** Ends it. Resolves when it is gone, also when it has gone before. */
  stop(): Promise<void>
}

const START_TIME = 30000
const ANSWER_TIME = 10000
const GRACE = 5000
const LAST_MOMENT = 500

/**
 * Starts a simulated robot that serves a page to any browser. Resolves when the page can be opened.
 * It ends with `stop()`, and with Node at the latest, however that ends.
 *
 * @example
 * const simulator = await startSimulator({ page: 'dist', speed: 20 })
 * await simulator.robot.enter({ name: 'Ada' })
 * await simulator.stop()
 */
export async function startSimulator(options: SimulatorOptions = {}): Promise<Simulator> {
  const program = findProgram(options.simulator)
  const folder = mkdtempSync(join(tmpdir(), 'panorel-simulator-'))
  const watched = launch(program, options, folder)
  const stop = () => watched.stop(GRACE)
  try {
    const said = await watched.line(/^Serving (.*)\n/m, options.timeout ?? START_TIME)
    const address = addressIn(said)
    const robot = createRobot((path, body) => ask(watched, address, path, body))
    return { url: address.href, robot, stop, [Symbol.asyncDispose]: stop }
  } catch (error) {
    await stop()
    throw error
  }
}

// What cannot even be started leaves no folder behind.
function launch(program: string, options: SimulatorOptions, folder: string): Watched {
  try {
    const environment = environmentFor(options, folder)
    return new Watched(program, argumentsFor(options, folder), environment, folder)
  } catch (error) {
    rmSync(folder, { recursive: true, force: true })
    throw error
  }
}

function addressIn(said: string): URL {
  try {
    return new URL(said)
  } catch {
    throw new SimulatorError('refused', `the simulator serves at "${said}", which is no address`)
  }
}

async function ask(watched: Watched, page: URL, path: string, body?: object): Promise<unknown> {
  const address = new URL(`/robot/${path}`, page)
  address.searchParams.set('token', page.searchParams.get('token') ?? '')
  const answer = await askServer(address, body, ANSWER_TIME).catch(async (error: Error) => {
    // A connection breaks before its other end is gone.
    const moment = new Promise((resolve) => setTimeout(resolve, LAST_MOMENT))
    await Promise.race([watched.whenEnded(), moment])
    throw watched.hasEnded ? watched.ending() : new SimulatorError('refused', error.message)
  })
  const { status, value } = answer
  if (status === 200 && value !== undefined) return value
  const reason = (value as { error?: string } | undefined)?.error ?? `status ${status}`
  throw new SimulatorError('refused', `${path.split('?')[0]}: ${reason}`)
}
