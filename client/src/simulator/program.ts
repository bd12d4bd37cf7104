import { accessSync, constants, statSync } from 'node:fs'
import { delimiter, join, resolve } from 'node:path'
import { SimulatorError } from './errors.js'

const NAME = 'panorel-simulator'
const VARIABLE = 'PANOREL_SIMULATOR'

/** The simulator's program: @p given, or what the environment names, or the first on PATH. */
export function findProgram(given: string | undefined, environment = process.env): string {
  const named = given ?? (environment[VARIABLE] || undefined)
  if (named !== undefined) {
    if (isProgram(named)) return resolve(named)
    const where =
      given === undefined ? `the environment variable ${VARIABLE}` : 'option "simulator"'
    throw new SimulatorError('not-found', `${where} names "${named}", which is no program`)
  }
  const folders = (environment.PATH ?? '').split(delimiter).filter(Boolean)
  const found = folders.map((folder) => join(folder, NAME)).find(isProgram)
  if (found) return resolve(found)
  throw new SimulatorError(
    'not-found',
    `there is no ${NAME}: option "simulator" and the environment variable ${VARIABLE} name none, ` +
      `and it is in no folder of PATH (${folders.join(delimiter)})`,
  )
}

function isProgram(path: string): boolean {
  try {
    accessSync(path, constants.X_OK)
    return statSync(path).isFile()
  } catch {
    return false
  }
}
