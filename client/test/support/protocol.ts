import { createRequire } from 'node:module'
import type { Core, Transport } from '../../src/channel.js'

const { QWebChannel } = createRequire(import.meta.url)('qwebchannel') as {
  QWebChannel: new (transport: object, opened: (channel: object) => void) => object
}

/** Qt's own client of web channels. */
export { QWebChannel }

const INIT = 3
const INVOKE = 6
const CONNECT = 7
const DISCONNECT = 8
const OBJECT = '_karvel_internal'

interface Packet {
  type: number
  id?: number
  object?: string
  method?: string | number
  args?: unknown[]
}

/** The robot's side of a web channel, over texts, as the robot's screen speaks it. */
export class ChannelServer {
  readonly packets: Packet[] = []
  /** Whether the robot's object is there yet. */
  hasObject = true
  /** Whether it takes part; else it hears and says nothing. */
  isAwake = true
  /** What it would have said meanwhile, until `release()`. */
  isHeld = false
  private held: object[] = []
  private listening = 0

  constructor(
    private core: Core,
    readonly page: Transport = { send: () => {} },
  ) {
    page.send = (text) => {
      const packet = JSON.parse(text) as Packet
      this.packets.push(packet)
      Promise.resolve().then(() => this.isAwake && this.take(packet))
    }
    core.message.connect((message) => this.listening && this.signal(message))
  }

  signal(message: unknown): void {
    this.say({ type: 1, object: OBJECT, signal: 0, args: [message] })
  }

  release(): void {
    this.isHeld = false
    const { held } = this
    this.held = []
    held.forEach((packet) => this.say(packet))
  }

  private say(packet: object): void {
    if (this.isHeld) this.held.push(packet)
    else this.page.onmessage?.({ data: JSON.stringify(packet) })
  }

  private take(packet: Packet): void {
    const { id } = packet
    if (packet.type === CONNECT) this.listening += 1
    if (packet.type === DISCONNECT) this.listening -= 1
    if (packet.type === INIT) {
      const described = {
        signals: [
          ['message', 0],
          ['destroyed', 1],
        ],
        methods: [
          ['sendMessage', 5],
          ['log_json', 6],
          ['log_string', 7],
        ],
        properties: [],
        enums: {},
      }
      this.say({ type: 10, id, data: this.hasObject ? { [OBJECT]: described } : {} })
    }
    if (packet.type === INVOKE && packet.method === 'sendMessage') {
      const [message] = packet.args as [object]
      this.core.sendMessage(message, (data) => this.say({ type: 10, id, data }))
    }
  }
}
