import { describe, expect, it } from 'vitest'
import { requestAttributes } from '../src/topics.js'
import { contract } from './support/contract.js'
import { connected, failure } from './support/robots.js'

// A page without types, as a plain script is.
type Loose = {
  send(topic: string, attributes?: unknown): void
  request(topic: string, attributes?: unknown): Promise<unknown>
}

const mistakes: [topic: string, attributes: unknown, says: string][] = [
  ['printer.prnt', {}, '"printer.prnt" is no topic that a page sends'],
  ['printer.success', {}, '"printer.success" is no topic that a page sends'],
  ['__proto__', {}, '"__proto__" is no topic that a page sends'],
  ['constructor', {}, '"constructor" is no topic that a page sends'],
  ['', {}, '"" is no topic that a page sends'],
  ['printer.print', { dat: 'x' }, 'printer.print has no attribute "dat"'],
  ['printer.print', JSON.parse('{"__proto__": 1}'), 'printer.print has no attribute "__proto__"'],
  ['printer.print', { data: 5 }, 'printer.print: "data" has to be a text'],
  ['printer.print', { data: null }, 'printer.print: "data" has to be a text'],
  [
    'printer.state',
    { ignore_not_connected: 'yes' },
    '"ignore_not_connected" has to be true or false',
  ],
  ['system.statistic', { topic: 'a', data: 'b' }, '"data" has to be a list'],
  ['sip.control', { call_start: '100' }, '"call_start" has to be an object'],
  ['sip.control', { call_start: ['100'] }, '"call_start" has to be an object'],
  ['dialog.replica.get', { category: 1 }, '"category" has to be an object or a text'],
  ['scanner.passport.request', { timeout: '15' }, '"timeout" has to be a number'],
  ['scanner.passport.request', { timeout: Number.NaN }, '"timeout" has to be a number'],
  ['printer.print', { data: () => 'x' }, '"data" has to be a text'],
  ['mail.sender.request', { subject: 'x' }, 'mail.sender.request: "email" is needed'],
  ['mail.sender.request', { email: undefined }, 'mail.sender.request: "email" is needed'],
  ['mail.sender.request', undefined, 'mail.sender.request: "email" is needed'],
  ['printer.print', 'x', 'printer.print: the attributes have to be an object'],
  ['printer.print', [], 'printer.print: the attributes have to be an object'],
  ['printer.print', null, 'printer.print: the attributes have to be an object'],
]

describe('a page that no compiler looked at', () => {
  it.each(mistakes)('%s %j: is told "%s"', async (topic, attributes, says) => {
    const { fake, robot } = await connected()
    const loose = robot as unknown as Loose
    const error = await failure(loose.request(topic, attributes), 'mistake')
    expect(error.message).toContain(says)
    expect(() => loose.send(topic, attributes)).toThrow(says)
    expect(fake.sent).toEqual([])
  })

  it('may leave out what is not needed, by undefined, too', async () => {
    const { fake, robot } = await connected()
    const loose = robot as unknown as Loose
    loose.send('printer.print')
    loose.send('printer.print', { data: undefined, nothing: undefined })
    expect(fake.sent.length).toBe(2)
  })

  it('may write any kind where presence counts', async () => {
    const { fake, robot } = await connected()
    for (const value of [true, false, null, 0, 'x', {}, []])
      (robot as unknown as Loose).send('keyboard.control.request', { show: value })
    expect(fake.sent.length).toBe(7)
  })

  it('may write anything into topics that host and page agree on', async () => {
    const { fake, robot } = await connected()
    ;(robot as unknown as Loose).send('system.custom.event.js', { anything: [1, null] })
    expect(fake.sent.length).toBe(1)
  })

  it('may send every example of the contract', async () => {
    const { fake, robot } = await connected()
    const requests = contract.topics.filter(({ topic }) => topic in requestAttributes)
    expect(requests.length).toBe(Object.keys(requestAttributes).length)
    for (const { topic, example } of requests) {
      const { type, id, ...attributes } = example as { type: string; id?: string }
      expect(type).toBe(topic)
      ;(robot as unknown as Loose).send(topic, attributes)
    }
    expect(fake.sent.length).toBe(requests.length)
  })
})
