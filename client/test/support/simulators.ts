import { existsSync, mkdtempSync, readdirSync, readFileSync, rmSync } from 'node:fs'
import { tmpdir } from 'node:os'
import { join } from 'node:path'
import { fileURLToPath } from 'node:url'
import { afterEach, beforeEach, expect } from 'vitest'
import { SimulatorError, type SimulatorErrorKind } from '../../src/simulator/index.js'

/** A program that stands for the simulator. */
export const fakeSimulator = fileURLToPath(new URL('fake-simulator.mjs', import.meta.url))

/** What the program tells of itself. */
export interface Report {
  arguments: string[]
  environment: { [name: string]: string }
  data: string
  pid: number
  helper: number
}

/** A folder for each test, for what it writes and for all temporary files. */
export function ownFolder(): { readonly path: string; report(): Report } {
  const before = process.env.TMPDIR
  let path = ''
  beforeEach(() => {
    path = mkdtempSync(join(tmpdir(), 'panorel-test-'))
    process.env.TMPDIR = path
  })
  afterEach(async () => {
    await until(() => !folders(path).length)
    const left = folders(path)
    if (before === undefined) delete process.env.TMPDIR
    else process.env.TMPDIR = before
    rmSync(path, { recursive: true })
    expect(left, 'temporary folders that stay').toEqual([])
  })
  return {
    get path() {
      return path
    },
    report: () => JSON.parse(readFileSync(join(path, 'report'), 'utf8')) as Report,
  }
}

function folders(path: string): string[] {
  return readdirSync(path).filter((name) => name.startsWith('panorel-simulator-'))
}

/** Waits until this holds, but not for ever. */
export async function until(condition: () => boolean): Promise<void> {
  for (let turn = 0; turn < 500 && !condition(); turn += 1) {
    await new Promise((resolve) => setTimeout(resolve, 20))
  }
}

/** Whether a process is there; one that only waits to be counted is not. */
export function runs(pid: number): boolean {
  const status = `/proc/${pid}/status`
  try {
    return existsSync(status) && !/^State:\s+[ZX]/m.test(readFileSync(status, 'utf8'))
  } catch {
    return false // gone meanwhile
  }
}

/** What a promise rejects with, which has to be of this kind. */
export async function simulatorFailure(
  promise: Promise<unknown>,
  kind: SimulatorErrorKind,
): Promise<string> {
  const error = await promise.then(
    () => expect.fail('resolved'),
    (reason: unknown) => reason,
  )
  expect(error).toBeInstanceOf(SimulatorError)
  expect((error as SimulatorError).kind).toBe(kind)
  return (error as SimulatorError).message
}
