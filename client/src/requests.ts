import { PanorelError, TimeoutError } from './errors.js'
import type { Told } from './messages.js'
import { replyTopics } from './topics.js'

/** The longest time that a timer takes. */
const LONGEST = 0x7fffffff
const DEFAULT_TIMEOUT = 10000

interface Options {
  timeout?: number | undefined
  signal?: AbortSignal | undefined
  until?: ((reply: Told) => boolean | number) | undefined
}

interface Outcome extends Told {
  replies: Told[]
}

interface Exchange {
  topics: readonly string[]
  running: boolean
  start(): void
  heard(told: Told): void
  lost(error: Error): void
}

/** Hands a message over; calls back when the robot has dealt with it. */
type Post = (topic: string, attributes: unknown, returned: () => void) => void

export interface Requests {
  ask(topic: string, attributes: unknown, options: Options): Promise<Outcome>
  heard(told: Told): void
  lost(error: Error): void
}

/** The requests that are under way or wait for their turn. */
export function createRequests(post: Post): Requests {
  let exchanges: Exchange[] = []

  // Starts what has no reply in common with an exchange before it.
  function turn(): void {
    const taken = new Set<string>()
    for (const exchange of exchanges.slice()) {
      const isFree = !exchange.topics.some((topic) => taken.has(topic))
      exchange.topics.forEach((topic) => taken.add(topic))
      // Whoever gave up while another began is not there any more.
      if (isFree && !exchange.running && exchanges.includes(exchange)) {
        exchange.running = true
        exchange.start()
      }
    }
  }

  function leave(exchange: Exchange): void {
    exchanges = exchanges.filter((other) => other !== exchange)
    turn()
  }

  function ask(topic: string, attributes: unknown, options: Options): Promise<Outcome> {
    return new Promise((resolve, reject) => {
      const [now = [], later = [], interim = []] = replyTopics[topic] || []
      const { until, signal, timeout = DEFAULT_TIMEOUT } = options
      // An answer that may come at once or later is waited for.
      const isDirect = !until && now.length > 0 && !now.some((name) => later.includes(name))
      const replies: Told[] = []
      let isSettled = false
      let isReturned = false
      let isOwed = false
      let timer: ReturnType<typeof setTimeout> | undefined
      let delay: ReturnType<typeof setTimeout> | undefined

      // The robot may still answer what the page no longer waits for: the next in turn waits until
      // it has dealt with this one, and where its answer comes later, until that has come; at the
      // worst once more as long.
      function settle(act: () => void): void {
        if (isSettled) return
        isSettled = true
        clearTimeout(timer)
        clearTimeout(delay)
        signal?.removeEventListener('abort', abort)
        act()
        if (!exchange.running || (isReturned && !isOwed)) leave(exchange)
        else timer = setTimeout(release, Math.min(timeout, isReturned ? DEFAULT_TIMEOUT : LONGEST))
      }

      function release(): void {
        clearTimeout(timer)
        isReturned = true
        leave(exchange)
      }

      function finish(reply: Told): void {
        settle(() => resolve({ topic: reply.topic, attributes: reply.attributes, replies }))
      }

      function fail(error: unknown): void {
        settle(() => reject(error))
      }

      // Who says by `until` what ends the request is owed nothing: any reply may be the next one's.
      function giveUp(error: unknown): void {
        isOwed = !until && !isDirect
        fail(error)
      }

      function abort(): void {
        giveUp(new PanorelError('aborted', `${topic}: given up`))
      }

      function returned(): void {
        if (isReturned) return
        isReturned = true
        if (isSettled) {
          if (!isOwed) release()
        } else if (isDirect) {
          const answer = replies.find((reply) => !interim.includes(reply.topic))
          finish(answer || { topic: 'none', attributes: {} })
        }
      }

      const exchange: Exchange = {
        topics: isDirect ? now : now.concat(later),
        running: false,
        start() {
          if (timeout <= LONGEST) {
            timer = setTimeout(() => {
              giveUp(new TimeoutError(`${topic}: no answer within ${timeout} ms`))
            }, timeout)
          }
          try {
            post(topic, attributes, returned)
          } catch (error) {
            // Attributes that are no JSON.
            isReturned = true
            fail(error)
          }
        },
        heard(reply) {
          if (!exchange.topics.includes(reply.topic)) return
          if (isSettled) {
            if (isOwed && !interim.includes(reply.topic)) release()
            return
          }
          replies.push(reply)
          if (!until) {
            if (!isDirect && !interim.includes(reply.topic)) finish(reply)
            return
          }
          try {
            const end = until(reply)
            if (end === true) {
              finish(reply)
            } else if (typeof end === 'number') {
              clearTimeout(delay)
              delay = setTimeout(() => finish(reply), end)
            }
          } catch (error) {
            fail(error)
          }
        },
        lost(error) {
          isReturned = true
          if (isSettled) clearTimeout(timer)
          else fail(error)
        },
      }

      if (signal?.aborted) {
        isSettled = true
        reject(new PanorelError('aborted', `${topic}: given up`))
        return
      }
      signal?.addEventListener('abort', abort)
      exchanges.push(exchange)
      turn()
    })
  }

  return {
    ask,
    heard(told) {
      // Whoever is started by the end of another was not meant.
      const meant = exchanges.filter((exchange) => exchange.running)
      meant.forEach((exchange) => exchange.heard(told))
    },
    lost(error) {
      const before = exchanges
      exchanges = []
      before.forEach((exchange) => exchange.lost(error))
    },
  }
}
