/** Callbacks by name. A callback that throws does not stop others. */
export interface Listeners<A extends unknown[]> {
  add(name: string, callback: (...values: A) => void): () => void
  call(name: string, ...values: A): void
}

export function createListeners<A extends unknown[]>(): Listeners<A> {
  // A map, since names come from outside, "__proto__" perhaps.
  const lists = new Map<string, Set<{ callback: (...values: A) => void }>>()
  return {
    add(name, callback) {
      const entry = { callback }
      let list = lists.get(name)
      if (!list) {
        list = new Set()
        lists.set(name, list)
      }
      list.add(entry)
      return () => {
        lists.get(name)?.delete(entry)
      }
    },
    call(name, ...values) {
      const list = lists.get(name)
      if (list) {
        for (const entry of Array.from(list)) {
          // One that was removed by a callback before it is not called any more.
          if (list.has(entry)) guarded(() => entry.callback(...values))
        }
      }
    },
  }
}

/** Runs @p action; an error of it goes to the console. */
export function guarded(action: () => void): void {
  try {
    action()
  } catch (error) {
    console.error('panorel: a callback of the page failed', error)
  }
}
