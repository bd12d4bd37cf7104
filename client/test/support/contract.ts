import { readFileSync } from 'node:fs'

export interface Schema {
  $ref?: string
  type?: string
  enum?: unknown[]
  const?: unknown
  pattern?: string
  minLength?: number
  minimum?: number
  maximum?: number
  minProperties?: number
  items?: Schema
  properties?: { [name: string]: Schema }
  required?: string[]
  additionalProperties?: boolean | Schema
  propertyNames?: Schema
  anyOf?: Schema[]
  oneOf?: Schema[]
}

export interface Topic {
  topic: string
  direction: string
  area: string
  attributes: Schema
  replies?: { topic: string; how: string; when: string; interim?: true }[]
  example: { [name: string]: unknown }
}

/** The contract of all topics, as its file has it. */
export const contract = JSON.parse(
  readFileSync(new URL('../../../protocol/topics.json', import.meta.url), 'utf8'),
) as { areas: { area: string }[]; $defs: { [name: string]: Schema }; topics: Topic[] }

/** What is wrong with a message's attributes; nothing when all is well. */
export function faults(topic: string, attributes: unknown): string[] {
  const found = contract.topics.find((one) => one.topic === topic)
  return found ? [...check(found.attributes, attributes, topic)] : [`no topic ${topic}`]
}

function* check(schema: Schema, value: unknown, at: string): Generator<string> {
  if (schema.$ref) {
    yield* check(contract.$defs[schema.$ref.replace('#/$defs/', '')] ?? {}, value, at)
    return
  }
  const choices = schema.anyOf ?? schema.oneOf
  if (choices?.every((choice) => [...check(choice, value, at)].length)) yield `${at}: none fits`
  if (schema.type && !isOfType(schema.type, value)) {
    yield `${at}: no ${schema.type}`
    return
  }
  if (schema.enum && !schema.enum.includes(value)) yield `${at}: not listed`
  if ('const' in schema && schema.const !== value) yield `${at}: another value`
  if (typeof value === 'string') {
    if (schema.pattern && !new RegExp(schema.pattern).test(value)) yield `${at}: odd text`
    if (value.length < (schema.minLength ?? 0)) yield `${at}: too short`
  }
  if (typeof value === 'number') {
    if (value < (schema.minimum ?? value) || value > (schema.maximum ?? value)) {
      yield `${at}: out of range`
    }
  }
  if (Array.isArray(value)) {
    for (const item of value) yield* check(schema.items ?? {}, item, `${at}[]`)
  } else if (typeof value === 'object' && value !== null) {
    yield* members(schema, value as { [name: string]: unknown }, at)
  }
}

function* members(schema: Schema, value: { [name: string]: unknown }, at: string) {
  for (const name of schema.required ?? []) if (!(name in value)) yield `${at}.${name}: missing`
  if (Object.keys(value).length < (schema.minProperties ?? 0)) yield `${at}: empty`
  for (const [name, member] of Object.entries(value)) {
    if (schema.propertyNames) yield* check(schema.propertyNames, name, `${at} key`)
    const more = schema.additionalProperties
    const own = schema.properties?.[name] ?? (typeof more === 'object' ? more : undefined)
    if (own) yield* check(own, member, `${at}.${name}`)
    else if (more === false) yield `${at}.${name}: unknown`
  }
}

function isOfType(type: string, value: unknown): boolean {
  if (type === 'array') return Array.isArray(value)
  if (type === 'integer') return Number.isInteger(value)
  if (type === 'object') {
    return typeof value === 'object' && value !== null && !Array.isArray(value)
  }
  return typeof value === type
}
