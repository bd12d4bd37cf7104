import type { App } from '../app.js'
import { closeCamera, openCamera, takePicture } from '../camera.js'
import { el } from '../dom.js'
import type { Scope } from '../scope.js'
import { button } from './button.js'

const COUNT = 3

/** Takes a picture after a short count-down; calls back without one where there is no camera. */
export function cameraPanel(
  app: App,
  scope: Scope,
  done: (picture: HTMLCanvasElement | undefined) => void,
): HTMLElement {
  const video = el('video', { class: 'camera-video', muted: true, playsinline: true })
  video.muted = true
  const counter = el('p', { class: 'camera-counter', 'aria-live': 'assertive' })
  const text = el('p', { class: 'panel-text' }, app.t('badge.camera.wait'))

  function count(left: number): void {
    if (left === 0) {
      done(takePicture(video))
      return
    }
    counter.textContent = String(left)
    scope.after(1000, () => count(left - 1))
  }

  async function open(): Promise<void> {
    const stream = await openCamera()
    if (scope.isOver) {
      if (stream) closeCamera(stream)
      return
    }
    if (!stream) {
      done(undefined)
      return
    }
    scope.add(() => closeCamera(stream))
    video.srcObject = stream
    try {
      await video.play()
    } catch {
      if (!scope.isOver) done(undefined)
      return
    }
    text.textContent = ''
    if (!scope.isOver) count(COUNT)
  }

  open()
  return el(
    'section',
    { class: 'camera' },
    el('h1', { class: 'panel-title', tabindex: -1 }, app.t('badge.camera.title')),
    el('div', { class: 'camera-frame' }, video, counter),
    text,
    el(
      'div',
      { class: 'actions' },
      button(scope, {
        action: 'cancel',
        label: app.t('common.cancel'),
        icon: 'close',
        press: () => app.visit.printing.state.set({ at: 'preview', isCameraMissing: false }),
      }),
    ),
  )
}
