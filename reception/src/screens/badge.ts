import type { App } from '../app.js'
import { drawBadge } from '../badge.js'
import { el } from '../dom.js'
import type { PrintingState } from '../flows/printing.js'
import { button } from '../parts/button.js'
import { cameraPanel } from '../parts/camera.js'
import { field } from '../parts/field.js'
import { frame, live, panel } from '../parts/frame.js'
import { nextButton, problemPanel, skipButton } from '../parts/problem.js'
import type { Scope } from '../scope.js'
import type { Screen } from './index.js'

/** The badge of this visitor, as it is printed. */
export function badgeCanvas(app: App): HTMLCanvasElement {
  const { visit } = app
  const canvas = el('canvas', { class: 'badge-canvas', role: 'img', 'aria-label': visit.name })
  drawBadge(canvas, {
    site: app.local(app.config.company),
    kind: app.t('badge.visitor'),
    name: visit.name.trim(),
    company: visit.company.trim(),
    host: visit.host ? app.t('badge.visits', { name: visit.host.name }) : '',
    date: new Intl.DateTimeFormat(app.language.get(), { dateStyle: 'medium' }).format(new Date()),
    picture: visit.picture,
    isRightToLeft: document.documentElement.dir === 'rtl',
  })
  return canvas
}

function form(app: App, scope: Scope): HTMLElement {
  const { visit } = app
  const hint = el('p', { class: 'field-hint', role: 'alert' })
  const element = el(
    'form',
    { class: 'form', novalidate: true },
    el('h1', { class: 'panel-title', tabindex: -1 }, app.t('badge.form')),
    field(app, scope, {
      name: 'name',
      label: app.t('badge.name'),
      value: visit.name,
      changed(value) {
        visit.name = value
        hint.textContent = ''
      },
    }),
    hint,
    field(app, scope, {
      name: 'company',
      label: app.t('badge.company'),
      value: visit.company,
      changed(value) {
        visit.company = value
      },
    }),
    el(
      'div',
      { class: 'actions' },
      button(scope, {
        action: 'preview',
        label: app.t('common.next'),
        icon: 'next',
        isIconLast: true,
        kind: 'primary',
        press: submit,
      }),
      skipButton(app, scope),
    ),
  )
  function submit(): void {
    if (visit.name.trim()) {
      visit.printing.state.set({ at: 'preview', isCameraMissing: false })
      return
    }
    hint.textContent = app.t('badge.needed')
    element.querySelector<HTMLElement>('input')?.focus()
  }
  scope.listen(element, 'submit', (event) => {
    event.preventDefault()
    submit()
  })
  return element
}

function preview(app: App, scope: Scope, isCameraMissing: boolean): HTMLElement {
  const { visit } = app
  const canvas = badgeCanvas(app)
  const show = (state: PrintingState): void => visit.printing.state.set(state)
  return el(
    'section',
    { class: 'preview' },
    el('h1', { class: 'panel-title', tabindex: -1 }, app.t('badge.preview')),
    canvas,
    isCameraMissing && el('p', { class: 'panel-note' }, app.t('badge.camera.none')),
    el(
      'div',
      { class: 'actions' },
      button(scope, {
        action: 'print',
        label: app.t('badge.print'),
        icon: 'printer',
        kind: 'primary',
        press: () => void visit.printing.print(canvas),
      }),
      app.config.camera &&
        !isCameraMissing &&
        button(scope, {
          action: 'picture',
          label: app.t(visit.picture ? 'badge.picture.again' : 'badge.picture'),
          icon: 'camera',
          press: () => show({ at: 'camera' }),
        }),
      visit.picture &&
        button(scope, {
          action: 'no-picture',
          label: app.t('badge.picture.without'),
          icon: 'close',
          press() {
            visit.picture = undefined
            show({ at: 'preview', isCameraMissing: false })
          },
        }),
      button(scope, {
        action: 'change',
        label: app.t('badge.change'),
        icon: 'back',
        press: () => show({ at: 'form' }),
      }),
    ),
  )
}

function view(app: App, scope: Scope, state: PrintingState): Node {
  const { printing } = app.visit
  switch (state.at) {
    case 'form':
      return form(app, scope)
    case 'camera':
      return cameraPanel(app, scope, (picture) => {
        app.visit.picture = picture || app.visit.picture
        printing.state.set({ at: 'preview', isCameraMissing: !picture })
      })
    case 'preview':
      return preview(app, scope, state.isCameraMissing)
    case 'printing':
      return panel({
        icon: 'printer',
        mood: 'busy',
        title: app.t('badge.printing'),
        text: app.t('badge.printing.text'),
      })
    case 'done':
      return panel({
        icon: 'check',
        mood: 'good',
        title: app.t('badge.done'),
        text: app.t('badge.done.text'),
        notes: state.isPaperLow ? [app.t('badge.low')] : [],
        actions: [nextButton(app, scope)],
      })
    case 'problem':
      return problemPanel(app, scope, state.problem, {
        retry: () => void printing.print(badgeCanvas(app)),
      })
  }
}

/** Prints a badge with name and picture. */
export const badge: Screen = (app, scope) =>
  frame(
    app,
    scope,
    'badge',
    app.t('badge.title'),
    live(scope, app.visit.printing.state, (state, inner) => view(app, inner, state)),
  )
