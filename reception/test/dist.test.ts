import { readdirSync, readFileSync } from 'node:fs'
import { join } from 'node:path'
import { expect, it } from 'vitest'

// "npm test" builds it before.
const folder = join(process.cwd(), 'dist')
const read = (name: string): string => readFileSync(join(folder, name), 'utf8')

it('is a page with one classic script and one style sheet', () => {
  expect(readdirSync(folder).sort()).toEqual([
    'config.js',
    'index.html',
    'reception.css',
    'reception.js',
  ])
  const html = read('index.html')
  // A page from a file is given neither modules nor what asks for an origin.
  expect(html).not.toMatch(/type="module"|crossorigin/)
  const addresses = [...html.matchAll(/(?:src|href)="([^"]*)"/g)].map((found) => found[1])
  expect(addresses.sort()).toEqual(['./config.js', './reception.css', './reception.js', 'data:,'])
  expect(html.indexOf('config.js')).toBeLessThan(html.indexOf('reception.js'))
})

it('needs nothing from elsewhere', () => {
  const script = read('reception.js')
  const outside = script.match(/https?:\/\/[\w.]+[^"'`\s]*/g) || []
  expect(outside.filter((one) => !one.startsWith('http://www.w3.org/'))).toEqual([])
  expect(script).not.toMatch(/\bfetch\(|\bimport\(|^import |^export /m)
  expect(read('reception.css')).not.toMatch(/url\(|@import/)
})

it('has a style sheet that the oldest engine reads', () => {
  expect(read('reception.css')).not.toMatch(/:has\(|:is\(|@layer|@container|border-start-start/)
})

it('is small', () => {
  expect(read('reception.js').length).toBeLessThan(200000)
})
