import { readdirSync, readFileSync } from 'node:fs'
import { join } from 'node:path'
import { describe, expect, it } from 'vitest'

const folder = join(process.cwd(), 'src/style')
const read = (name: string): string => readFileSync(join(folder, name), 'utf8')

const colours = new Map<string, string>()
for (const [, name, value] of read('tokens.css').matchAll(/--([\w-]+):\s*(#[0-9a-f]{6});/g)) {
  colours.set(name!, value!)
}

function luminance(colour: string): number {
  const parts = [1, 3, 5].map((at) => {
    const part = Number.parseInt(colour.slice(at, at + 2), 16) / 255
    return part <= 0.03928 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4
  })
  return 0.2126 * parts[0]! + 0.7152 * parts[1]! + 0.0722 * parts[2]!
}

/** The contrast of two colours, from 1 to 21. */
function contrast(one: string, other: string): number {
  const [light, dark] = [luminance(one), luminance(other)].sort((a, b) => b - a)
  return (light! + 0.05) / (dark! + 0.05)
}

const colour = (name: string): string => {
  const found = colours.get(name)
  if (!found) throw new Error(`there is no colour --${name}`)
  return found
}

// "--on-x" and "--on-x-soft" are written on "--x".
const written = [...colours.keys()]
  .filter((name) => name.startsWith('on-'))
  .map((name) => [name, name.replace(/^on-|-soft$/g, '')] as const)

describe('what is written can be read', () => {
  it('and there is something written', () => {
    expect(written.length).toBeGreaterThan(12)
  })

  it.each<readonly [string, string]>([
    ...written,
    // Where one surface turns into another.
    ['on-night', 'night-far'],
    ['on-night-soft', 'night-far'],
    ['on-brand', 'brand-strong'],
    // What stands on another surface than its own.
    ['on-tint', 'card'],
    ['on-tint', 'page'],
    ['on-card', 'tint'],
    ['on-card-soft', 'tint'],
    ['bad', 'page'],
    ['on-page', 'card'],
  ])('%s on %s', (text, surface) => {
    expect(contrast(colour(text), colour(surface))).toBeGreaterThanOrEqual(4.5)
  })

  it.each([
    ['edge', 'card'],
    ['edge', 'page'],
    ['brand', 'page'],
    ['brand', 'card'],
    ['brand', 'tint'],
    ['good', 'page'],
    ['bad', 'page'],
    ['focus', 'page'],
    ['focus', 'card'],
    ['eye', 'visor'],
    ['sun', 'night'],
  ])('%s beside %s stands out', (part, surface) => {
    expect(contrast(colour(part), colour(surface))).toBeGreaterThanOrEqual(3)
  })
})

describe('the styles', () => {
  const sheets = readdirSync(folder).filter((name) => name.endsWith('.css'))

  it.each(sheets.filter((name) => name !== 'tokens.css'))(
    '%s has no colours of its own',
    (name) => {
      expect(read(name).match(/#[0-9a-f]{3,8}\b|rgba?\(|hsla?\(/gi) || []).toEqual([])
    },
  )

  it.each(sheets)('%s uses only colours and sizes that there are', (name) => {
    const known = new Set(read('tokens.css').match(/--[\w-]+(?=:)/g))
    known.add('--left')
    const used = [...read(name).matchAll(/var\((--[\w-]+)/g)].map((found) => found[1]!)
    expect(used.filter((one) => !known.has(one))).toEqual([])
  })

  it.each(sheets)(
    '%s does without sides that do not turn, hovering and outside resources',
    (name) => {
      const text = read(name)
      // What covers all of its place has no side.
      const sided = text.match(
        /(margin|padding|border)-(left|right)|text-align: (left|right)|float:/g,
      )
      expect(sided || []).toEqual([])
      expect(text).not.toMatch(/:hover/)
      expect(text.match(/url\(|@import "(?!\.\/)/g) || []).toEqual([])
    },
  )

  it.each(sheets)('%s runs in the oldest engine', (name) => {
    const newer =
      /:has\(|:is\(|:where\(|@container|@layer|aspect-ratio|color-mix|border-(start|end)-(start|end)-radius|\d(dvh|svh|lvh|cqw)|accent-color/
    expect(read(name)).not.toMatch(newer)
  })
})
