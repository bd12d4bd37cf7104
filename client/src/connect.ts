import type { Opener, Transport, WebChannel } from './channel.js'
import { coreOf, overTransport, overWebSocket, page } from './channel.js'
import { PanorelError } from './errors.js'
import { openRobot } from './robot.js'
import type { Robot } from './types.js'

/** Where the robot is and how long to look for it. Nothing of it is needed on the robot. */
export interface ConnectOptions {
  /** Milliseconds to look for the robot. Default 10000. */
  timeout?: number
  /** The address that a simulator gives for its page, token included, for a page that is served
   *  from elsewhere: "http://localhost:8080/?token=...". */
  url?: string
  /** Where qwebchannel.js is; default: in the robot's screen, or beside the web channel. */
  library?: string
  /** A web channel that the page has opened itself. */
  channel?: WebChannel
  /** Whatever else leads to a robot, such as the fake one of "panorel-client/testing". */
  open?: Opener
}

const TIMEOUT = 10000
const TOKEN = 'panorel-token'

// A page has one transport, and of two web channels over it the first would hear nothing any more.
let shared: Promise<Robot> | undefined

/**
 * Finds the robot behind this page: the one whose screen shows it, or the one that a simulator
 * serves, when the page's own address or `url` has a token. Resolves when the robot can be spoken
 * to. Rejects with a PanorelError of kind "no-robot", at once when nothing leads to a robot or its
 * server refuses this page.
 *
 * @example
 * connect().then(
 *   (robot) => robot.on('user.has.user', (user) => console.log('Hello', user.name)),
 *   (error) => console.warn('No robot here:', error.message),
 * )
 */
export function connect(options: ConnectOptions = {}): Promise<Robot> {
  const { timeout = TIMEOUT, open, channel } = options
  if (open) return openRobot(open, timeout)
  if (channel) return openRobot(overChannel(channel), timeout)
  const transport = (page() as { qt?: { webChannelTransport?: Transport } }).qt?.webChannelTransport
  if (transport && !options.url) {
    const library = options.library || 'qrc:///qtwebchannel/qwebchannel.js'
    if (!shared) {
      const mine = openRobot(overTransport(transport, library), timeout)
      shared = mine
      const forget = (): void => {
        if (shared === mine) shared = undefined
      }
      mine.then((robot) => robot.onState((state) => state === 'closed' && forget()), forget)
    }
    return shared
  }
  return toServer(options, timeout)
}

async function toServer(options: ConnectOptions, timeout: number): Promise<Robot> {
  const here = typeof location === 'undefined' ? '' : location.href
  const url = new URL(options.url || here || 'about:blank')
  const token = tokenOf(url, !options.url)
  if (!token || !/^(http|ws)s?:$/.test(url.protocol)) {
    throw new PanorelError(
      'no-robot',
      'no robot here: no robot shows this page, and its address has no token of a simulator',
    )
  }
  const end = `${/(https|wss):/.test(url.protocol) ? 's' : ''}://${url.host}/`
  const query = `?token=${encodeURIComponent(token)}`
  const library = options.library || `http${end}qwebchannel.js`
  return openRobot(overWebSocket(`ws${end}channel${query}`, library), timeout)
}

// The tab keeps the token for the page's other pages.
function tokenOf(url: URL, isHere: boolean): string | null {
  const token = url.searchParams.get('token')
  try {
    if (isHere && token) sessionStorage.setItem(TOKEN, token)
    return token || (isHere ? sessionStorage.getItem(TOKEN) : null)
  } catch {
    return token // a page without storage
  }
}

function overChannel(channel: WebChannel): Opener {
  return () => ({ ready: Promise.resolve().then(() => coreOf(channel)), close() {} })
}
