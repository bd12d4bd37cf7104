/** A message of the robot, taken apart. */
export interface Told {
  topic: string
  attributes: { [name: string]: unknown }
}

/** Takes a message apart; nothing when it is none. */
export function read(message: unknown): Told | undefined {
  if (!isRecord(message) || typeof message.type !== 'string') return undefined
  return { topic: message.type, attributes: copy(message, true) }
}

/** The message of a topic. */
export function write(topic: string, attributes: unknown): object {
  const message = isRecord(attributes) ? copy(attributes) : {}
  message.type = topic
  return message
}

/** The members of a map whose keys say nothing, as the robot tells faces and settings. */
export function members<T>(map: { [key: string]: T } | undefined): T[] {
  return isRecord(map) ? (Object.values(map).filter(isRecord) as T[]) : []
}

/** The texts of a map. */
export function texts(map: unknown): { [name: string]: string } {
  const found = Object.create(null) as { [name: string]: string }
  if (isRecord(map)) {
    for (const name of Object.keys(map)) {
      const text = map[name]
      if (typeof text === 'string') found[name] = text
    }
  }
  return found
}

export function isRecord(value: unknown): value is { [name: string]: unknown } {
  return typeof value === 'object' && value !== null && !Array.isArray(value)
}

// Without a prototype: what is missing is undefined, and "__proto__" is a name like any other.
function copy(from: { [name: string]: unknown }, bare?: boolean): { [name: string]: unknown } {
  const to = Object.create(null) as { [name: string]: unknown }
  for (const name of Object.keys(from)) {
    if (!bare || (name !== 'id' && name !== 'type')) to[name] = from[name]
  }
  return to
}
