import { request } from 'node:http'

/** What a server answers, read as JSON; undefined when it is none. */
export interface Answer {
  status: number
  value: unknown
}

/** Asks over a connection of its own; Node's "fetch" keeps connections that the server may have left. */
export function askServer(
  address: URL,
  body: object | undefined,
  timeout: number,
): Promise<Answer> {
  return new Promise((resolve, reject) => {
    const method = body ? 'POST' : 'GET'
    const asked = request(address, { method, agent: false, timeout }, (response) => {
      let text = ''
      response.setEncoding('utf8')
      response.on('data', (part: string) => {
        text += part
      })
      response.on('error', reject)
      response.on('end', () => resolve({ status: response.statusCode ?? 0, value: read(text) }))
    })
    asked.on('timeout', () => asked.destroy(new Error(`no answer within ${timeout} ms`)))
    asked.on('error', reject)
    asked.end(body && JSON.stringify(body))
  })
}

function read(text: string): unknown {
  try {
    return JSON.parse(text) as unknown
  } catch {
    return undefined
  }
}
