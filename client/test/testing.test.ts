import { describe, expect, it, vi } from 'vitest'
import { connect, type EventTopic } from '../src/index.js'
import { examples, fakeRobot } from '../src/testing/index.js'
import { replyTopics } from '../src/topics.js'
import { contract, faults, type Topic } from './support/contract.js'
import { connected, failure, settled } from './support/robots.js'

const requests = contract.topics.filter((topic) => topic.direction !== 'to page')
const events = contract.topics.filter((topic) => topic.direction === 'to page')

describe('the generated files', () => {
  it('hold the replies of the contract', () => {
    const wanted = new Map<string, string[]>()
    for (const { topic, replies = [] } of requests) {
      if (replies.length) wanted.set(topic, replies.map((reply) => reply.topic).sort())
    }
    expect(wanted.size).toBeGreaterThan(15)
    expect(Object.keys(replyTopics).sort()).toEqual([...wanted.keys()].sort())
    for (const [topic, replies] of wanted) {
      expect(replyTopics[topic]?.slice(0, 2).flat().sort(), topic).toEqual(replies)
    }
  })

  it('split them into now and later, and name those that are interim', () => {
    for (const { topic, replies = [] } of requests) {
      const [now = [], later = [], interim = []] = replyTopics[topic] ?? []
      const names = (found: typeof replies) => found.map((one) => one.topic)
      expect(now, topic).toEqual(names(replies.filter((one) => one.how === 'synchronous')))
      expect(later, topic).toEqual(names(replies.filter((one) => one.how === 'later')))
      expect(interim, topic).toEqual(names(replies.filter((one) => one.interim)))
    }
    expect(replyTopics['printer.print']?.[2]).toEqual(['printer.paper.low'])
  })

  it('hold an example of all that the page is told', () => {
    expect(Object.keys(examples).sort()).toEqual(events.map((topic) => topic.topic).sort())
    for (const [topic, attributes] of Object.entries(examples)) {
      expect(faults(topic, attributes)).toEqual([])
    }
  })
})

describe('the fake robot', () => {
  it.each(requests.filter(({ topic }) => replyTopics[topic]))(
    'answers $topic as the contract says',
    async ({ topic, example }) => {
      const { fake, robot } = await connected()
      const told: [string, unknown][] = []
      robot.onAny((name, attributes) => told.push([name, attributes]))
      const { type: _, ...attributes } = example
      // What asks for nothing in the contract's example gets a question here.
      const question: { [name: string]: object } = {
        'face.recognize.control': { add_face: 7 },
        'system.sound.properties': { get_volume: true, get_mic: true },
        'keyboard.control.request': { get_locale: true, is_visible: true },
        'sip.control': {
          call_start: { number: '1' },
          play_file: { number: '1', file: 'x' },
          play_text: {},
        },
        'system.drive.control': { drive_point: 1, drive_mode: 2, drive_charger: true },
      }
      robot.send(topic as 'printer.print', question[topic] ?? attributes)
      await settled()
      expect(told.length).toBeGreaterThan(0)
      const possible = replyTopics[topic]?.flat()
      for (const [name, value] of told) {
        expect(possible).toContain(name)
        expect(faults(name, value)).toEqual([])
      }
      expect(fake.sent.length).toBe(1)
    },
  )

  const mayBeBare = ({ topic, attributes }: Topic) => replyTopics[topic] && !attributes.required
  it.each(requests.filter(mayBeBare))('takes $topic without attributes', async ({ topic }) => {
    const { fake, robot } = await connected()
    const told: unknown[] = []
    robot.onAny((name) => told.push(name))
    robot.send(topic as 'printer.print')
    await settled()
    const always = [
      'database.user.request',
      'printer.print',
      'printer.state',
      'dispenser.dispense',
      'scanner.document.request',
      'scanner.passport.request',
      'system.environment.get',
    ]
    expect(told.length > 0).toBe(always.includes(topic))
    expect(fake.sent.length).toBe(1)
  })

  it('answers what a test says, until it says otherwise', async () => {
    const { fake, robot } = await connected()
    fake.answer('printer.print', 'printer.nopaper')
    expect((await robot.request('printer.print')).topic).toBe('printer.nopaper')
    fake.answer('printer.print', ({ data }) => (data === 'x' ? [['printer.error', {}]] : []))
    expect((await robot.request('printer.print', { data: 'x' })).topic).toBe('printer.error')
    expect((await robot.request('printer.print')).topic).toBe('none')
    fake.answer('printer.print', undefined)
    expect((await robot.request('printer.print')).topic).toBe('printer.success')
  })

  it('tells direct replies before it has done with the request, others after', async () => {
    const fake = fakeRobot()
    const core = await fake.open(() => {}).ready
    const order: unknown[] = []
    core.message.connect((message) => order.push((message as { type: string }).type))
    const send = (message: object) => core.sendMessage(message, (value) => order.push(value))
    send({ type: 'scanner.passport.request' })
    send({ type: 'record.audio.request', start: true })
    send({ type: 'record.audio.request', stop: true })
    expect(order).toEqual([])
    await settled()
    expect(order).toEqual([
      'scanner.passport.response',
      false,
      'scanner.passport.state',
      'scanner.passport.finish',
      false,
      'record.audio.response',
      'record.audio.response',
      false,
    ])
  })

  it('gives each message an id of its own', async () => {
    const fake = fakeRobot()
    const ids: string[] = []
    const core = await fake.open(() => {}).ready
    core.message.connect((message) => ids.push((message as { id: string }).id))
    fake.emit('user.lost.user')
    fake.emit('user.lost.user')
    expect(ids[0]).toMatch(/^\{[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}\}$/)
    expect(ids[0]).not.toBe(ids[1])
  })

  it('hands over copies, as JSON does', async () => {
    const { fake, robot } = await connected()
    const given = { text: 'Tea?', answers: ['Yes'] }
    let got: { answers: string[] } = { answers: [] }
    robot.on('dialog.question.new', (question) => {
      got = question
    })
    fake.emit('dialog.question.new', given)
    got.answers.push('No')
    expect(given.answers).toEqual(['Yes'])
  })

  it('is found by a page that just connects', async () => {
    const fake = fakeRobot()
    const remove = fake.install()
    const robot = await connect()
    expect((await robot.request('printer.print')).topic).toBe('printer.success')
    robot.close()
    remove()
    await failure(connect(), 'no-robot')

    const page = { qt: 'before' }
    fake.install(page)()
    expect(page.qt).toBe('before')
  })

  it('loses the page and lets it come back', async () => {
    vi.useFakeTimers()
    const { fake, robot } = await connected()
    const heard: EventTopic[] = []
    robot.on('user.lost.user', () => heard.push('user.lost.user'))
    fake.lose()
    fake.emit('user.lost.user')
    await vi.advanceTimersByTimeAsync(1000)
    expect(robot.state).toBe('reconnecting')
    fake.recover()
    await vi.advanceTimersByTimeAsync(1000)
    expect(robot.state).toBe('connected')
    fake.emit('user.lost.user')
    expect(heard).toEqual(['user.lost.user'])
    robot.close()
  })
})
