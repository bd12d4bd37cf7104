import { mkdirSync, statSync } from 'node:fs'
import { join } from 'node:path'
import { fileURLToPath } from 'node:url'

/** What a robot may lack. */
export type SimulatedDevice =
  | 'printer'
  | 'dispenser'
  | 'passport-scanner'
  | 'document-scanner'
  | 'keyboard'
  | 'users'

/** How to start the simulator. */
export interface SimulatorOptions {
  /** The page to serve: an HTML file, or a folder with an index.html. Default: the page of a reception. */
  page?: string | URL
  /** The program. Default: what the environment variable PANOREL_SIMULATOR names, else the
   *  "panorel-simulator" on PATH. */
  simulator?: string
  /** How fast the robot's time runs, from 0.01 to 10000. Default 1. */
  speed?: number
  /** What the robot says and understands: a JSON file. Default: a robot at a reception. */
  scenario?: string | URL
  /** What the robot does not have. */
  without?: readonly SimulatedDevice[]
  /** Origins whose pages may speak to the robot, too, such as "http://localhost:5173". */
  allowOrigins?: readonly string[]
  /** The port to serve at. Default 0: any that is free. */
  port?: number
  /** Shows the page on the robot's screen, too, and lets tools drive that at this port of 127.0.0.1: the
   *  debugging port of the screen's web engine. */
  screenPort?: number
  /** Shows the robot and what can happen to it, in a window on the display. Default false. */
  display?: boolean
  /** Milliseconds in which it has to start. Default 30000. */
  timeout?: number
  /** Further environment variables; they win over those of this runner. */
  env?: { readonly [name: string]: string }
}

/** The arguments of the program, which keeps what it writes in @p folder. */
export function argumentsFor(options: SimulatorOptions, folder: string): string[] {
  const { page, scenario, speed, without, allowOrigins = [], port = 0 } = options
  const list = ['--serve', '--port', String(port), '--data', join(folder, 'data')]
  if (page !== undefined) list.push('--page', path(page))
  if (scenario !== undefined) list.push('--scenario', path(scenario))
  if (speed !== undefined) list.push('--speed', String(speed))
  if (without?.length) list.push('--without', without.join(','))
  if (options.screenPort !== undefined) list.push('--window')
  for (const origin of allowOrigins) list.push('--allow-origin', origin)
  return list
}

/** Its environment: no display, no sound server unless one is named, nothing of the user's. */
export function environmentFor(
  options: SimulatorOptions,
  folder: string,
): { [name: string]: string | undefined } {
  const own: { [name: string]: string } = {
    XDG_CACHE_HOME: join(folder, 'cache'),
    XDG_CONFIG_HOME: join(folder, 'config'),
    XDG_DATA_HOME: join(folder, 'data'),
  }
  if (!options.display) {
    own.QT_QPA_PLATFORM = 'offscreen'
    own.QT_QUICK_BACKEND = 'software'
    own.QTWEBENGINE_CHROMIUM_FLAGS = '--disable-gpu'
  }
  if (options.screenPort !== undefined)
    own.QTWEBENGINE_REMOTE_DEBUGGING = `127.0.0.1:${options.screenPort}`
  // Without this, the sound library might start a server, which would stay.
  if (!process.env.PULSE_SERVER) own.PULSE_SERVER = `unix:${join(folder, 'no-sound')}`
  // The web engine's sandbox refuses to run as root.
  if (process.getuid?.() === 0) own.QTWEBENGINE_DISABLE_SANDBOX = '1'
  if (!isFolder(process.env.XDG_RUNTIME_DIR)) {
    own.XDG_RUNTIME_DIR = join(folder, 'run')
    mkdirSync(own.XDG_RUNTIME_DIR, { mode: 0o700 })
  }
  return { ...process.env, ...own, ...options.env }
}

function path(given: string | URL): string {
  return typeof given === 'string' ? given : fileURLToPath(given)
}

function isFolder(name: string | undefined): boolean {
  return !!name && !!statSync(name, { throwIfNoEntry: false })?.isDirectory()
}
