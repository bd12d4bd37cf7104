import { type Config, defaults, services, steps } from './config.js'
import { isLanguage, languages } from './texts/index.js'

type Values = { readonly [name: string]: unknown }

/** What a value has to be: an empty text, or what is wrong with it. */
type Rule = (value: unknown) => string

const isRecord = (value: unknown): value is Values =>
  typeof value === 'object' && value !== null && !Array.isArray(value)

const isPoint = (value: unknown): boolean =>
  Number.isInteger(value) && (value as number) >= 0 && (value as number) <= 65535

const point: Rule = (value) => (isPoint(value) ? '' : 'a whole number from 0 to 65535')
const text: Rule = (value) => (typeof value === 'string' && value.trim() ? '' : 'a text')
const truth: Rule = (value) => (typeof value === 'boolean' ? '' : 'true or false')

const seconds: Rule = (value) =>
  typeof value === 'number' && value >= 1 && value <= 86400 ? '' : 'seconds, from 1 to 86400'

const localized: Rule = (value) => {
  if (typeof value === 'string' && value.trim()) return ''
  const isComplete =
    isRecord(value) &&
    !text(value.en) &&
    Object.entries(value).every(([name, one]) => isLanguage(name) && !text(one))
  return isComplete ? '' : 'a text, or one for each language with "en" among them'
}

const optional =
  (rule: Rule): Rule =>
  (value) =>
    value === undefined ? '' : rule(value)

const oneOf =
  (...names: readonly string[]): Rule =>
  (value) =>
    names.includes(value as string) ? '' : `one of ${names.join(', ')}`

const listOf =
  (rule: Rule, least: number): Rule =>
  (value) => {
    if (!Array.isArray(value) || value.length < least) {
      return least ? 'a list that is not empty' : 'a list'
    }
    const wrong = value.findIndex((one) => rule(one))
    return wrong < 0 ? '' : `a list; its entry ${wrong + 1} has to be ${rule(value[wrong])}`
  }

const recordOf =
  (rules: { readonly [name: string]: Rule }): Rule =>
  (value) => {
    if (!isRecord(value)) return 'an object'
    const unknown = Object.keys(value).find((name) => !rules[name])
    if (unknown) return `without "${unknown}"`
    const wrong = Object.entries(rules).find(([name, rule]) => rule(value[name]))
    return wrong ? `an object with "${wrong[0]}" as ${wrong[1](value[wrong[0]])}` : ''
  }

const rules: { readonly [K in keyof Config]-?: Rule } = {
  company: localized,
  language: oneOf(...languages),
  languages: listOf(oneOf(...languages), 1),
  services: listOf(oneOf(...services), 1),
  steps: listOf(oneOf(...steps), 1),
  people: listOf(
    recordOf({ name: text, department: localized, number: text, point: optional(point) }),
    0,
  ),
  destinations: listOf(
    recordOf({
      name: localized,
      point,
      icon: oneOf('meeting', 'cafe', 'lift', 'toilet', 'exit', 'place'),
      directions: optional(localized),
    }),
    0,
  ),
  // A robot that stays where it is says so with null.
  homePoint: (value) => (value === null ? '' : point(value)),
  idleSeconds: seconds,
  countdownSeconds: seconds,
  busySeconds: seconds,
  greetingSeconds: seconds,
  scanSeconds: seconds,
  camera: truth,
  actions: (value) => {
    if (!isRecord(value)) return 'an object'
    const target = oneOf(...services, 'operator', 'language')
    const wrong = Object.values(value).find((one) => target(one))
    return wrong === undefined ? '' : `an object of ${target(wrong)}`
  },
}

/**
 * The defaults with what a site changes. What a site got wrong is told by @p complain, and its default
 * stays: a mistake must not leave a robot without a page.
 */
export function readConfig(
  site: unknown,
  complain: (mistake: string) => void = (mistake) => console.error(`config.js: ${mistake}`),
): Config {
  if (site === undefined) return defaults
  if (!isRecord(site)) {
    complain('"reception" has to be an object')
    return defaults
  }
  const found: { [name: string]: unknown } = { ...defaults }
  for (const [name, value] of Object.entries(site)) {
    const rule = Object.keys(rules).includes(name) && rules[name as keyof Config]
    const wrong = rule ? rule(value) : ''
    if (!rule) complain(`there is nothing called "${name}"`)
    else if (wrong) complain(`"${name}" has to be ${wrong}`)
    else found[name] = value === null ? undefined : value
  }
  const config = found as unknown as Config
  if (config.languages.includes(config.language)) return config
  if (site.language !== undefined) complain('"language" has to be among "languages"')
  return { ...config, language: config.languages[0] || defaults.language }
}
