import { describe, expect, it, vi } from 'vitest'
import { PanorelError, type Robot, TimeoutError } from '../src/index.js'
import { connected, failure, settled } from './support/robots.js'

const topics = (result: { replies: readonly { topic: string }[] }) =>
  result.replies.map((reply) => reply.topic)

describe('an answer at once', () => {
  it('comes with topic, attributes and all replies', async () => {
    const { fake, robot } = await connected()
    fake.answer('printer.print', 'printer.paper.low', 'printer.error')
    const result = await robot.request('printer.print', { data: 'x' })
    expect(result.topic).toBe('printer.error')
    expect(result.attributes).toEqual({})
    expect(topics(result)).toEqual(['printer.paper.low', 'printer.error'])
  })

  it('is the first where there are several', async () => {
    const { robot } = await connected()
    const result = await robot.request('keyboard.control.request', {
      get_locale: true,
      is_visible: true,
    })
    expect(result.attributes).toEqual({ locale: 'en_GB' })
    expect(result.replies[1]?.attributes).toEqual({ is_visible: false })
  })

  it('is "none" as soon as the robot has dealt with the request in silence', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('dialog.replica.get')
    const result = await robot.request('dialog.replica.get', { step: 'nowhere' })
    expect(result).toEqual({ topic: 'none', attributes: {}, replies: [] })
    expect(vi.getTimerCount()).toBe(0)
  })

  it('is "none" when only an interim reply came', async () => {
    const { fake, robot } = await connected()
    fake.answer('printer.print', 'printer.paper.low')
    const result = await robot.request('printer.print')
    expect([result.topic, ...topics(result)]).toEqual(['none', 'printer.paper.low'])
  })

  it('does not take what came before it was sent', async () => {
    const { fake, robot } = await connected()
    fake.emit('printer.nopaper')
    expect((await robot.request('printer.print')).topic).toBe('printer.success')
  })
})

describe('an answer that comes later', () => {
  it('is waited for where none comes at once', async () => {
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request')
    const request = robot.request('mail.sender.request', { email: 'ann@example.com' })
    await settled()
    fake.emit('mail.sender.response', { status: 'success' })
    expect((await request).attributes.status).toBe('success')
  })

  it('is not the first one when another must follow it', async () => {
    const { fake, robot } = await connected()
    fake.answer('dialog.say')
    const request = robot.request('dialog.say', { text: 'Hi' })
    await settled()
    fake.emit('dialog.robot.replic.start', { text: 'Hi' })
    fake.emit('dialog.robot.replic.finish')
    const result = await request
    expect(result.topic).toBe('dialog.robot.replic.finish')
    expect(topics(result)).toEqual(['dialog.robot.replic.start', 'dialog.robot.replic.finish'])
  })

  it('is not waited for where the robot could have answered at once', async () => {
    const { fake, robot } = await connected()
    fake.answer('dispenser.dispense', 'dispenser.card.dispensing')
    const result = await robot.request('dispenser.dispense')
    expect([result.topic, ...topics(result)]).toEqual(['none'])
  })

  it('is not taken for one at once when it comes before that', async () => {
    const { robot, fake } = await connected()
    const request = robot.request('scanner.passport.request')
    fake.emit('scanner.passport.state', { state: 1 })
    fake.emit('scanner.passport.error', { code: '5', text: 'the scan before' })
    const result = await request
    expect(topics(result)).toEqual(['scanner.passport.response'])
  })

  it.each([
    ['start', true],
    ['stop', true],
  ])('of a recording comes with %s', async (name) => {
    const { robot } = await connected()
    const result = await robot.request('record.audio.request', { [name]: true })
    expect(result.topic).toBe('record.audio.response')
  })
})

describe('until', () => {
  it('sees every reply and ends with the one it chooses', async () => {
    const { robot } = await connected()
    const seen: string[] = []
    const result = await robot.request(
      'scanner.passport.request',
      {},
      {
        until(reply) {
          seen.push(reply.topic)
          return reply.topic === 'scanner.passport.finish'
        },
      },
    )
    expect(seen).toEqual(topics(result))
    expect(seen[0]).toBe('scanner.passport.response')
    expect(result.topic).toBe('scanner.passport.finish')
  })

  it('may give other replies a moment', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('dispenser.dispense', 'dispenser.card.empty')
    const options = { until: ({ topic }: { topic: string }) => topic === 'dispenser.sensor' || 100 }
    const first = robot.request('dispenser.dispense', {}, options)
    await vi.advanceTimersByTimeAsync(100)
    expect((await first).topic).toBe('dispenser.card.empty')

    fake.answer('dispenser.dispense', 'dispenser.card.empty', [
      'dispenser.sensor',
      { sensor: 'DispSensor' },
    ])
    expect((await robot.request('dispenser.dispense', {}, options)).topic).toBe('dispenser.sensor')
    expect(vi.getTimerCount()).toBe(0)
  })
})

describe('requests with a common reply', () => {
  // A robot that answers when the test says so.
  async function slow() {
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request')
    return { fake, robot }
  }
  const mail = (robot: Robot, email: string) => robot.request('mail.sender.request', { email })

  it('wait for each other, in order', async () => {
    const { fake, robot } = await slow()
    const done: string[] = []
    const all = ['a', 'b', 'c'].map((name) => mail(robot, name).then(() => done.push(name)))
    for (const count of [1, 2, 3]) {
      await settled()
      expect(fake.sent.length).toBe(count)
      fake.emit('mail.sender.response', { status: 'success' })
      await settled()
      expect(done.length).toBe(count)
    }
    await Promise.all(all)
    expect(done).toEqual(['a', 'b', 'c'])
  })

  it('do not hold up others', async () => {
    const { fake, robot } = await slow()
    const first = mail(robot, 'a')
    const second = mail(robot, 'b')
    expect((await robot.request('printer.print')).topic).toBe('printer.success')
    expect(fake.sent.map((message) => message.topic)).toEqual([
      'mail.sender.request',
      'printer.print',
    ])
    fake.emit('mail.sender.response', { status: 'success' })
    await first
    fake.emit('mail.sender.response', { status: 'success' })
    await second
  })

  it('get each its own answer', async () => {
    const { fake, robot } = await connected()
    fake.answer('database.user.request', ({ get_user }) => [
      ['database.user.response', { response: { add_user: get_user === 1 } }],
    ])
    const answers = await Promise.all(
      [0, 1, 2].map((get_user) => robot.request('database.user.request', { get_user })),
    )
    expect(
      answers.map((answer) => answer.topic !== 'none' && answer.attributes.response.add_user),
    ).toEqual([false, true, false])
  })

  it('that fail let the next one go', async () => {
    const { robot } = await slow()
    const circular: { [name: string]: unknown } = {}
    circular.self = circular
    await expect(
      robot.request('database.user.request', { add_user: circular as { name: string } }),
    ).rejects.toThrow(TypeError)
    const next = await robot.request('database.user.request', { get_user: 1 })
    expect(next.topic).toBe('database.user.response')
  })
})

describe('a time limit', () => {
  it('rejects with a TimeoutError', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request')
    const request = robot.request('mail.sender.request', { email: 'a' }, { timeout: 500 })
    const error = failure(request, 'timeout')
    await vi.advanceTimersByTimeAsync(500)
    expect(await error).toBeInstanceOf(TimeoutError)
    expect(await error).toMatchObject({
      name: 'TimeoutError',
      message: 'mail.sender.request: no answer within 500 ms',
    })
    // Its place is kept for its late answer, no longer than once more as long.
    await vi.advanceTimersByTimeAsync(500)
    expect(vi.getTimerCount()).toBe(0)
  })

  it('is ten seconds unless told otherwise', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request')
    const error = failure(robot.request('mail.sender.request', { email: 'a' }), 'timeout')
    await vi.advanceTimersByTimeAsync(9999)
    expect(vi.getTimerCount()).toBe(1)
    await vi.advanceTimersByTimeAsync(1)
    await error
  })

  it.each([Infinity, 2 ** 40])('of %d waits for ever', async (timeout) => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request')
    const request = robot.request('mail.sender.request', { email: 'a' }, { timeout })
    await settled()
    expect(vi.getTimerCount()).toBe(0)
    fake.emit('mail.sender.response', { status: 'success' })
    await request
  })

  it('runs from sending on, not while others are served', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request')
    const first = robot.request('mail.sender.request', { email: 'a' }, { timeout: 1000 })
    const second = robot.request('mail.sender.request', { email: 'b' }, { timeout: 1000 })
    await vi.advanceTimersByTimeAsync(900)
    fake.emit('mail.sender.response', { status: 'success' })
    await first
    await vi.advanceTimersByTimeAsync(900)
    fake.emit('mail.sender.response', { status: 'success' })
    await second
  })
})

describe('an answer that comes when its request has been given up', () => {
  async function late(timeout: number) {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request')
    const lost = failure(
      robot.request('mail.sender.request', { email: 'a' }, { timeout }),
      'timeout',
    )
    await vi.advanceTimersByTimeAsync(timeout)
    await lost
    const next = robot.request('mail.sender.request', { email: 'b' }, { timeout: 5000 })
    await settled()
    return { fake, robot, next, sent: () => fake.sentOf('mail.sender.request').length }
  }

  it('does not reach the next one, which is sent then', async () => {
    const { fake, next, sent } = await late(500)
    expect(sent()).toBe(1)
    fake.emit('mail.sender.response', { status: 'failed', error_code: 1 } as never)
    expect(sent()).toBe(2)
    fake.emit('mail.sender.response', { status: 'success' })
    expect((await next).attributes).toEqual({ status: 'success' })
  })

  it.each([
    [500, 500],
    [60000, 10000],
  ])('of %d ms keeps the next one waiting for at most %d', async (timeout, most) => {
    const { fake, next, sent } = await late(timeout)
    await vi.advanceTimersByTimeAsync(most - 1)
    expect(sent()).toBe(1)
    await vi.advanceTimersByTimeAsync(1)
    expect(sent()).toBe(2)
    fake.emit('mail.sender.response', { status: 'success' })
    await next
    expect(vi.getTimerCount()).toBe(0)
  })

  it('is not waited for where the page says by until what ends the request', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('dialog.say')
    const say = (text: string) =>
      robot.request('dialog.say', { text }, { timeout: 500, until: () => true })
    const lost = failure(say('a'), 'timeout')
    await vi.advanceTimersByTimeAsync(500)
    await lost
    const next = say('b')
    await settled()
    expect(fake.sentOf('dialog.say').length).toBe(2)
    fake.emit('dialog.robot.replic.finish')
    await next
  })

  it('is not waited for when the connection breaks', async () => {
    const { fake, robot, next, sent } = await late(500)
    const error = failure(next, 'disconnected')
    fake.lose()
    await error
    expect(sent()).toBe(1)
    robot.close()
    expect(vi.getTimerCount()).toBe(0)
  })
})

describe('an AbortSignal', () => {
  it('that is aborted already sends nothing', async () => {
    const { fake, robot } = await connected()
    const controller = new AbortController()
    controller.abort()
    const error = await failure(
      robot.request('printer.print', {}, { signal: controller.signal }),
      'aborted',
    )
    expect(error.name).toBe('AbortError')
    expect(fake.sent).toEqual([])
  })

  it('ends what waits for its turn, unsent, and what is under way', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request')
    const controllers = [new AbortController(), new AbortController()]
    const errors = controllers.map(({ signal }, index) =>
      failure(
        robot.request('mail.sender.request', { email: String(index) }, { signal }),
        'aborted',
      ),
    )
    await settled()
    controllers[1]?.abort()
    await errors[1]
    controllers[0]?.abort()
    await errors[0]
    expect(fake.sentOf('mail.sender.request')).toEqual([{ email: '0' }])
    fake.emit('mail.sender.response', { status: 'success' })
    expect(vi.getTimerCount()).toBe(0)
  })

  it('does nothing afterwards, and is let go', async () => {
    const { robot } = await connected()
    const controller = new AbortController()
    const removed = vi.spyOn(controller.signal, 'removeEventListener')
    const result = await robot.request('printer.print', {}, { signal: controller.signal })
    controller.abort()
    expect(result.topic).toBe('printer.success')
    expect(removed).toHaveBeenCalledTimes(1)
  })
})

describe('without a connection', () => {
  it('requests under way and waiting are rejected', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request')
    const errors = ['a', 'b'].map((email) =>
      failure(robot.request('mail.sender.request', { email }), 'disconnected'),
    )
    await settled()
    fake.lose()
    await Promise.all(errors)
    await failure(robot.request('printer.print'), 'disconnected')
    robot.close()
    expect(vi.getTimerCount()).toBe(0)
  })

  it('closing rejects them, too', async () => {
    const { fake, robot } = await connected()
    fake.answer('mail.sender.request')
    const error = failure(robot.request('mail.sender.request', { email: 'a' }), 'disconnected')
    robot.close()
    expect((await error).message).toContain('closed')
    expect(await error).toBeInstanceOf(PanorelError)
  })
})
