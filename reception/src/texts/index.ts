import { ar } from './ar.js'
import { en } from './en.js'
import { es } from './es.js'
import { zh } from './zh.js'

/** The languages of the page, in the order in which it offers them. */
export const languages = ['en', 'es', 'zh', 'ar'] as const
export type Language = (typeof languages)[number]

/** The name of a text. */
export type Key = keyof typeof en
/** A text for every name: a language that lacks one does not compile. */
export type Texts = { readonly [K in Key]: string }
/** What stands for `{name}` in a text. */
export type Values = { readonly [name: string]: string | number }

export const texts: { readonly [L in Language]: Texts } = { en, es, zh, ar }

/** Each language in its own words. */
export const names: { readonly [L in Language]: string } = {
  en: 'English',
  es: 'Español',
  zh: '中文',
  ar: 'العربية',
}

export function isLanguage(value: unknown): value is Language {
  return languages.includes(value as Language)
}

export function direction(language: Language): 'ltr' | 'rtl' {
  return language === 'ar' ? 'rtl' : 'ltr'
}

/** A text in a language. */
export function translate(language: Language, key: Key, values: Values = {}): string {
  return texts[language][key].replace(/\{(\w+)\}/g, (whole, name: string) => {
    const value = values[name]
    if (value === undefined) return whole
    // A name in other letters must not turn the words around it.
    return language === 'ar' ? `\u2068${value}\u2069` : String(value)
  })
}

/** A text for the robot's voice, without what only a screen needs. */
export function spoken(text: string): string {
  return text.replace(/[\u2066-\u2069]/g, '')
}
