import { cpSync, mkdtempSync, rmSync, writeFileSync } from 'node:fs'
import { tmpdir } from 'node:os'
import { join } from 'node:path'
import type { Config } from '../../../src/config.js'

/** The page as it is built, with the changes of a site. */
export interface Site {
  readonly folder: string
  remove(): void
}

// Nobody is forgotten, and no greeting ends, unless a test is about that.
const patient: Partial<Config> = { idleSeconds: 3600, busySeconds: 3600, greetingSeconds: 3600 }

export function createSite(changes: Partial<Config> = {}): Site {
  const folder = mkdtempSync(join(tmpdir(), 'panorel-reception-'))
  // "npm run test:browser" builds it before.
  cpSync(join(process.cwd(), 'dist'), folder, { recursive: true })
  const config = JSON.stringify({ ...patient, ...changes })
  writeFileSync(join(folder, 'config.js'), `window.reception = ${config}\n`)
  return { folder, remove: () => rmSync(folder, { recursive: true }) }
}
