import { describe, expect, it, vi } from 'vitest'
import {
  dispense,
  environment,
  getSetting,
  getSettings,
  isKeyboardVisible,
  keyboardLocale,
  print,
  printerState,
  touch,
} from '../src/index.js'
import type { FakeReply } from '../src/testing/index.js'
import { connected, failure } from './support/robots.js'

describe('print', () => {
  it('prints a canvas or a text', async () => {
    const { fake, robot } = await connected()
    expect(await print(robot, { toDataURL: () => 'canvas' })).toEqual({ isPaperLow: false })
    await print(robot, 'text', { ignoreNotConnected: true })
    expect(fake.sentOf('printer.print')).toEqual([
      { data: 'canvas', ignore_not_connected: false },
      { data: 'text', ignore_not_connected: true },
    ])
  })

  it('tells low paper beside the success, and fails all the same when printing fails', async () => {
    const { fake, robot } = await connected()
    fake.answer('printer.print', 'printer.paper.low', 'printer.success')
    expect(await print(robot, 'x')).toEqual({ isPaperLow: true })
    fake.answer('printer.print', 'printer.paper.low', 'printer.nopaper')
    await failure(print(robot, 'x'), 'no-paper')
  })

  it.each([
    ['printer.nopaper', 'no-paper'],
    ['printer.noprinter', 'missing-device'],
  ] as const)('after %s fails with %s', async (answer, kind) => {
    const { fake, robot } = await connected()
    fake.answer('printer.print', answer)
    await failure(print(robot, 'x'), kind)
  })

  it('that the robot does not answer fails at once', async () => {
    const { fake, robot } = await connected()
    fake.answer('printer.print')
    await failure(print(robot, 'x'), 'no-answer')
  })

  it('fails with what the printer says', async () => {
    const { fake, robot } = await connected()
    fake.answer('printer.print', 'printer.error')
    fake.answer('printer.state', [
      'printer.state.info',
      { state: 'ERROR', error_code: 7, error_message: 'jam' },
    ])
    expect(await failure(print(robot, 'x'), 'failed')).toMatchObject({
      code: 7,
      said: 'jam',
      message: 'the picture is not printed: jam',
    })
    fake.answer('printer.state', ['printer.state.info', { state: 'NOT_CONNECTED' }])
    await failure(print(robot, 'x'), 'not-connected')
    fake.answer('printer.state')
    expect((await failure(print(robot, 'x'), 'failed')).code).toBeUndefined()
  })

  it('fails with its own error when the printer cannot be asked any more', async () => {
    const { fake, robot } = await connected()
    fake.answer('printer.print', 'printer.error')
    robot.on('printer.error', () => setTimeout(() => robot.close()))
    fake.answer('printer.state', () => {
      robot.close()
      return []
    })
    await failure(print(robot, 'x'), 'failed')
  })

  it('takes a minute at the most, or as long as the page says', async () => {
    vi.useFakeTimers()
    const { robot, fake } = await connected()
    fake.open(() => {})
    const request = vi.spyOn(robot, 'request')
    await print(robot, 'x')
    await print(robot, 'x', { timeout: 5 })
    expect(request.mock.calls.map((call) => (call[2] as { timeout: number }).timeout)).toEqual([
      60000, 5,
    ])
  })
})

describe('printerState', () => {
  it('is what the printer last announced, or nothing', async () => {
    const { fake, robot } = await connected()
    expect(await printerState(robot)).toEqual({ state: 'IDLE' })
    await printerState(robot, { ignoreNotConnected: true })
    expect(fake.sentOf('printer.state')[1]).toEqual({ ignore_not_connected: true })
    fake.answer('printer.state')
    expect(await printerState(robot)).toBeUndefined()
  })
})

describe('dispense', () => {
  const sensor: FakeReply<'dispenser.dispense'> = ['dispenser.sensor', { sensor: 'DispSensor' }]

  it('resolves when the card stands at the exit', async () => {
    const { fake, robot } = await connected()
    const seen: string[] = []
    fake.answer(
      'dispenser.dispense',
      'dispenser.card.dispensing',
      ['dispenser.sensor', { sensor: 'CaptSensor1' }],
      sensor,
    )
    const result = await dispense(robot, {
      onStatus: (topic) => seen.push(topic),
      ignoreNotConnected: true,
    })
    expect(result).toEqual({ isLow: false, isBinFull: false })
    expect(seen).toEqual(['dispenser.card.dispensing', 'dispenser.sensor', 'dispenser.sensor'])
    expect(fake.sentOf('dispenser.dispense')).toEqual([{ ignore_not_connected: true }])
  })

  it('hands out the last card, although the robot says first that there are no more', async () => {
    const { fake, robot } = await connected()
    fake.answer(
      'dispenser.dispense',
      'dispenser.card.dispensing',
      'dispenser.card.empty',
      'dispenser.cardbin.full',
      sensor,
    )
    expect(await dispense(robot)).toEqual({ isLow: true, isBinFull: true })
    fake.answer('dispenser.dispense', 'dispenser.card.preempty', sensor)
    expect(await dispense(robot)).toEqual({ isLow: true, isBinFull: false })
  })

  it.each([
    [['dispenser.nodispenser'], 'missing-device', 'the robot has no card dispenser'],
    [['dispenser.not.connected'], 'not-connected', 'the card dispenser is not connected'],
    [['dispenser.card.empty'], 'no-cards', 'there are no cards left'],
    [['dispenser.card.error'], 'failed', 'the card could not be handed out'],
    [
      ['dispenser.card.empty', 'dispenser.card.error'],
      'failed',
      'the card could not be handed out',
    ],
    [['dispenser.communication.timeout'], 'failed', 'the card dispenser does not answer the robot'],
  ] as const)('after %j fails', async (answers, kind, message) => {
    const { fake, robot } = await connected()
    fake.answer('dispenser.dispense', ...answers)
    expect((await failure(dispense(robot), kind)).message).toBe(message)
  })

  it('that nothing comes of fails after half a minute', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('dispenser.dispense')
    const error = failure(dispense(robot), 'timeout')
    await vi.advanceTimersByTimeAsync(30000)
    await error
  })
})

describe('the keyboard', () => {
  it('is asked one thing at a time; a robot without one says nothing', async () => {
    const { fake, robot } = await connected()
    expect(await Promise.all([keyboardLocale(robot), isKeyboardVisible(robot)])).toEqual([
      'en_GB',
      false,
    ])
    fake.answer('keyboard.control.request')
    expect(await keyboardLocale(robot)).toBeUndefined()
    expect(await isKeyboardVisible(robot)).toBeUndefined()
  })
})

describe('settings', () => {
  const volume = { settings_type: 'system', group: 'sound', name: 'volume', value: 40 }

  it('come as a list', async () => {
    const { fake, robot } = await connected()
    expect(await getSettings(robot, 'system', 'sound')).toEqual([volume])
    expect(await getSettings(robot, 'application', 'sound')).toEqual([])
    expect(fake.sentOf('system.settings.get')[0]).toEqual({
      settings_type: 'system',
      group: 'sound',
      name: '',
    })
    fake.answer('system.settings.get')
    expect(await getSettings(robot, 'system', 'sound')).toEqual([])
  })

  it('come one by one', async () => {
    const { robot } = await connected()
    expect(await getSetting(robot, 'system', 'sound', 'volume')).toBe(40)
    expect(await getSetting(robot, 'system', 'sound', 'bass')).toBeUndefined()
  })

  it('tell which robot this is, without the line break', async () => {
    const { fake, robot } = await connected()
    expect(await environment(robot)).toMatchObject({ name: 'Robbie', id: 'robot-7' })
    fake.answer('system.environment.get')
    await failure(environment(robot), 'no-answer')
    fake.answer('system.environment.get', ['system.environment.load', {} as never])
    await failure(environment(robot), 'no-answer')
  })
})

describe('touch', () => {
  it('resolves with all faces that the robot knows there', async () => {
    const { fake, robot } = await connected()
    fake.answer(
      'system.general.touch',
      ['system.general.setted', { setted_id: 7 }],
      ['system.general.setted', { setted_id: 8 }],
    )
    expect(await touch(robot, 320, 200)).toEqual([7, 8])
    expect(fake.sentOf('system.general.touch')).toEqual([{ x: 320, y: 200 }])
    fake.answer('system.general.touch')
    expect(await touch(robot, 320, 200)).toEqual([])
  })
})
