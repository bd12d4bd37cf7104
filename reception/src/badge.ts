/** What stands on a badge. */
export interface Badge {
  readonly site: string
  readonly kind: string
  readonly name: string
  readonly company: string
  /** Whom the visitor visits. */
  readonly host: string
  readonly date: string
  readonly picture: HTMLCanvasElement | undefined
  readonly isRightToLeft: boolean
}

export const BADGE_WIDTH = 800
export const BADGE_HEIGHT = 500

// Dark on white: most badge printers know nothing else.
const INK = '#0a1a33'
const PAPER = '#ffffff'
const PALE = '#e3e9f2'
const FONT = 'system-ui, "Noto Sans", "DejaVu Sans", sans-serif'
const EDGE = 40
const HEAD = 96
const PICTURE = 240

/** Draws a badge, which then can be printed as it is. */
export function drawBadge(canvas: HTMLCanvasElement, badge: Badge): void {
  canvas.width = BADGE_WIDTH
  canvas.height = BADGE_HEIGHT
  const context = canvas.getContext('2d')
  if (!context) return
  const start = badge.isRightToLeft ? BADGE_WIDTH - EDGE : EDGE
  const end = BADGE_WIDTH - start
  const inward = badge.isRightToLeft ? -1 : 1
  context.direction = badge.isRightToLeft ? 'rtl' : 'ltr'
  context.textBaseline = 'middle'

  context.fillStyle = PAPER
  context.fillRect(0, 0, BADGE_WIDTH, BADGE_HEIGHT)
  context.fillStyle = INK
  context.fillRect(0, 0, BADGE_WIDTH, HEAD)
  context.fillStyle = PAPER
  write(context, badge.site, start, HEAD / 2, 480, [36, 30, 24], 'bold', 'start')
  write(context, badge.date, end, HEAD / 2, 220, [28, 24], 'normal', 'end')

  const left = badge.isRightToLeft ? start - PICTURE : start
  const top = HEAD + 52
  drawPicture(context, badge, left, top)

  const from = start + inward * (PICTURE + 40)
  const room = BADGE_WIDTH - 2 * EDGE - PICTURE - 40
  context.fillStyle = INK
  write(context, badge.kind, from, top + 18, room, [30], 'normal', 'start')
  const lines = splitName(context, badge.name, room)
  lines.forEach((line, index) => {
    const middle = top + 84 + (lines.length === 1 ? 20 : index * 62)
    write(context, line, from, middle, room, [58, 48, 40, 32, 26], 'bold', 'start')
  })
  write(context, badge.company, from, top + 202, room, [30, 26, 22], 'normal', 'start')
  write(context, badge.host, from, top + 244, room, [30, 26, 22], 'normal', 'start')

  context.fillRect(0, BADGE_HEIGHT - 24, BADGE_WIDTH, 24)
}

/** The first letters of first name and surname. */
export function initials(name: string): string {
  const words = name
    .replace(/\(.*?\)/g, ' ')
    .trim()
    .split(/\s+/)
    .filter(Boolean)
  const first = [...(words[0] || '')][0] || ''
  const last = words.length > 1 ? [...words[words.length - 1]!][0] || '' : ''
  return (first + last).toUpperCase()
}

function drawPicture(
  context: CanvasRenderingContext2D,
  badge: Badge,
  left: number,
  top: number,
): void {
  const middle = left + PICTURE / 2
  context.save()
  context.beginPath()
  context.rect(left, top, PICTURE, PICTURE)
  context.clip()
  context.fillStyle = PALE
  context.fillRect(left, top, PICTURE, PICTURE)
  if (badge.picture) {
    context.drawImage(badge.picture, left, top, PICTURE, PICTURE)
  } else if (initials(badge.name)) {
    context.fillStyle = INK
    write(
      context,
      initials(badge.name),
      middle,
      top + PICTURE / 2,
      PICTURE - 40,
      [104, 88],
      'bold',
      'center',
    )
  } else {
    context.fillStyle = INK
    circle(context, middle, top + 92, 52)
    circle(context, middle, top + 262, 104)
  }
  context.restore()
  context.lineWidth = 4
  context.strokeStyle = INK
  context.strokeRect(left, top, PICTURE, PICTURE)
}

function circle(context: CanvasRenderingContext2D, x: number, y: number, radius: number): void {
  context.beginPath()
  context.arc(x, y, radius, 0, Math.PI * 2)
  context.fill()
}

// A long name takes two lines, broken between words.
function splitName(context: CanvasRenderingContext2D, name: string, room: number): string[] {
  context.font = `bold 58px ${FONT}`
  const words = name.split(/\s+/)
  if (words.length < 2 || context.measureText(name).width <= room) return [name]
  const half = Math.ceil(words.length / 2)
  return [words.slice(0, half).join(' '), words.slice(half).join(' ')]
}

// In the largest letters that have room; what never has is shortened.
function write(
  context: CanvasRenderingContext2D,
  text: string,
  x: number,
  y: number,
  room: number,
  sizes: readonly number[],
  weight: string,
  align: CanvasTextAlign,
): void {
  if (!text) return
  context.textAlign = align
  for (const size of sizes) {
    context.font = `${weight} ${size}px ${FONT}`
    if (context.measureText(text).width <= room) break
  }
  let short = text
  while (short.length > 1 && context.measureText(`${short}…`).width > room + 20) {
    short = short.slice(0, -1)
  }
  context.fillText(
    short === text || context.measureText(text).width <= room ? text : `${short}…`,
    x,
    y,
  )
}
