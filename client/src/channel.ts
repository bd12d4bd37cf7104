import { PanorelError } from './errors.js'

/** The name of the robot's object in the web channel. */
const CORE_NAME = '_karvel_internal'

/** The close code of a server that will not have this page, however often it comes back. */
const REFUSED = 1008

/** What a web channel gives for the robot: the seam between this package and what carries it. */
export interface Core {
  readonly message: {
    connect(callback: (message: unknown) => void): void
    disconnect(callback: (message: unknown) => void): void
  }
  /** Calls back when the robot has dealt with the message; its direct replies came before. */
  sendMessage(message: object, returned?: (value: unknown) => void): void
}

/** A web channel, as Qt's qwebchannel.js makes it. */
export interface WebChannel {
  readonly objects: { readonly [name: string]: unknown }
}

/** What a web channel stands on. */
export interface Transport {
  send(text: string): void
  onmessage?: ((event: { data: string }) => void) | null
}

/** One attempt to reach the robot. */
export interface Line {
  readonly ready: Promise<Core>
  close(): void
}

/** Makes one attempt; calls @p lost when a connection that it made has broken, with the reason when
 *  no other attempt would do better. */
export type Opener = (lost: (refusal?: PanorelError) => void) => Line

/** The robot in a web channel. */
export function coreOf(channel: WebChannel): Core {
  const core = channel.objects[CORE_NAME]
  if (!core) throw new PanorelError('no-robot', `the web channel has no object ${CORE_NAME}`)
  return core as Core
}

/** Over the transport that the robot's screen gives its page. */
export function overTransport(transport: Transport, library: string): Opener {
  return () => ({ ready: openChannel(transport, library), close() {} })
}

/** Over a WebSocket, as a simulator on a desk offers it. */
export function overWebSocket(address: string, library: string): Opener {
  return (lost) => {
    const socket = new WebSocket(address)
    const [server] = address.split('?')
    let isOpen = false
    const ready = new Promise<void>((resolve, reject) => {
      socket.onclose = ({ code, reason }) => {
        if (code === REFUSED) {
          lost(new PanorelError('no-robot', `${server} refuses this page`, code, reason))
        } else if (isOpen) {
          lost()
        } else {
          reject(new PanorelError('no-robot', `no connection to ${server}`))
        }
      }
      socket.onopen = () => {
        isOpen = true
        resolve()
      }
    })
    return {
      ready: ready.then(() => openChannel(carriedBy(socket), library)),
      close() {
        socket.onclose = null
        socket.close()
      },
    }
  }
}

// A browser complains of words to a socket that has closed, such as those that end a subscription.
function carriedBy(socket: WebSocket): Transport {
  const transport: Transport = {
    send(text) {
      if (socket.readyState === 1) socket.send(text)
    },
  }
  socket.onmessage = (event) => transport.onmessage?.(event)
  return transport
}

/** The page's global object; an empty one where there is no page. */
export function page(): object {
  if (typeof self !== 'undefined') return self
  return typeof globalThis === 'undefined' ? {} : globalThis
}

async function openChannel(transport: Transport, library: string): Promise<Core> {
  const make = await loadLibrary(library)
  return new Promise((resolve, reject) => {
    new make(transport, (channel) => {
      try {
        resolve(coreOf(channel))
      } catch (error) {
        reject(error)
      }
    })
  })
}

type Maker = new (transport: Transport, opened: (channel: WebChannel) => void) => unknown

// Qt's own client of web channels, unless the page has it already.
async function loadLibrary(address: string): Promise<Maker> {
  const found = (): Maker | undefined => (page() as { QWebChannel?: Maker }).QWebChannel
  if (!found()) {
    await new Promise<void>((resolve, reject) => {
      const script = document.createElement('script')
      script.src = address
      script.onload = () => resolve()
      script.onerror = () => {
        script.remove()
        reject(new PanorelError('no-robot', `${address} cannot be loaded`))
      }
      document.head.appendChild(script)
    })
  }
  const make = found()
  if (!make) throw new PanorelError('no-robot', `${address} holds no QWebChannel`)
  return make
}
