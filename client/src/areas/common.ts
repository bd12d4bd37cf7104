import type { RequestOptions } from '../types.js'

/** The page's options, with a longer default. */
export function patient(
  options: RequestOptions | undefined,
  milliseconds: number,
): RequestOptions & { until?: undefined } {
  const { timeout = milliseconds, signal } = options || {}
  return { timeout, signal }
}

/** One function that stops all of them. */
export function all(...stops: (() => void)[]): () => void {
  return () => stops.forEach((stop) => stop())
}
