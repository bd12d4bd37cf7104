import type { App } from '../app.js'
import { initials } from '../badge.js'
import type { Person } from '../config.js'
import { el, fill } from '../dom.js'
import type { CallState } from '../flows/call.js'
import { button } from '../parts/button.js'
import { field } from '../parts/field.js'
import { frame, live, panel } from '../parts/frame.js'
import { nextButton, problemPanel, skipButton } from '../parts/problem.js'
import { createScope, type Scope } from '../scope.js'
import type { Screen } from './index.js'

/** Whom a search finds: all words, in any order, whatever their accents. */
export function search(app: App, words: string): Person[] {
  const wanted = plain(words).split(/\s+/).filter(Boolean)
  return app.config.people.filter((person) => {
    const text = plain(`${person.name} ${app.local(person.department)}`)
    return wanted.every((word) => text.includes(word))
  })
}

function plain(text: string): string {
  return text.normalize('NFD').replace(/\p{M}/gu, '').toLowerCase()
}

function personButton(app: App, scope: Scope, person: Person): HTMLElement {
  const element = el(
    'button',
    { type: 'button', class: 'person', 'data-action': 'call-person', 'data-number': person.number },
    el('span', { class: 'person-mark', 'aria-hidden': 'true' }, initials(person.name)),
    el(
      'span',
      { class: 'person-words' },
      el('span', { class: 'person-name', dir: 'auto' }, person.name),
      el('span', { class: 'person-department' }, app.local(person.department)),
    ),
  )
  scope.listen(element, 'click', () => {
    app.visit.host = person
    app.visit.call.start(person)
  })
  return element
}

function directory(app: App, scope: Scope): HTMLElement {
  const list = el('div', { class: 'people' })
  const count = el('p', { class: 'unseen', role: 'status' })
  let inner = createScope()
  function show(words: string): void {
    inner.end()
    inner = createScope()
    const found = search(app, words)
    count.textContent = app.t('call.found', { count: found.length })
    const none = el(
      'div',
      { class: 'none' },
      el('p', { class: 'none-title' }, app.t('call.none')),
      el('p', {}, app.t('call.none.text')),
    )
    fill(list, ...(found.length ? found.map((one) => personButton(app, inner, one)) : [none]))
  }
  scope.add(() => inner.end())
  show('')
  return el(
    'section',
    { class: 'directory' },
    el('h1', { class: 'panel-title', tabindex: -1 }, app.t('call.title')),
    field(app, scope, {
      name: 'search',
      label: app.t('call.search'),
      type: 'search',
      value: '',
      changed: show,
    }),
    count,
    list,
    el('div', { class: 'actions' }, skipButton(app, scope)),
  )
}

function view(app: App, scope: Scope, state: CallState): Node {
  const { call } = app.visit
  if (state.at === 'choose') return directory(app, scope)
  const { person } = state
  const { name } = person
  const other = button(scope, {
    action: 'other',
    label: app.t('call.other'),
    icon: 'person',
    press: call.cancel,
  })
  const message = button(scope, {
    action: 'message',
    label: app.t('call.message'),
    icon: 'message',
    press: () => void call.leaveMessage(person, app.visit.name.trim()),
  })
  const hangup = button(scope, {
    action: 'hangup',
    label: app.t('call.hangup'),
    icon: 'hangup',
    kind: 'danger',
    press: call.hangUp,
  })
  switch (state.at) {
    case 'calling':
    case 'ringing':
      return panel({
        icon: 'phone',
        mood: 'busy',
        title: app.t(`call.${state.at}`, { name }),
        text: app.local(person.department),
        actions: [hangup],
      })
    case 'connected':
      return panel({
        icon: 'phone',
        mood: 'good',
        title: app.t('call.connected', { name }),
        text: app.t('call.connected.text'),
        actions: [hangup],
      })
    case 'ended':
      return panel({
        icon: 'phone',
        title: app.t('call.ended'),
        text: app.t('call.ended.text'),
        actions: [nextButton(app, scope), other],
      })
    case 'leaving':
      return panel({
        icon: 'message',
        mood: 'busy',
        title: app.t('call.message.waiting', { name }),
        actions: [
          button(scope, {
            action: 'cancel',
            label: app.t('common.cancel'),
            icon: 'close',
            press: call.cancel,
          }),
        ],
      })
    case 'left':
      return panel({
        icon: 'check',
        mood: 'good',
        title: app.t('call.message.done', { name }),
        text: app.t('call.message.done.text'),
        actions: [nextButton(app, scope)],
      })
    case 'problem': {
      const isThere = state.problem === 'call.busy' || state.problem === 'call.noanswer'
      const isMessage = state.problem === 'call.message'
      return problemPanel(app, scope, state.problem, {
        values: { name },
        retry: () =>
          void (isMessage ? call.leaveMessage(person, app.visit.name.trim()) : call.start(person)),
        more: isThere ? [message, other] : [other],
      })
    }
  }
}

/** Calls the person visited. */
export const call: Screen = (app, scope) =>
  frame(
    app,
    scope,
    'call',
    app.t('tile.call'),
    live(scope, app.visit.call.state, (state, inner) => view(app, inner, state)),
  )
