import { afterEach, beforeEach, describe, expect, it, vi } from 'vitest'
import type { Core } from '../src/channel.js'
import { connect, PanorelError } from '../src/index.js'
import { replyTopics } from '../src/topics.js'

// Replies do not say which request they mean. Here they secretly do: each request holds a number of its
// own, which its replies repeat, so that the test sees when one reaches a caller that it was not meant for.

const RUNS = 1000
const TIMEOUT = 1000

/** Requests, each with a number; several have replies in common. */
const asked: [topic: string, attributes: (mark: number) => object][] = [
  ['printer.print', (mark) => ({ data: `${mark}` })],
  ['printer.print', (mark) => ({ data: `${mark}`, ignore_not_connected: true })],
  ['system.settings.get', (mark) => ({ settings_type: 'system', group: `${mark}` })],
  ['database.user.request', (mark) => ({ get_user: mark })],
  ['dialog.replica.get', (mark) => ({ step: `${mark}` })],
  ['keyboard.control.request', (mark) => ({ set_locale: `${mark}` })],
  ['sip.control', (mark) => ({ call_start: { number: `${mark}` } })],
  ['record.audio.request', (mark) => ({ start: true, timeout: mark })],
  ['mail.sender.request', (mark) => ({ email: `${mark}` })],
]
const LATER = ['record.audio.request', 'mail.sender.request']

/** A small generator of random numbers, the same for the same seed. */
function dice(seed: number) {
  let state = seed
  return (sides: number): number => {
    state = (state + 0x6d2b79f5) | 0
    let mixed = Math.imul(state ^ (state >>> 15), 1 | state)
    mixed = (mixed + Math.imul(mixed ^ (mixed >>> 7), 61 | mixed)) ^ mixed
    return ((mixed ^ (mixed >>> 14)) >>> 0) % sides
  }
}

interface Waiting {
  topic: string
  mark: number
  returned: (value: unknown) => void
}

/** A robot that takes messages in order, whenever it likes, and answers some not at all, some twice and
 *  some late. */
class Robot {
  readonly waiting: Waiting[] = []
  readonly direct = new Map<number, string[]>() // by mark, what was answered at once
  readonly late: { topic: string; mark: number; due: number }[] = []
  private listeners: ((message: unknown) => void)[] = []

  constructor(private readonly roll: (sides: number) => number) {}

  readonly core: Core = {
    message: {
      connect: (callback) => this.listeners.push(callback),
      disconnect: () => {},
    },
    sendMessage: (message, returned = () => {}) => {
      const mark = Number(/\d+/.exec(JSON.stringify(message))?.[0])
      this.waiting.push({ topic: (message as { type: string }).type, mark, returned })
    },
  }

  tell(topic: string, mark: number): void {
    for (const listener of this.listeners) listener({ type: topic, id: `{${Math.random()}}`, mark })
  }

  /** Deals with one message: its direct replies, and only then the return. */
  take(): void {
    const next = this.waiting.shift()
    if (!next) return
    const [now = [], later = [], interim = []] = replyTopics[next.topic] ?? []
    const ends = now.filter((topic) => !interim.includes(topic))
    const told: string[] = []
    for (const topic of interim.filter((one) => now.includes(one))) {
      if (this.roll(3) === 0) told.push(topic)
    }
    // Sometimes none, sometimes the same twice.
    const end = ends[this.roll(ends.length || 1)]
    const twice = !LATER.includes(next.topic) && this.roll(4) === 0
    if (end && this.roll(5) > 0) told.push(...(twice ? [end, end] : [end]))
    for (const topic of told) {
      this.foreign()
      this.tell(topic, next.mark)
    }
    this.direct.set(next.mark, told)
    next.returned(false)
    const after = later[this.roll(later.length || 1)]
    if (after && !told.includes(after) && this.roll(6) > 0) {
      // Once: a second one of a later kind may be that of the next request, nobody can tell.
      this.late.push({ topic: after, mark: next.mark, due: this.roll(8) })
    }
  }

  /** What nobody asked for, on topics that answer no request here. */
  foreign(): void {
    if (this.roll(2) === 0) this.tell('dialog.user.said', -1)
    if (this.roll(4) === 0) this.tell('no.such.topic', -1)
  }

  /** Later replies whose time has come. */
  pass(): void {
    for (const one of this.late.splice(0)) {
      if (one.due-- > 0) this.late.push(one)
      else this.tell(one.topic, one.mark)
    }
  }
}

async function run(seed: number): Promise<string[]> {
  const roll = dice(seed)
  const behind = new Robot(roll)
  const robot = await connect({
    open: () => ({ ready: Promise.resolve(behind.core), close() {} }),
  })
  const wrong: string[] = []
  const settledMarks = new Map<number, string>()
  const count = 3 + roll(10)
  let mark = 0

  function ask(): void {
    const [topic, attributes] = asked[roll(asked.length)] as (typeof asked)[0]
    const mine = mark++
    const giveUp = new AbortController()
    if (roll(6) === 0) setTimeout(() => giveUp.abort(), roll(TIMEOUT))
    const options = { timeout: TIMEOUT, signal: giveUp.signal }
    robot.request(topic as 'printer.print', attributes(mine), options).then(
      (result) => {
        const { topic: end, attributes: told } = result as unknown as {
          topic: string
          attributes: { mark?: number }
        }
        const all = (result as unknown as { replies: { attributes: { mark?: number } }[] }).replies
        if (settledMarks.has(mine)) wrong.push(`${mine} settled twice`)
        settledMarks.set(mine, end)
        if (end === 'none' ? told.mark !== undefined : told.mark !== mine)
          wrong.push(`${topic} ${mine} was answered with ${told.mark}`)
        const foreign = all.filter((reply) => reply.attributes.mark !== mine)
        if (foreign.length) wrong.push(`${topic} ${mine} lists replies of others`)
        const ends = (behind.direct.get(mine) ?? []).filter((one) => one !== 'printer.paper.low')
        if (end === 'none' && ends.length > 0) wrong.push(`${mine} missed ${ends[0]}`)
      },
      (error) => {
        if (!(error instanceof PanorelError)) wrong.push(String(error))
        if (settledMarks.has(mine)) wrong.push(`${mine} settled twice`)
        settledMarks.set(mine, 'rejected')
      },
    )
  }

  for (let step = 0; step < 40; step++) {
    if (mark < count && roll(2) === 0) ask()
    // Within twice the time limit every message is dealt with.
    if (roll(3) > 0 || step > 30) behind.take()
    behind.pass()
    behind.foreign()
    await vi.advanceTimersByTimeAsync(roll(3) === 0 ? 300 : 1)
  }
  for (let step = 0; step < 60; step++) {
    behind.take()
    behind.pass()
    await vi.advanceTimersByTimeAsync(1)
  }
  // Whatever happened before, the next caller is heard.
  const next = robot.request(
    'system.settings.get',
    { settings_type: 'system', group: '9999' },
    { timeout: TIMEOUT },
  )
  await vi.advanceTimersByTimeAsync(1)
  behind.take()
  await vi.advanceTimersByTimeAsync(TIMEOUT)
  const last = await next.then(
    (result) => (result.attributes as { mark?: number }).mark ?? 'none',
    (error: Error) => error.message,
  )
  if (last !== 9999 && last !== 'none') wrong.push(`the last request ended with ${last}`)
  robot.close()
  await vi.advanceTimersByTimeAsync(3 * TIMEOUT)
  if (settledMarks.size !== mark) wrong.push(`${mark - settledMarks.size} never settled`)
  return wrong
}

beforeEach(() => {
  vi.useFakeTimers()
})
afterEach(() => {
  vi.useRealTimers()
})

describe('a thousand random orders of requests, replies and what else is told', () => {
  it('bring no reply to a caller that it was not meant for', async () => {
    for (let seed = 1; seed <= RUNS; seed++) {
      expect(await run(seed), `seed ${seed}`).toEqual([])
    }
  }, 60000)
})
