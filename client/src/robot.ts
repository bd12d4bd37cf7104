import type { Core, Line, Opener } from './channel.js'
import { PanorelError } from './errors.js'
import { createListeners, guarded } from './listeners.js'
import { read, write } from './messages.js'
import { mistakeIn } from './mistakes.js'
import { createRequests } from './requests.js'
import type { Robot, RobotState } from './types.js'

const FIRST_DELAY = 250
const LONGEST_DELAY = 10000

/** Reaches the robot and keeps it. Rejects when that takes longer than @p timeout milliseconds. */
export function openRobot(open: Opener, timeout: number): Promise<Robot> {
  return new Promise((resolve, reject) => {
    const listeners = createListeners<[{ [name: string]: unknown }]>()
    const spectators = createListeners<[string, { [name: string]: unknown }]>()
    const observers = createListeners<[RobotState]>()
    const requests = createRequests((topic, attributes, returned) => {
      core?.sendMessage(write(topic, attributes), returned)
    })

    let state: RobotState | 'connecting' = 'connecting'
    let line: Line | undefined
    let core: Core | undefined
    let delay = FIRST_DELAY
    let timer: ReturnType<typeof setTimeout> | undefined
    let reason: unknown

    // Nothing may leave this function: the web channel would lose other objects' messages.
    function deliver(message: unknown): void {
      guarded(() => {
        const told = read(message)
        if (!told) return
        requests.heard(told)
        listeners.call(told.topic, told.attributes)
        spectators.call('', told.topic, told.attributes)
      })
    }

    function become(next: RobotState): void {
      state = next
      observers.call('', next)
    }

    function attempt(): void {
      let mine: Line | undefined
      try {
        mine = open((refusal) => leave(mine, undefined, refusal))
      } catch (error) {
        leave(undefined, error)
        return
      }
      line = mine
      // One that hangs must not stop the next.
      timer = setTimeout(() => leave(mine), timeout)
      mine.ready.then(
        (found) => enter(mine, found),
        (error) => leave(mine, error),
      )
    }

    function enter(from: Line | undefined, found: Core): void {
      if (line !== from) return
      clearTimeout(timer)
      clearTimeout(limit)
      delay = FIRST_DELAY
      core = found
      core.message.connect(deliver)
      become('connected')
      resolve(robot)
    }

    function leave(from: Line | undefined, error?: unknown, refusal?: PanorelError): void {
      if (line !== from || state === 'closed') return
      if (refusal) {
        // A page that still waits for its robot is told by the promise.
        if (state !== 'connecting') console.warn(`panorel: ${refusal.message}`)
        end(refusal)
        return
      }
      reason = error || reason
      drop()
      timer = setTimeout(attempt, delay)
      delay = Math.min(2 * delay, LONGEST_DELAY)
      if (state === 'connected') {
        become('reconnecting')
        requests.lost(new PanorelError('disconnected', 'the connection to the robot broke'))
      }
    }

    function drop(): void {
      clearTimeout(timer)
      const [oldLine, oldCore] = [line, core]
      line = core = undefined
      if (oldLine) guarded(() => oldLine.close())
      if (oldCore) guarded(() => oldCore.message.disconnect(deliver))
    }

    // For good.
    function end(error: PanorelError): void {
      if (state === 'closed') return
      clearTimeout(limit)
      drop()
      become('closed')
      requests.lost(new PanorelError('disconnected', error.message))
      // Nothing happens where the page has its robot already.
      reject(error)
    }

    // Typed where it is used: here topics are texts.
    const robot = {
      get state() {
        return state
      },
      onState: (callback: (state: RobotState) => void) => observers.add('', callback),
      send(topic: string, attributes?: unknown) {
        const mistake = mistakeIn(topic, attributes)
        if (mistake) throw new PanorelError('mistake', mistake)
        // With a callback no promise is made that nobody would look at.
        if (core) core.sendMessage(write(topic, attributes), () => {})
        else console.warn(`panorel: ${topic} is dropped, there is no connection to the robot`)
      },
      on: (topic: string, callback: (attributes: { [name: string]: unknown }) => void) =>
        listeners.add(topic, callback),
      onAny: (callback: (topic: string, attributes: { [name: string]: unknown }) => void) =>
        spectators.add('', callback),
      request(topic: string, attributes?: unknown, options = {}) {
        const mistake = mistakeIn(topic, attributes)
        if (mistake) return Promise.reject(new PanorelError('mistake', mistake))
        return core
          ? requests.ask(topic, attributes, options)
          : Promise.reject(
              new PanorelError('disconnected', `${topic}: there is no connection to the robot`),
            )
      },
      close: () => end(new PanorelError('disconnected', 'the page closed the connection')),
    } as unknown as Robot

    const limit = setTimeout(() => {
      const words = reason instanceof Error ? `: ${reason.message}` : ''
      end(new PanorelError('no-robot', `no robot within ${timeout} ms${words}`))
    }, timeout)
    attempt()
  })
}
