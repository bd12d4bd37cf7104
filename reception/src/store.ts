/** A value that tells when it changes. */
export interface Store<T> {
  get(): T
  set(next: T): void
  /** Calls back with every new value. Returns how to stop that. */
  watch(callback: (value: T) => void): () => void
}

export function createStore<T>(initial: T): Store<T> {
  let value = initial
  const watchers = new Set<{ callback: (value: T) => void }>()
  return {
    get: () => value,
    set(next) {
      value = next
      // Whoever stops watching meanwhile is not called any more.
      for (const watcher of [...watchers]) {
        if (watchers.has(watcher)) watcher.callback(next)
      }
    },
    watch(callback) {
      const watcher = { callback }
      watchers.add(watcher)
      return () => {
        watchers.delete(watcher)
      }
    },
  }
}
