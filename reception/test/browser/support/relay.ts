import { createServer, get, type IncomingMessage, type ServerResponse } from 'node:http'
import type { AddressInfo } from 'node:net'
import { type RawData, WebSocket, WebSocketServer } from 'ws'

/** Stands between a tool and the debugging port of the robot's screen. */
export interface Relay {
  /** What the tool connects to. */
  readonly address: string
  close(): Promise<void>
}

const HOST = '127.0.0.1'

// The robot's engine refuses it and needs nothing of it; the tool gives up without an answer.
const REFUSED = 'Browser.setDownloadBehavior'

/** Passes on what a tool says to the engine behind @p port, but for what that engine does not know. */
export async function startRelay(port: number): Promise<Relay> {
  const server = createServer((asked, answer) => passOn(port, asked, answer))
  const sockets = new WebSocketServer({ server })
  sockets.on('connection', (tool, asked) => join(tool, `ws://${HOST}:${port}${asked.url}`))
  await new Promise<void>((resolve) => server.listen(0, HOST, resolve))
  return {
    address: `http://${HOST}:${(server.address() as AddressInfo).port}`,
    close() {
      for (const one of sockets.clients) one.terminate()
      sockets.close()
      return new Promise((resolve) => server.close(() => resolve()))
    },
  }
}

// The engine tells its own address, by which the tool would go past the relay.
function passOn(port: number, asked: IncomingMessage, answer: ServerResponse): void {
  const own = asked.headers.host ?? ''
  get({ host: HOST, port, path: asked.url, agent: false }, (told) => {
    let text = ''
    told.setEncoding('utf8')
    told.on('data', (part: string) => {
      text += part
    })
    told.on('end', () => {
      answer.writeHead(told.statusCode ?? 502, { 'content-type': 'application/json' })
      answer.end(text.replaceAll(`${HOST}:${port}`, own))
    })
  }).on('error', (error) => {
    answer.writeHead(502)
    answer.end(error.message)
  })
}

function join(tool: WebSocket, address: string): void {
  const engine = new WebSocket(address, { perMessageDeflate: false })
  const waiting: string[] = []
  tool.on('message', (data) => {
    const text = String(data)
    const { id, method } = JSON.parse(text) as { id: number; method: string }
    if (method === REFUSED) tool.send(JSON.stringify({ id, result: {} }))
    else if (engine.readyState === WebSocket.OPEN) engine.send(text)
    else waiting.push(text)
  })
  engine.on('open', () => {
    for (const text of waiting.splice(0)) engine.send(text)
  })
  engine.on('message', (data: RawData) => tool.send(String(data)))
  for (const [one, other] of [
    [tool, engine],
    [engine, tool],
  ] as const) {
    one.on('close', () => other.close())
    one.on('error', () => other.terminate())
  }
}
