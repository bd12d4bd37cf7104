import { describe, expect, it, vi } from 'vitest'
import { scanDocument, scanPassport } from '../src/index.js'
import { connected, failure, settled } from './support/robots.js'

describe.each([
  ['passport', scanPassport],
  ['document', scanDocument],
] as const)('scanning a %s', (kind, scan) => {
  const request = `scanner.${kind}.request` as const

  it('resolves with the fields', async () => {
    const { fake, robot } = await connected()
    const states: number[] = []
    expect(await scan(robot, { seconds: 15, onState: (state) => states.push(state) })).toEqual({
      name: 'ERIKA',
      number: 'C01X00T47',
    })
    expect(states).toEqual([1])
    expect(fake.sentOf(request)).toEqual([{ timeout: 15, ignore_not_connected: false }])
  })

  it('that does not start fails', async () => {
    const { fake, robot } = await connected()
    fake.answer(request, [`scanner.${kind}.response`, { success: false }] as never)
    await failure(scan(robot), 'not-started')
  })

  it('fails with code and words of the scanner', async () => {
    const { fake, robot } = await connected()
    fake.answer(
      request,
      [`scanner.${kind}.response`, { success: true }] as never,
      [`scanner.${kind}.error`, { code: '5', text: 'No document' }] as never,
    )
    const error = await failure(scan(robot), 'failed')
    expect(error).toMatchObject({
      code: 5,
      said: 'No document',
      message: 'the scan failed: No document',
    })
  })

  it('waits a minute longer than the scanner, and two wait for each other', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer(request, [`scanner.${kind}.response`, { success: true }] as never)
    const first = failure(scan(robot, { seconds: 10 }), 'timeout')
    const second = scan(robot)
    await vi.advanceTimersByTimeAsync(69999)
    expect(fake.sentOf(request).length).toBe(1)
    await vi.advanceTimersByTimeAsync(1)
    await first
    expect(fake.sentOf(request).length).toBe(2)
    fake.emitRaw({
      type: `scanner.${kind}.finish`,
      data: { ok: 'yes', odd: 7, ['__proto__']: 'x' },
    })
    const fields = await second
    expect(Object.entries(fields)).toEqual([
      ['ok', 'yes'],
      ['__proto__', 'x'],
    ])
    expect(fields.constructor).toBeUndefined()
  })

  it('survives a finish without data', async () => {
    const { fake, robot } = await connected()
    fake.answer(request)
    const scanning = scan(robot)
    await settled()
    fake.emitRaw({ type: `scanner.${kind}.finish` })
    expect(await scanning).toEqual({})
  })
})

describe('scanDocument', () => {
  it('sets the scanner and tells progress as numbers', async () => {
    const { fake, robot } = await connected()
    const seen: number[] = []
    await scanDocument(robot, {
      mode: 1,
      brightness: 0,
      resolution: 300,
      ignoreNotConnected: true,
      onProgress: (progress) => seen.push(progress),
    })
    expect(seen).toEqual([0.333333])
    expect(fake.sentOf('scanner.document.request')).toEqual([
      { mode: 1, brightness: 0, resolution: 300, timeout: 30, ignore_not_connected: true },
    ])
  })
})
