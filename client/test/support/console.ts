import { afterEach, beforeEach, expect, vi } from 'vitest'

let lines: string[] = []

beforeEach(() => {
  lines = []
  for (const level of ['error', 'warn'] as const) {
    vi.spyOn(console, level).mockImplementation((...words: unknown[]) => {
      lines.push(words.map(String).join(' '))
    })
  }
})

afterEach(() => {
  expect(lines, 'what the console says and no test took').toEqual([])
  vi.useRealTimers()
})

/** Takes what was written to the console. */
export function takeConsole(): string[] {
  const taken = lines
  lines = []
  return taken
}
