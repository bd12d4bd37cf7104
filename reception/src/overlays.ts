import type { App } from './app.js'
import { el } from './dom.js'
import { button } from './parts/button.js'
import { robotFace } from './parts/face.js'
import { languageButtons } from './parts/languages.js'
import { createScope, type Scope } from './scope.js'

type Dialog = { readonly element: HTMLElement; close(): void }

// Opens a dialog above everything; the focus goes into it, and back when it closes.
function openDialog(above: HTMLElement, build: (scope: Scope) => HTMLElement): Dialog {
  const scope = createScope()
  const before = document.activeElement
  const element = build(scope)
  const veil = el('div', { class: 'veil' }, element)
  above.appendChild(veil)
  element.querySelector<HTMLElement>('button')?.focus({ preventScroll: true })
  // The page behind is out of reach meanwhile.
  scope.listen(element, 'keydown', (event) => {
    if ((event as KeyboardEvent).key === 'Tab') cycle(element, event as KeyboardEvent)
  })
  return {
    element,
    close() {
      scope.end()
      veil.remove()
      if (before instanceof HTMLElement && before.isConnected) before.focus({ preventScroll: true })
    },
  }
}

function cycle(element: HTMLElement, event: KeyboardEvent): void {
  const buttons = [...element.querySelectorAll<HTMLElement>('button')]
  const at = buttons.indexOf(document.activeElement as HTMLElement)
  const next = buttons[(at + (event.shiftKey ? -1 : 1) + buttons.length) % buttons.length]
  event.preventDefault()
  next?.focus()
}

/** The choice of the language. */
export function languageDialog(app: App, scope: Scope, above: HTMLElement): void {
  let dialog: Dialog | undefined
  const show = (isOpen: boolean): void => {
    dialog?.close()
    dialog = undefined
    if (!isOpen) return
    const close = (): void => app.isChoosingLanguage.set(false)
    dialog = openDialog(above, (inner) =>
      el(
        'div',
        {
          class: 'dialog',
          role: 'dialog',
          'aria-modal': 'true',
          'aria-label': app.t('language.title'),
          'data-overlay': 'language',
        },
        el('h2', { class: 'dialog-title' }, app.t('language.title')),
        languageButtons(app, inner, close),
        button(inner, {
          action: 'close',
          label: app.t('common.close'),
          icon: 'close',
          kind: 'quiet',
          press: close,
        }),
      ),
    )
  }
  scope.add(app.isChoosingLanguage.watch(show))
  scope.add(() => dialog?.close())
}

/** Asks whether somebody is still there, and counts down. */
export function countdownDialog(app: App, scope: Scope, above: HTMLElement): void {
  let dialog: Dialog | undefined
  const show = (left: number | undefined): void => {
    if (left === undefined) {
      dialog?.close()
      dialog = undefined
      return
    }
    if (!dialog) dialog = openDialog(above, (inner) => build(app, inner))
    const number = dialog.element.querySelector('.countdown-number')
    if (number) {
      number.textContent = String(left)
      number.setAttribute('aria-label', app.t('idle.seconds', { seconds: left }))
    }
    const part = left / app.config.countdownSeconds
    dialog.element.style.setProperty('--left', String(part))
  }
  scope.add(app.countdown.watch(show))
  scope.add(() => dialog?.close())
}

function build(app: App, scope: Scope): HTMLElement {
  return el(
    'div',
    {
      class: 'dialog',
      role: 'alertdialog',
      'aria-modal': 'true',
      'aria-label': app.t('idle.title'),
      'data-overlay': 'idle',
    },
    el('div', { class: 'countdown' }, el('span', { class: 'countdown-number', role: 'timer' })),
    el('h2', { class: 'dialog-title' }, app.t('idle.title')),
    el('p', { class: 'dialog-text' }, app.t('idle.text')),
    el(
      'div',
      { class: 'actions' },
      button(scope, {
        action: 'stay',
        label: app.t('idle.stay'),
        icon: 'check',
        kind: 'primary',
        press: app.touch,
      }),
      button(scope, {
        action: 'finish',
        label: app.t('idle.finish'),
        icon: 'exit',
        press: app.end,
      }),
    ),
  )
}

/** The connection is broken, and comes back by itself. */
export function lostNotice(app: App, scope: Scope, above: HTMLElement): void {
  let element: HTMLElement | undefined
  const show = (): void => {
    element?.remove()
    element = undefined
    if (app.robot.state === 'connected') return
    element = el(
      'div',
      { class: 'veil' },
      el(
        'div',
        { class: 'dialog', role: 'alert', 'data-overlay': 'lost' },
        robotFace(),
        el('h2', { class: 'dialog-title' }, app.t('lost.title')),
        el('p', { class: 'dialog-text' }, app.t('lost.text')),
      ),
    )
    above.appendChild(element)
  }
  scope.add(app.robot.onState(show))
  scope.add(app.language.watch(show))
  scope.add(() => element?.remove())
}
