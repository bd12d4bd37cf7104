import { describe, expect, it } from 'vitest'
import { connect } from '../src/index.js'
import { takeConsole } from './support/console.js'
import { connected, settled } from './support/robots.js'

/** A connection to a web channel of the test's own. */
async function overOwnCore() {
  const calls: unknown[][] = []
  let tell: (message: unknown) => void = () => {}
  const core = {
    message: {
      connect(callback: typeof tell) {
        tell = callback
      },
      disconnect() {},
    },
    sendMessage: (...values: unknown[]) => calls.push(values),
  }
  const robot = await connect({ open: () => ({ ready: Promise.resolve(core), close() {} }) })
  return { robot, calls, tell: (message: unknown) => tell(message) }
}

describe('send', () => {
  it('sends the topic as type beside the attributes', async () => {
    const { fake, robot } = await connected()
    expect(robot.send('system.language.set', { language: 'de' })).toBeUndefined()
    robot.send('dialog.robot.replic.abort')
    expect(fake.sent).toEqual([
      { topic: 'system.language.set', attributes: { language: 'de' } },
      { topic: 'dialog.robot.replic.abort', attributes: {} },
    ])
  })

  it('takes what the page had at this moment', async () => {
    const { fake, robot } = await connected()
    const attributes = { language: 'de' }
    robot.send('system.language.set', attributes)
    attributes.language = 'en'
    expect(fake.sentOf('system.language.set')).toEqual([{ language: 'de' }])
  })

  it('carries "__proto__" as an attribute like any other', async () => {
    const { fake, robot } = await connected()
    robot.send('system.custom.event.js', JSON.parse('{"__proto__": {"x": 1}, "constructor": 2}'))
    const [attributes] = fake.sentOf('system.custom.event.js')
    expect(Object.keys(attributes ?? {}).sort()).toEqual(['__proto__', 'constructor'])
  })

  it('is dropped with a warning while there is no connection', async () => {
    const { fake, robot } = await connected()
    fake.lose()
    robot.send('system.language.set', { language: 'de' })
    expect(takeConsole()).toEqual([
      'panorel: system.language.set is dropped, there is no connection to the robot',
    ])
    expect(fake.sent).toEqual([])
    robot.close()
  })
})

describe('the web channel', () => {
  it('gets a callback with each message, so that it makes no promise', async () => {
    const { robot, calls } = await overOwnCore()
    robot.send('dialog.robot.replic.abort')
    expect(calls.map((call) => call.map((value) => typeof value))).toEqual([['object', 'function']])
    robot.close()
  })
})

describe('on', () => {
  it('hands over the attributes without the envelope, until it is told to stop', async () => {
    const { fake, robot } = await connected()
    const heard: unknown[] = []
    const stop = robot.on('dialog.user.said', (attributes) => heard.push(attributes))
    fake.emit('dialog.user.said', { text: 'Hello', is_finish: true })
    fake.emit('user.lost.user')
    stop()
    stop()
    fake.emit('dialog.user.said', { text: 'Bye', is_finish: true })
    expect(heard).toEqual([{ text: 'Hello', is_finish: true }])
  })

  it('keeps one callback that was given twice apart', async () => {
    const { fake, robot } = await connected()
    let count = 0
    const callback = () => {
      count += 1
    }
    const stop = robot.on('user.lost.user', callback)
    robot.on('user.lost.user', callback)
    fake.emit('user.lost.user')
    stop()
    fake.emit('user.lost.user')
    expect(count).toBe(3)
  })

  it('goes on after a callback that throws', async () => {
    const { fake, robot } = await connected()
    const heard: string[] = []
    robot.on('user.lost.user', () => {
      throw new Error('broken page')
    })
    robot.on('user.lost.user', () => heard.push('second'))
    robot.onAny((topic) => heard.push(topic))
    fake.emit('user.lost.user')
    expect(heard).toEqual(['second', 'user.lost.user'])
    expect(takeConsole()).toEqual(['panorel: a callback of the page failed Error: broken page'])
  })

  it('does not call what another callback has just removed, nor what it has just added', async () => {
    const { fake, robot } = await connected()
    const heard: string[] = []
    robot.on('user.lost.user', () => {
      stop()
      robot.on('user.lost.user', () => heard.push('added'))
    })
    const stop = robot.on('user.lost.user', () => heard.push('removed'))
    fake.emit('user.lost.user')
    expect(heard).toEqual([])
  })

  it('tells every message to onAny, unknown topics included', async () => {
    const { fake, robot } = await connected()
    const heard: unknown[] = []
    const stop = robot.onAny((topic, attributes) => heard.push([topic, attributes]))
    fake.emitRaw({ id: 'x', type: 'of.later', value: 1 })
    stop()
    fake.emit('user.lost.user')
    expect(heard).toEqual([['of.later', { value: 1 }]])
  })
})

describe('odd messages', () => {
  const odd: unknown[] = [
    undefined,
    null,
    0,
    true,
    '',
    'text',
    [],
    [{ type: 'user.lost.user' }],
    {},
    { type: 7 },
    { type: null },
    { type: {} },
    { type: ['user.lost.user'] },
    { id: 'x' },
    JSON.parse('{"__proto__": {"type": "user.lost.user"}}'),
    () => {},
    Symbol('x'),
  ]
  it.each(odd.map((message, index) => [index, message]))(
    'number %i is dropped',
    async (_, message) => {
      const { fake, robot } = await connected()
      const heard: unknown[] = []
      robot.onAny((topic) => heard.push(topic))
      robot.on('user.lost.user', () => heard.push('lost'))
      expect(() => fake.emitRaw(message)).not.toThrow()
      expect(heard).toEqual([])
    },
  )

  it.each(['__proto__', 'constructor', 'hasOwnProperty', ''])(
    'topic "%s" is one like any other',
    async (type) => {
      const { fake, robot } = await connected()
      const heard: unknown[] = []
      robot.onAny((topic) => heard.push(topic))
      robot.on(type as 'user.lost.user', () => heard.push('own'))
      expect(() => fake.emitRaw({ type })).not.toThrow()
      expect(heard).toEqual(['own', type])
    },
  )

  it('names from the language are attributes like any other, and missing ones are undefined', async () => {
    const { fake, robot } = await connected()
    let got: { [name: string]: unknown } = {}
    robot.on('system.custom.event.core', (attributes) => {
      got = attributes
    })
    fake.emitRaw(JSON.parse('{"type": "system.custom.event.core", "__proto__": {"admin": true}}'))
    expect(Object.keys(got)).toEqual(['__proto__'])
    expect(got.admin).toBeUndefined()
    expect(got.constructor).toBeUndefined()
    expect(Object.prototype).not.toHaveProperty('admin')
  })

  it('do not throw into the web channel, whatever they are', async () => {
    const { robot, tell } = await overOwnCore()
    const message = {
      get type(): string {
        throw new Error('hostile')
      },
    }
    expect(() => tell(message)).not.toThrow()
    expect(takeConsole()[0]).toContain('hostile')
    robot.close()
  })

  it('of a device make its helper fail, not the dispatcher', async () => {
    const { fake, robot } = await connected()
    const heard: string[] = []
    const request = robot.request(
      'printer.print',
      {},
      {
        until() {
          throw new Error('broken page')
        },
      },
    )
    robot.on('printer.success', () => heard.push('still told'))
    await expect(request).rejects.toThrow('broken page')
    await settled()
    expect(heard).toEqual(['still told'])
    expect(fake.sent.length).toBe(1)
  })
})
