import { answerQuestion } from 'panorel-client'
import type { App } from '../app.js'
import { el, fill } from '../dom.js'
import { button } from '../parts/button.js'
import { robotFace } from '../parts/face.js'
import { frame } from '../parts/frame.js'
import { createScope, type Scope } from '../scope.js'
import type { Line } from '../talk.js'
import { offerTile, open } from './home.js'
import type { Screen } from './index.js'

function bubble(app: App, line: Line): HTMLElement {
  const isBusy = line.who === 'visitor' && line.isOpen
  return el(
    'li',
    {
      class: `bubble bubble-${line.who}${line.isOpen ? ' is-open' : ''}`,
      'data-line': line.id,
      // Words that still change wait until they are final.
      'aria-busy': isBusy ? 'true' : undefined,
    },
    el('span', { class: 'bubble-who' }, app.t(`talk.${line.who}`)),
    el('span', { class: 'bubble-text', dir: 'auto' }, line.text),
  )
}

function choices(app: App, scope: Scope): (HTMLElement | false | undefined)[] {
  const { question, offers, lines } = app.talk.state.get()
  const last = lines[lines.length - 1]
  const answers = (question?.answers || []).map((text) =>
    button(scope, {
      action: 'answer',
      label: text,
      kind: 'primary',
      press: () => {
        app.talk.answered(text)
        answerQuestion(app.robot, text)
      },
    }),
  )
  const shortcuts = offers.map((offer) =>
    offer === 'language'
      ? button(scope, {
          action: 'open-language',
          label: app.t('tile.language'),
          icon: 'globe',
          press: () => open(app, 'language'),
        })
      : offerTile(app, scope, offer),
  )
  // Mostly the robot has just said it.
  const isSaid = question !== undefined && last?.who === 'robot' && last.text === question.text
  const asked =
    question && !isSaid && el('p', { class: 'talk-question', dir: 'auto' }, question.text)
  return [asked, ...answers, ...shortcuts]
}

/** The conversation: what both say, and the robot's questions with their answers as buttons. */
export const talk: Screen = (app, scope) => {
  const lines = el('ol', { class: 'bubbles', role: 'log', 'aria-live': 'polite' })
  const panel = el('div', { class: 'talk-choices' })
  const shown = new Map<number, { line: Line; element: HTMLElement }>()
  let choicesScope = createScope()
  let before: unknown

  function show(): void {
    const { lines: now, question, offers } = app.talk.state.get()
    if (now.length === 0) {
      fill(
        lines,
        el(
          'li',
          { class: 'talk-empty' },
          robotFace(),
          el('p', { class: 'talk-invitation' }, app.t('talk.empty')),
          el('p', { class: 'talk-example' }, app.t('talk.example')),
        ),
      )
      shown.clear()
    } else {
      lines.querySelector('.talk-empty')?.remove()
      showLines(now)
    }
    const key = JSON.stringify([question, offers])
    if (key === before) return
    before = key
    choicesScope.end()
    choicesScope = createScope()
    fill(panel, ...choices(app, choicesScope))
    panel.classList.toggle('is-empty', panel.childElementCount === 0)
  }

  function showLines(now: readonly Line[]): void {
    const ids = new Set(now.map((line) => line.id))
    shown.forEach(({ element }, id) => {
      if (ids.has(id)) return
      element.remove()
      shown.delete(id)
    })
    for (const line of now) {
      const old = shown.get(line.id)
      if (old?.line === line) continue
      const element = bubble(app, line)
      if (old) old.element.replaceWith(element)
      else lines.appendChild(element)
      shown.set(line.id, { line, element })
    }
    lines.scrollTop = lines.scrollHeight
  }

  scope.add(app.talk.state.watch(show))
  scope.add(() => choicesScope.end())
  const root = frame(
    app,
    scope,
    'talk',
    app.t('talk.title'),
    el('h1', { class: 'unseen', tabindex: -1 }, app.t('talk.title')),
    lines,
    panel,
  )
  show()
  return root
}
