import { beforeEach, describe, expect, it, vi } from 'vitest'
import { connect, print, type Robot } from '../src/index.js'
import { type FakeRobot, fakeRobot } from '../src/testing/index.js'
import { takeConsole } from './support/console.js'
import { ChannelServer, QWebChannel } from './support/protocol.js'
import { failure, settled } from './support/robots.js'

// Everything here runs through Qt's own qwebchannel.js.
let fake: FakeRobot
let server: ChannelServer
let robot: Robot

beforeEach(async () => {
  fake = fakeRobot()
  server = new ChannelServer(await fake.open(() => {}).ready)
  vi.stubGlobal('QWebChannel', QWebChannel)
  vi.stubGlobal('qt', { webChannelTransport: server.page })
  robot = await connect()
  return () => robot.close()
})

describe('over the web channel', () => {
  it('messages go both ways', async () => {
    const heard: unknown[] = []
    robot.on('user.has.user', ({ name }) => heard.push(name))
    robot.send('system.log', { level: 'info', message: 'Page ready' })
    await settled()
    expect(fake.sentOf('system.log')).toEqual([{ level: 'info', message: 'Page ready' }])
    fake.emitRaw({ id: 'x', type: 'user.has.user', name: 'Ann' })
    expect(heard).toEqual(['Ann'])
  })

  it('replies come before the robot has done with the request', async () => {
    fake.answer('printer.print', 'printer.paper.low', 'printer.success')
    expect(await print(robot, 'x')).toEqual({ isPaperLow: true })
    fake.answer('printer.print')
    await failure(print(robot, 'x'), 'no-answer')
  })

  it('odd messages are dropped and stop nobody', async () => {
    const heard: string[] = []
    robot.onAny((topic) => heard.push(topic))
    for (const message of [null, 7, 'text', [], {}, { type: 7 }]) server.signal(message)
    server.signal(JSON.parse('{"type": "__proto__", "__proto__": {"x": 1}}'))
    fake.emit('user.lost.user')
    expect(heard).toEqual(['__proto__', 'user.lost.user'])
  })

  it('closing stops listening', async () => {
    const heard: string[] = []
    robot.onAny((topic) => heard.push(topic))
    robot.close()
    await settled()
    fake.emit('user.lost.user')
    expect(heard).toEqual([])
    expect(server.packets.slice(-1)).toEqual([{ type: 8, object: '_karvel_internal', signal: 0 }])
  })

  it('nothing is left of a message that cannot be sent', () => {
    expect(() => robot.send('system.custom.event.js', { big: BigInt(1) })).toThrow(TypeError)
  })
})

describe('while the robot is still busy with a request', () => {
  it('the next one waits, although the page gave up the first', async () => {
    vi.useFakeTimers()
    server.isHeld = true
    const first = failure(robot.request('printer.print', {}, { timeout: 1000 }), 'timeout')
    await vi.advanceTimersByTimeAsync(1000)
    await first
    const second = robot.request('printer.print', { data: 'second' })
    await settled()
    expect(fake.sent.length).toBe(1)

    // The late answer is the first one's.
    fake.answer('printer.print', 'printer.nopaper')
    server.release()
    expect((await second).topic).toBe('printer.nopaper')
    expect(vi.getTimerCount()).toBe(0)
  })

  it('late answers are not told to whoever gave up', async () => {
    server.isHeld = true
    const controller = new AbortController()
    const until = vi.fn(() => false)
    const { signal } = controller
    const given = failure(robot.request('printer.print', {}, { signal, until }), 'aborted')
    await settled()
    controller.abort()
    await given
    server.release()
    await settled()
    expect(until).not.toHaveBeenCalled()
  })

  it('closing leaves nothing behind', async () => {
    vi.useFakeTimers()
    server.isAwake = false
    const given = failure(robot.request('printer.print', {}, { timeout: 1000 }), 'timeout')
    await vi.advanceTimersByTimeAsync(1000)
    await given
    expect(vi.getTimerCount()).toBe(1)
    robot.close()
    expect(vi.getTimerCount()).toBe(0)
  })

  it('the next one waits once more as long, at the most', async () => {
    vi.useFakeTimers()
    server.isAwake = false
    const first = failure(robot.request('printer.print', {}, { timeout: 1000 }), 'timeout')
    const second = failure(robot.request('printer.print', {}, { timeout: 1000 }), 'timeout')
    const sent = () => server.packets.filter((packet) => packet.type === 6).length
    await vi.advanceTimersByTimeAsync(1999)
    await first
    expect(sent()).toBe(1)
    await vi.advanceTimersByTimeAsync(1)
    expect(sent()).toBe(2)
    await vi.advanceTimersByTimeAsync(1000)
    await second
  })

  it('an answer that comes later does not let the next one go before', async () => {
    server.isHeld = true
    const first = robot.request('mail.sender.request', { email: 'a' })
    const second = robot.request('mail.sender.request', { email: 'b' })
    await settled()
    expect(fake.sent.length).toBe(1)
    server.release()
    await Promise.all([first, second])
    expect(fake.sent.length).toBe(2)
  })
})

describe('the channel', () => {
  it('is opened once for all who connect', async () => {
    expect(await connect()).toBe(robot)
    robot.close()
    const next = await connect()
    expect(next).not.toBe(robot)
    expect(server.packets.filter((packet) => packet.type === 3).length).toBe(2)
    next.close()
  })

  it('is opened again until the robot is in it', async () => {
    vi.useFakeTimers()
    robot.close()
    server.hasObject = false
    const later = connect()
    await vi.advanceTimersByTimeAsync(1000)
    server.hasObject = true
    await vi.advanceTimersByTimeAsync(1000)
    const found = await later
    expect(found.state).toBe('connected')
    expect(vi.getTimerCount()).toBe(0)
    found.close()
  })

  it('without the robot is no robot', async () => {
    vi.useFakeTimers()
    robot.close()
    server.hasObject = false
    const error = failure(connect({ timeout: 2000 }), 'no-robot')
    await vi.advanceTimersByTimeAsync(2000)
    expect((await error).message).toBe(
      'no robot within 2000 ms: the web channel has no object _karvel_internal',
    )
    expect(vi.getTimerCount()).toBe(0)
  })

  it('that is silent is no robot', async () => {
    vi.useFakeTimers()
    robot.close()
    server.isAwake = false
    const error = failure(connect(), 'no-robot')
    await vi.advanceTimersByTimeAsync(10000)
    expect((await error).message).toBe('no robot within 10000 ms')
    // The next page that asks tries anew.
    server.isAwake = true
    const found = await connect()
    found.close()
  })

  it('may be one that the page has opened itself', async () => {
    const channel = await new Promise<{ objects: object }>((resolve) => {
      new QWebChannel(server.page, (opened) => resolve(opened as { objects: object }))
    })
    const own = await connect({ channel: channel as { objects: { [name: string]: unknown } } })
    expect((await own.request('printer.print')).topic).toBe('printer.success')
    own.close()
    await failure(connect({ channel: { objects: {} }, timeout: 20 }), 'no-robot')
    expect(takeConsole()).toEqual([])
  })
})
