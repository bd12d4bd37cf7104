import { describe, expect, it, vi } from 'vitest'
import {
  addUser,
  call,
  callOperator,
  callWithFile,
  callWithText,
  deleteUser,
  getReplica,
  getUser,
  play,
  record,
  sayToEnd,
  sendMail,
  startScript,
  stopRecording,
  volumes,
} from '../src/index.js'
import { connected, failure, settled } from './support/robots.js'

describe('speech', () => {
  it('sayToEnd resolves when this line has ended, not the one before', async () => {
    const { fake, robot } = await connected()
    fake.answer('dialog.say')
    let isDone = false
    const speaking = sayToEnd(robot, 'Hi', { terminate: false }).then(() => {
      isDone = true
    })
    await settled()
    fake.emit('dialog.robot.replic.finish')
    fake.emit('dialog.robot.replic.start', { text: 'Hi' })
    await settled()
    expect(isDone).toBe(false)
    fake.emit('dialog.robot.replic.finish')
    await speaking
    expect(fake.sentOf('dialog.say')).toEqual([{ text: 'Hi', terminate: false }])
    await sayToEnd(robot, '')
    expect(fake.sent.length).toBe(1)
  })

  it('getReplica resolves with the replica or nothing', async () => {
    const { fake, robot } = await connected()
    expect(await getReplica(robot, { step: 'welcome' })).toMatchObject({ text: 'Welcome!' })
    expect(fake.sentOf('dialog.replica.get')).toEqual([{ step: 'welcome' }])
    fake.answer('dialog.replica.get')
    expect(await getReplica(robot, { replica_type: 1 })).toBeUndefined()
  })
})

describe('people', () => {
  it('are read, added and deleted', async () => {
    const { fake, robot } = await connected()
    expect(await getUser(robot, 7)).toMatchObject({ name: 'Ann' })
    expect(await getUser(robot, 8)).toBeUndefined()
    expect(await addUser(robot, { id: 8, name: 'Ben' })).toBe(true)
    expect(await deleteUser(robot, 7)).toBe(true)
    expect(await deleteUser(robot, 9)).toBe(false)
    expect(fake.sentOf('database.user.request')[2]).toEqual({ add_user: { id: 8, name: 'Ben' } })
  })

  it('without an answer fail', async () => {
    const { fake, robot } = await connected()
    fake.answer('database.user.request')
    await failure(getUser(robot, 7), 'no-answer')
    fake.answer('database.user.request', ['database.user.response', { response: null as never }])
    await failure(addUser(robot, {}), 'no-answer')
  })
})

describe('the operator', () => {
  it('answers with a number, however long others take over meanwhile', async () => {
    const { fake, robot } = await connected()
    fake.answer(
      'operator.call.request',
      ['operator.control.status', { status: true }],
      ['operator.call.response', { response: '2' }],
    )
    expect(await callOperator(robot)).toBe(2)
    expect(fake.sentOf('operator.call.request')).toEqual([{ call: true }])
  })

  it('has two minutes', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('operator.call.request')
    const error = failure(callOperator(robot), 'timeout')
    await vi.advanceTimersByTimeAsync(120000)
    await error
  })
})

describe('sound', () => {
  it('tells both volumes', async () => {
    const { fake, robot } = await connected()
    expect(await volumes(robot)).toEqual({ volume: 40, mic: 70 })
    fake.answer('system.sound.properties')
    await failure(volumes(robot), 'no-answer')
  })

  it('plays to the end', async () => {
    const { fake, robot } = await connected()
    expect(await play(robot, 'file:///a.wav', { volume: 40 })).toBe('end')
    expect(await play(robot, 'file:///b.wav')).toBe('end')
    expect(fake.sentOf('system.play.external')).toEqual([
      { url: 'file:///a.wav', volume: 40 },
      { url: 'file:///b.wav' },
    ])
    await failure(play(robot, ''), 'not-started')
  })

  it('plays one after another, until it is stopped', async () => {
    const { fake, robot } = await connected()
    fake.answer('system.play.external', ({ url, stop }) => {
      const states = url === 'long' || stop ? [] : (['PlayingState', 'EndOfMedia'] as const)
      return states.map((status) => ['system.play.status', { status }] as const)
    })
    const [long, short] = [play(robot, 'long'), play(robot, 'short')]
    await settled()
    fake.emit('system.play.status', { status: 'PlayingState' })
    await settled()
    expect(fake.sentOf('system.play.external')).toEqual([{ url: 'long' }])
    fake.emit('system.play.status', { status: 'StoppedState' })
    expect(await long).toBe('stopped')
    expect(await short).toBe('end')
  })

  it('does not take the stop of what played before for its own, and tells its own', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer(
      'system.play.external',
      ['system.play.status', { status: 'StoppedState' }],
      ['system.play.status', { status: 'EndOfMedia' }],
      ['system.play.status', { status: 'PlayingState' }],
    )
    const playing = play(robot, 'file:///a.wav')
    await vi.advanceTimersByTimeAsync(100000)
    fake.emit('system.play.status', { status: 'StoppedState' })
    await vi.advanceTimersByTimeAsync(250)
    expect(await playing).toBe('stopped')
  })

  it('waits ten minutes for the end', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('system.play.external', ['system.play.status', { status: 'PlayingState' }])
    const error = failure(play(robot, 'file:///a.wav'), 'timeout')
    await vi.advanceTimersByTimeAsync(599999)
    expect(vi.getTimerCount()).toBe(1)
    await vi.advanceTimersByTimeAsync(1)
    await error
  })

  it('fails with what the player says, also after it stopped', async () => {
    const { fake, robot } = await connected()
    fake.answer(
      'system.play.external',
      ['system.play.status', { status: 'PlayingState' }],
      ['system.play.status', { status: 'StoppedState' }],
      ['system.play.status', { status: 'error', error: 1, error_description: 'Not Found' }],
    )
    expect(await failure(play(robot, 'file:///a.wav'), 'failed')).toMatchObject({
      code: 1,
      said: 'Not Found',
    })
  })

  it('records until the time is over or the page stops it', async () => {
    const { fake, robot } = await connected()
    const file = '/tmp/record_2026-05-04_10:15:00.000.wav'
    expect(await record(robot, 5)).toBe(file)
    expect(fake.sentOf('record.audio.request')).toEqual([{ start: true, timeout: 5 }])
    fake.answer('record.audio.request', ({ stop }) =>
      stop ? [['record.audio.response', { file: 'short' }]] : [],
    )
    const recording = record(robot)
    await settled()
    stopRecording(robot)
    expect(await recording).toBe('short')
  })

  it('gives the recording ten seconds more', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('record.audio.request')
    const error = failure(record(robot), 'timeout')
    await vi.advanceTimersByTimeAsync(30000)
    await error
  })
})

describe('the telephone', () => {
  it('calls, or says that it does not', async () => {
    const { fake, robot } = await connected()
    await call(robot, '100')
    expect(fake.sentOf('sip.control')).toEqual([{ call_start: { number: '100' } }])
    fake.answer('sip.control', ['sip.call.response', { result: false }])
    expect((await failure(call(robot, '100'), 'not-started')).message).toBe('100 is not called')
    fake.answer('sip.control')
    await failure(call(robot, '100'), 'not-started')
  })

  it.each([
    [
      callWithText,
      { play_text: { number: '100', text: 'x', recall_count: 1 } },
      'sip.text.response',
    ],
    [
      callWithFile,
      { play_file: { number: '100', file: 'x', recall_count: 1 } },
      'sip.file.response',
    ],
  ] as const)('queues calls', async (queue, attributes, answer) => {
    const { fake, robot } = await connected()
    expect(await queue(robot, '100', 'x')).toBe('{9e4b1d70-5c2f-4a8e-b6d3-17f0a9c5e248}')
    expect(fake.sentOf('sip.control')).toEqual([attributes])
    await queue(robot, '100', 'x', { recalls: 3 })
    expect(JSON.stringify(fake.sentOf('sip.control')[1])).toContain('"recall_count":3')
    fake.answer('sip.control', [answer, { uuid: '{00000000-0000-0000-0000-000000000000}' }])
    await failure(queue(robot, '100', 'x'), 'not-started')
    fake.answer('sip.control')
    await failure(queue(robot, '100', 'x'), 'not-started')
  })
})

describe('mail', () => {
  it('is sent', async () => {
    const { fake, robot } = await connected()
    const mail = { email: 'ann@example.com', subject: 'Visitor' }
    await sendMail(robot, mail)
    expect(fake.sentOf('mail.sender.request')).toEqual([mail])
  })

  it('fails with code and words of the server', async () => {
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request', [
      'mail.sender.response',
      { status: 'error', code: '535', text: 'Who are you?' },
    ])
    expect(await failure(sendMail(robot, { email: 'a' }), 'failed')).toMatchObject({
      code: 535,
      said: 'Who are you?',
    })
    fake.answer('mail.sender.request', [
      'mail.sender.response',
      { status: 'error', code: 'x', text: 7 } as never,
    ])
    const error = await failure(sendMail(robot, { email: 'a' }), 'failed')
    expect([error.code, error.said]).toEqual([undefined, undefined])
  })
})

describe('scripts', () => {
  it('tell what the engine says', async () => {
    const { fake, robot } = await connected()
    expect(await startScript(robot, 'welcome')).toEqual(['started'])
    fake.answer('system.scripts.control')
    await failure(startScript(robot, 'welcome'), 'no-answer')
  })
})
