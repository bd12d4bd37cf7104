import { afterEach, beforeEach, expect, vi } from 'vitest'

let lines: string[] = []

/** What was drawn on a canvas: the engine of the tests has none. */
export interface Drawn {
  readonly texts: string[]
  readonly pictures: number[]
}

const drawings = new WeakMap<HTMLCanvasElement, Drawn>()

export function drawnOn(canvas: HTMLCanvasElement): Drawn {
  let found = drawings.get(canvas)
  if (!found) {
    found = { texts: [], pictures: [] }
    drawings.set(canvas, found)
  }
  return found
}

function context(canvas: HTMLCanvasElement): unknown {
  const drawn = drawnOn(canvas)
  let size = 10
  const known: { [name: string]: unknown } = {
    set font(value: string) {
      size = Number(/(\d+)px/.exec(value)?.[1])
    },
    measureText: (text: string) => ({ width: [...text].length * size * 0.55 }),
    fillText: (text: string) => drawn.texts.push(text),
    drawImage: () => drawn.pictures.push(1),
  }
  return new Proxy(known, {
    get: (target, name: string) => (name in target ? target[name] : () => {}),
    set: (target, name: string, value) => Reflect.set(target, name, value),
  })
}

beforeEach(() => {
  lines = []
  for (const level of ['error', 'warn'] as const) {
    vi.spyOn(console, level).mockImplementation((...words: unknown[]) => {
      lines.push(words.map(String).join(' '))
    })
  }
  vi.spyOn(console, 'info').mockImplementation(() => {})
  vi.useFakeTimers()
  vi.spyOn(HTMLCanvasElement.prototype, 'getContext').mockImplementation(function (
    this: HTMLCanvasElement,
  ) {
    return context(this) as never
  })
  vi.spyOn(HTMLCanvasElement.prototype, 'toDataURL').mockImplementation(function (
    this: HTMLCanvasElement,
  ) {
    return `data:image/png;base64,${btoa(unescape(encodeURIComponent(drawnOn(this).texts.join('|'))))}`
  })
})

afterEach(() => {
  expect(lines, 'what the console says and no test took').toEqual([])
  vi.useRealTimers()
  document.body.replaceChildren()
})

/** Takes what was written to the console. */
export function takeConsole(): string[] {
  const taken = lines
  lines = []
  return taken
}
