import { svg } from '../dom.js'

/** The robot's face, which blinks, and moves its mouth while the robot speaks. */
export function robotFace(): SVGElement {
  return svg(
    'svg',
    { class: 'face', viewBox: '0 0 120 120', 'aria-hidden': 'true', focusable: 'false' },
    svg('path', { class: 'face-antenna', d: 'M60 22V12' }),
    svg('circle', { class: 'face-lamp', cx: 60, cy: 9, r: 5 }),
    svg('rect', { class: 'face-ear', x: 4, y: 52, width: 12, height: 28, rx: 6 }),
    svg('rect', { class: 'face-ear', x: 104, y: 52, width: 12, height: 28, rx: 6 }),
    svg('rect', { class: 'face-head', x: 12, y: 22, width: 96, height: 88, rx: 34 }),
    svg('rect', { class: 'face-visor', x: 22, y: 36, width: 76, height: 58, rx: 24 }),
    svg(
      'g',
      { class: 'face-eyes' },
      svg('rect', { class: 'face-eye', x: 39, y: 50, width: 12, height: 18, rx: 6 }),
      svg('rect', { class: 'face-eye', x: 69, y: 50, width: 12, height: 18, rx: 6 }),
    ),
    svg('path', { class: 'face-mouth', d: 'M48 79c6 6 18 6 24 0' }),
  )
}
