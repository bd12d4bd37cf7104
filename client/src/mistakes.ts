import { requestAttributes } from './topics.js'

const KINDS: { readonly [letter: string]: string } = {
  s: 'a text',
  n: 'a number',
  b: 'true or false',
  a: 'a list',
  o: 'an object',
}

const topics = new Map(Object.entries(requestAttributes))

/** What is wrong with a message to the robot, for pages that no compiler looks at. */
export function mistakeIn(topic: string, attributes: unknown = {}): string | undefined {
  const known = topics.get(topic)
  if (known === undefined) return `"${topic}" is no topic that a page sends`
  if (letter(attributes) !== 'o') return `${topic}: the attributes have to be an object`

  const given = attributes as { [name: string]: unknown }
  const left = new Set(Object.keys(given).filter((name) => given[name] !== undefined))
  for (const part of known.split(' ')) {
    if (part === '*') return undefined
    const [name = '', rule = ''] = part.split(':')
    const kinds = rule.replace('!', '')
    if (left.delete(name)) {
      if (kinds && !kinds.includes(letter(given[name]))) {
        const wanted = Array.from(kinds, (one) => KINDS[one]).join(' or ')
        return `${topic}: "${name}" has to be ${wanted}`
      }
    } else if (rule.endsWith('!')) {
      return `${topic}: "${name}" is needed`
    }
  }
  const [unknown] = left
  return unknown && `${topic} has no attribute "${unknown}"`
}

// A space stands for what no attribute may be.
function letter(value: unknown): string {
  if (Array.isArray(value)) return 'a'
  if (value === null) return ' '
  if (typeof value === 'number') return Number.isFinite(value) ? 'n' : ' '
  const kind = typeof value
  return kind === 'string' || kind === 'boolean' || kind === 'object' ? kind.charAt(0) : ' '
}
