import { existsSync } from 'node:fs'
import { type Browser, chromium } from 'playwright-core'

const PLACES = ['/usr/bin/chromium', '/usr/bin/chromium-browser', '/usr/bin/google-chrome']

/** The desk's own browser: the one that the environment variable CHROMIUM names, or Debian's. Its camera
 *  shows a moving picture. */
export function launchBrowser(): Promise<Browser> {
  const executablePath = process.env.CHROMIUM || PLACES.find((path) => existsSync(path))
  if (!executablePath) throw new Error('no Chromium: install it, or name it with CHROMIUM')
  return chromium.launch({
    executablePath,
    // Its sandbox refuses to run as root.
    chromiumSandbox: process.getuid?.() !== 0,
    args: ['--use-fake-device-for-media-stream', '--use-fake-ui-for-media-stream'],
  })
}
