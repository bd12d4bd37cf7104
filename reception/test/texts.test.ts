import { describe, expect, it } from 'vitest'
import { direction, languages, spoken, texts, translate } from '../src/texts/index.js'

const placeholders = (text: string): string[] => (text.match(/\{\w+\}/g) || []).sort()

describe.each(languages)('the texts in %s', (language) => {
  const all = Object.entries(texts[language])

  it('are the same ones as in English', () => {
    expect(Object.keys(texts[language]).sort()).toEqual(Object.keys(texts.en).sort())
  })

  it('all say something', () => {
    expect(all.filter(([, text]) => !text.trim())).toEqual([])
  })

  it('have the placeholders of the English ones', () => {
    for (const [key, text] of all) {
      expect(placeholders(text), key).toEqual(placeholders(texts.en[key as 'common.home']))
    }
  })

  it('hold nothing that the robot would replace while it speaks', () => {
    expect(all.filter(([, text]) => text.includes('%'))).toEqual([])
  })

  it('have an advice for every problem, and a problem for every advice', () => {
    const problems = all.map(([key]) => key).filter((key) => key.startsWith('problem.'))
    const titles = problems.filter((key) => !key.endsWith('.advice'))
    expect(problems.filter((key) => key.endsWith('.advice')).sort()).toEqual(
      titles.map((key) => `${key}.advice`).sort(),
    )
  })

  it('are written in letters of the language', () => {
    const letters = {
      en: /[a-z]/i,
      es: /[a-záéíóúñ]/i,
      zh: /\p{Script=Han}/u,
      ar: /\p{Script=Arabic}/u,
    }
    expect(all.filter(([, text]) => !letters[language].test(text))).toEqual([])
  })
})

it('writes Arabic from the right, and all others from the left', () => {
  expect(languages.map(direction)).toEqual(['ltr', 'ltr', 'ltr', 'rtl'])
})

it('keeps a name of other letters together in Arabic, but not in what is spoken', () => {
  const text = translate('ar', 'call.say', { name: 'Ann' })
  expect(text).toContain('\u2068Ann\u2069')
  expect(spoken(text)).not.toMatch(/[\u2066-\u2069]/)
  expect(translate('en', 'call.say', { name: 'Ann' })).toBe('I am calling Ann.')
})

it('leaves a placeholder without a value as it is', () => {
  expect(translate('en', 'call.say')).toBe('I am calling {name}.')
})
