import { expect } from 'vitest'
import type { ErrorKind, Robot } from '../../src/index.js'
import { PanorelError } from '../../src/index.js'
import { type FakeRobot, fakeRobot } from '../../src/testing/index.js'

/** A fake robot and the connection to it. */
export async function connected(): Promise<{ fake: FakeRobot; robot: Robot }> {
  const fake = fakeRobot()
  return { fake, robot: await fake.connect() }
}

/** Lets everything happen that is about to. */
export async function settled(): Promise<void> {
  for (let turn = 0; turn < 20; turn += 1) await Promise.resolve()
}

/** What a promise rejects with, which has to be of this kind. */
export async function failure(promise: Promise<unknown>, kind: ErrorKind): Promise<PanorelError> {
  const error = await promise.then(
    (value) => expect.fail(`resolved with ${JSON.stringify(value)}`),
    (reason: unknown) => reason,
  )
  expect(error).toBeInstanceOf(PanorelError)
  expect((error as PanorelError).kind).toBe(kind)
  return error as PanorelError
}
