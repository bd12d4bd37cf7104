/** What lasts as long as a screen: when the screen is left, all of it ends. */
export interface Scope {
  readonly isOver: boolean
  /** Ends with the scope. */
  add(stop: () => void): void
  listen(target: EventTarget, type: string, callback: (event: Event) => void): void
  /** Calls back once, unless the scope ends before. Returns how to stop that. */
  after(milliseconds: number, callback: () => void): () => void
  every(milliseconds: number, callback: () => void): void
  end(): void
}

export function createScope(): Scope {
  const stops = new Set<() => void>()
  let isOver = false
  const scope: Scope = {
    get isOver() {
      return isOver
    },
    add(stop) {
      if (isOver) stop()
      else stops.add(stop)
    },
    listen(target, type, callback) {
      target.addEventListener(type, callback)
      scope.add(() => target.removeEventListener(type, callback))
    },
    after(milliseconds, callback) {
      const stop = (): void => {
        clearTimeout(timer)
        stops.delete(stop)
      }
      const timer = setTimeout(() => {
        stops.delete(stop)
        callback()
      }, milliseconds)
      scope.add(stop)
      return stop
    },
    every(milliseconds, callback) {
      const timer = setInterval(callback, milliseconds)
      scope.add(() => clearInterval(timer))
    },
    end() {
      isOver = true
      const all = [...stops]
      stops.clear()
      for (const stop of all) stop()
    },
  }
  return scope
}
