import { readFileSync } from 'node:fs'
import { join } from 'node:path'
import { describe, expect, it, vi } from 'vitest'
import { defaults } from '../src/config.js'
import { readConfig } from '../src/siteconfig.js'
import { takeConsole } from './support/setup.js'

describe('what a site changes', () => {
  it('may be nothing', () => {
    expect(readConfig(undefined)).toEqual(defaults)
    expect(readConfig({})).toEqual(defaults)
  })

  it('takes the place of the defaults', () => {
    const people = [{ name: 'Ann', department: 'Sales', number: '7', point: 3 }]
    const config = readConfig({
      company: { en: 'Here', ar: 'هنا' },
      people,
      idleSeconds: 5,
      homePoint: null,
      services: ['way'],
    })
    expect(config).toMatchObject({ company: { en: 'Here', ar: 'هنا' }, people, idleSeconds: 5 })
    expect(config.homePoint).toBeUndefined()
    expect(config.services).toEqual(['way'])
    expect(config.destinations).toEqual(defaults.destinations)
  })

  it.each([
    ['no object', 'Ann', 'has to be an object'],
    ['an unknown name', { compny: 'Here' }, 'nothing called "compny"'],
    ['a name of every object', { constructor: 1 }, 'nothing called "constructor"'],
    ['an empty company', { company: ' ' }, '"company" has to be a text'],
    ['a company without English', { company: { es: 'Aquí' } }, '"company" has to be'],
    ['a company in an unknown language', { company: { en: 'Here', xx: 'x' } }, '"company"'],
    ['an unknown language', { language: 'de' }, 'one of en, es, zh, ar'],
    ['no languages', { languages: [] }, 'a list that is not empty'],
    ['an unknown tile', { services: ['way', 'fly'] }, 'its entry 2 has to be one of'],
    ['an unknown step', { steps: ['talk'] }, 'its entry 1'],
    ['a number as a number', { people: [{ name: 'A', department: 'B', number: 7 }] }, '"number"'],
    [
      'a drive point that there cannot be',
      { people: [{ name: 'A', department: 'B', number: '7', point: 70000 }] },
      '0 to 65535',
    ],
    ['a slip in a person', { people: [{ name: 'A', departement: 'B', number: '7' }] }, 'without'],
    ['an unknown icon', { destinations: [{ name: 'A', point: 1, icon: 'x' }] }, '"icon"'],
    ['a time that is none', { idleSeconds: 0 }, 'seconds, from 1 to 86400'],
    ['a time as a text', { idleSeconds: '60' }, '"idleSeconds"'],
    ['a camera as a text', { camera: 'yes' }, 'true or false'],
    ['an unknown target of an action', { actions: { wave: 'x' } }, 'an object of one of'],
  ])('is told on the console when it is wrong: %s', (_, site, mistake) => {
    const config = readConfig(site)
    const lines = takeConsole()
    expect(lines).toHaveLength(1)
    expect(lines[0]).toContain('config.js')
    expect(lines[0]).toContain(mistake)
    expect(config).toEqual(defaults)
  })

  it('is shown by an example that works', () => {
    const site: { reception?: unknown } = {}
    new Function('window', readFileSync(join(process.cwd(), 'examples/config.js'), 'utf8'))(site)
    expect(readConfig(site.reception)).toMatchObject({
      company: { en: 'Harbour Museum' },
      idleSeconds: 45,
    })
  })

  it('keeps what is right beside what is wrong', () => {
    const complain = vi.fn()
    const config = readConfig({ idleSeconds: 'x', company: 'Here' }, complain)
    expect(config).toEqual({ ...defaults, company: 'Here' })
    expect(complain).toHaveBeenCalledTimes(1)
  })

  it('begins with a language that is offered', () => {
    expect(readConfig({ languages: ['es', 'ar'] }).language).toBe('es')
    const complain = vi.fn()
    expect(readConfig({ language: 'en', languages: ['ar'] }, complain).language).toBe('ar')
    expect(complain).toHaveBeenCalledTimes(1)
  })
})
