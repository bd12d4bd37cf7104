import { beforeEach, describe, expect, it, vi } from 'vitest'
import { connect, type RobotState } from '../src/index.js'
import { fakeRobot } from '../src/testing/index.js'
import { takeConsole } from './support/console.js'
import { ChannelServer, QWebChannel } from './support/protocol.js'
import { connected, failure, settled } from './support/robots.js'

/** A WebSocket to a server that the test plays. */
class Socket {
  static all: Socket[] = []
  onopen: (() => void) | null = null
  onclose: ((event: { code: number; reason: string }) => void) | null = null
  onmessage: ((event: { data: string }) => void) | null = null
  isClosed = false
  get readyState() {
    return this.isClosed ? 3 : 1
  }
  constructor(readonly url: string) {
    Socket.all.push(this)
  }
  send(_text: string) {}
  close() {
    this.isClosed = true
  }
  lose(code = 1006, reason = '') {
    this.isClosed = true
    this.onclose?.({ code, reason })
  }
  async accept() {
    new ChannelServer(await fakeRobot().open(() => {}).ready, this as never)
    this.onopen?.()
    await settled()
  }
}

beforeEach(() => {
  Socket.all = []
  vi.stubGlobal('WebSocket', Socket)
  vi.stubGlobal('QWebChannel', QWebChannel)
  vi.useFakeTimers()
})

async function overSocket() {
  const opening = connect({ url: 'http://localhost:8080/?token=secret' })
  await Socket.all[0]?.accept()
  const robot = await opening
  const states: RobotState[] = []
  robot.onState((state) => states.push(state))
  return { robot, states }
}

describe('without a robot', () => {
  it('connecting fails at once', async () => {
    const error = await failure(connect(), 'no-robot')
    expect(error.message).toMatch(/^no robot here: /)
    expect(vi.getTimerCount()).toBe(0)
  })

  it.each(['http://localhost:8080/', 'file:///page.html?token=x', 'about:blank'])(
    'the address %s leads nowhere',
    async (href) => {
      vi.stubGlobal('location', { href })
      await failure(connect(), 'no-robot')
      expect(Socket.all).toEqual([])
    },
  )

  it('the server that does not answer is named, its token is not', async () => {
    const error = failure(
      connect({ url: 'http://localhost:8080/?token=secret', timeout: 3000 }),
      'no-robot',
    )
    await settled()
    Socket.all[0]?.lose()
    await vi.advanceTimersByTimeAsync(3000)
    expect((await error).message).toBe(
      'no robot within 3000 ms: no connection to ws://localhost:8080/channel',
    )
    expect(vi.getTimerCount()).toBe(0)
  })
})

describe('a server that refuses the page', () => {
  const url = 'http://localhost:8080/?token=secret'
  const message = 'ws://localhost:8080/channel refuses this page: wrong token'

  it.each([
    ['before the handshake has ended', () => {}],
    ['right after the handshake', (socket: Socket) => socket.onopen?.()],
    ['while the web channel opens', (socket: Socket) => [socket.onopen?.(), settled()][1]],
  ])('%s is not asked again, and its reason is told at once', async (_, act) => {
    const error = failure(connect({ url }), 'no-robot')
    const [socket] = Socket.all as [Socket]
    await act(socket)
    socket.lose(1008, 'wrong token')
    expect(await error).toMatchObject({ message, code: 1008, said: 'wrong token' })
    await vi.advanceTimersByTimeAsync(60000)
    expect(Socket.all.length).toBe(1)
    expect(vi.getTimerCount()).toBe(0)
  })

  it('need not say why', async () => {
    const error = failure(connect({ url }), 'no-robot')
    Socket.all[0]?.lose(1008)
    expect((await error).message).toBe('ws://localhost:8080/channel refuses this page')
  })

  it('is not asked again at a second attempt either', async () => {
    const error = failure(connect({ url }), 'no-robot')
    Socket.all[0]?.lose()
    await vi.advanceTimersByTimeAsync(250)
    Socket.all[1]?.onopen?.()
    Socket.all[1]?.lose(1008, 'wrong token')
    expect((await error).message).toBe(message)
    expect(vi.getTimerCount()).toBe(0)
  })

  it('at a reconnect closes the robot', async () => {
    const { robot, states } = await overSocket()
    Socket.all[0]?.lose()
    await vi.advanceTimersByTimeAsync(250)
    Socket.all[1]?.onopen?.()
    Socket.all[1]?.lose(1008, 'wrong token')
    await vi.advanceTimersByTimeAsync(60000)
    expect([robot.state, ...states]).toEqual(['closed', 'reconnecting', 'closed'])
    expect(takeConsole()).toEqual([`panorel: ${message}`])
    expect(Socket.all.length).toBe(2)
    expect(Socket.all[1]?.isClosed).toBe(true)
    await failure(robot.request('printer.print'), 'disconnected')
  })

  it('closes a robot that is connected, and rejects what is under way', async () => {
    const { robot, states } = await overSocket()
    const request = failure(robot.request('operator.call.request', { call: false }), 'disconnected')
    Socket.all[0]?.lose(1008, 'another page has the robot')
    expect((await request).said).toBeUndefined()
    expect((await request).message).toContain('another page has the robot')
    await vi.advanceTimersByTimeAsync(60000)
    expect(states).toEqual(['closed'])
    expect(takeConsole().length).toBe(1)
    expect(Socket.all.length).toBe(1)
    expect(vi.getTimerCount()).toBe(0)
  })
})

describe('the address of the web channel', () => {
  it.each([
    ['http://localhost:8080/?token=a%2Bb', 'ws://localhost:8080/channel?token=a%2Bb'],
    ['https://desk:1/page/index.html?x=1&token=t#top', 'wss://desk:1/channel?token=t'],
    ['ws://desk/channel?token=t', 'ws://desk/channel?token=t'],
    ['wss://desk/channel?token=t', 'wss://desk/channel?token=t'],
  ])('of %s is %s', async (href, address) => {
    vi.stubGlobal('location', { href })
    const opening = connect()
    await Socket.all[0]?.accept()
    expect(Socket.all[0]?.url).toBe(address)
    ;(await opening).close()
  })

  it('in the options comes before the page and before the widget', async () => {
    vi.stubGlobal('location', { href: 'http://page/?token=page' })
    vi.stubGlobal('qt', { webChannelTransport: { send() {} } })
    const opening = connect({ url: 'http://desk/?token=desk' })
    await Socket.all[0]?.accept()
    expect(Socket.all[0]?.url).toBe('ws://desk/channel?token=desk')
    ;(await opening).close()
  })
})

describe('qwebchannel.js', () => {
  /** A page that loads scripts as the test says. */
  function page(load: (script: { src: string; onload(): void; onerror(): void }) => void) {
    vi.stubGlobal('QWebChannel', undefined)
    const sources: string[] = []
    const script = { src: '', onload() {}, onerror() {}, remove: vi.fn() }
    vi.stubGlobal('document', {
      createElement: () => script,
      head: {
        appendChild() {
          sources.push(script.src)
          Promise.resolve().then(() => load(script))
        },
      },
    })
    return { sources, script }
  }
  const arrives = (script: { onload(): void }) => {
    vi.stubGlobal('QWebChannel', QWebChannel)
    script.onload()
  }

  it('comes from the robot in its screen', async () => {
    const { sources } = page(arrives)
    const server = new ChannelServer(await fakeRobot().open(() => {}).ready)
    vi.stubGlobal('qt', { webChannelTransport: server.page })
    const robot = await connect()
    expect(sources).toEqual(['qrc:///qtwebchannel/qwebchannel.js'])
    robot.close()
  })

  it.each([
    [undefined, 'http://localhost:8080/qwebchannel.js'],
    ['/lib/q.js', '/lib/q.js'],
  ])('with library %s comes from %s', async (library, source) => {
    const { sources } = page(arrives)
    const url = 'http://localhost:8080/?token=t'
    const opening = connect(library ? { url, library } : { url })
    await Socket.all[0]?.accept()
    expect(sources).toEqual([source])
    ;(await opening).close()
  })

  it('that is missing or empty is told', async () => {
    for (const [load, words] of [
      [(script: { onerror(): void }) => script.onerror(), 'cannot be loaded'],
      [(script: { onload(): void }) => script.onload(), 'holds no QWebChannel'],
    ] as const) {
      const { script } = page(load)
      vi.stubGlobal('qt', { webChannelTransport: { send() {} } })
      const error = failure(connect(), 'no-robot')
      await vi.advanceTimersByTimeAsync(10000)
      expect((await error).message).toContain(`qrc:///qtwebchannel/qwebchannel.js ${words}`)
      expect(script.remove.mock.calls.length > 0).toBe(words === 'cannot be loaded')
    }
  })
})

describe('a lost connection', () => {
  it('comes back, with growing delays, and listeners stay', async () => {
    const { robot, states } = await overSocket()
    const heard: string[] = []
    robot.onAny((topic) => heard.push(topic))
    const request = failure(robot.request('operator.call.request', { call: false }), 'disconnected')
    Socket.all[0]?.lose()
    await request
    expect(robot.state).toBe('reconnecting')

    for (const [index, delay] of [250, 500, 1000, 2000, 4000, 8000, 10000, 10000].entries()) {
      await vi.advanceTimersByTimeAsync(delay - 1)
      expect(Socket.all.length).toBe(index + 1)
      await vi.advanceTimersByTimeAsync(1)
      expect(Socket.all.length).toBe(index + 2)
      Socket.all[index + 1]?.lose()
      await settled()
    }
    await vi.advanceTimersByTimeAsync(10000)
    await Socket.all[9]?.accept()
    expect(states).toEqual(['reconnecting', 'connected'])
    expect((await robot.request('printer.print')).topic).toBe('printer.success')
    expect(heard).toEqual(['printer.success'])

    // The next loss begins with short delays again.
    Socket.all[9]?.lose()
    await vi.advanceTimersByTimeAsync(250)
    expect(Socket.all.length).toBe(11)
    robot.close()
  })

  it('says nothing to a socket that has closed', async () => {
    await overSocket()
    const [socket] = Socket.all
    const send = vi.fn()
    Object.assign(socket ?? {}, { send })
    socket?.lose()
    await settled()
    expect(send).not.toHaveBeenCalled()
  })

  it('an attempt that hangs makes room for the next', async () => {
    const { robot } = await overSocket()
    Socket.all[0]?.lose()
    await vi.advanceTimersByTimeAsync(250)
    await vi.advanceTimersByTimeAsync(10000)
    expect(Socket.all[1]?.isClosed).toBe(true)
    await vi.advanceTimersByTimeAsync(500)
    expect(Socket.all.length).toBe(3)
    // Too late.
    await Socket.all[1]?.accept()
    expect(robot.state).toBe('reconnecting')
    robot.close()
  })

  it('does not come back after close()', async () => {
    const { robot, states } = await overSocket()
    Socket.all[0]?.lose()
    robot.close()
    robot.close()
    await vi.advanceTimersByTimeAsync(60000)
    expect(Socket.all.length).toBe(1)
    expect(states).toEqual(['reconnecting', 'closed'])
    expect(vi.getTimerCount()).toBe(0)
  })

  it('close() closes the socket and tells nobody of a loss', async () => {
    const { robot, states } = await overSocket()
    robot.close()
    expect(Socket.all[0]?.isClosed).toBe(true)
    expect(Socket.all[0]?.onclose).toBe(null)
    expect(states).toEqual(['closed'])
  })

  it('an address that the browser refuses is tried again, too, and told in the end', async () => {
    vi.stubGlobal('WebSocket', function refuse() {
      throw new Error('insecure')
    })
    const error = failure(connect({ url: 'http://desk/?token=t' }), 'no-robot')
    await vi.advanceTimersByTimeAsync(10000)
    expect((await error).message).toContain('insecure')
  })

  it('and an observer that throws do not harm each other', async () => {
    const { fake, robot } = await connected()
    const states: RobotState[] = []
    const stop = robot.onState((state) => states.push(state))
    fake.lose()
    fake.recover()
    await vi.advanceTimersByTimeAsync(250)
    stop()
    robot.close()
    expect(states).toEqual(['reconnecting', 'connected'])
  })
})
