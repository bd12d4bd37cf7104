import type { App } from '../app.js'
import type { CardState } from '../flows/card.js'
import { button } from '../parts/button.js'
import { frame, live, panel } from '../parts/frame.js'
import { nextButton, problemPanel, skipButton } from '../parts/problem.js'
import type { Scope } from '../scope.js'
import type { Screen } from './index.js'

function view(app: App, scope: Scope, state: CardState): Node {
  const start = (): void => void app.visit.card.start()
  const full = app.t('card.full')
  switch (state.at) {
    case 'ready':
      return panel({
        icon: 'card',
        title: app.t('card.intro'),
        text: app.t('card.intro.text'),
        actions: [
          button(scope, {
            action: 'dispense',
            label: app.t('card.start'),
            icon: 'card',
            kind: 'primary',
            press: start,
          }),
          skipButton(app, scope),
        ],
      })
    case 'waiting':
      return panel({
        icon: 'card',
        mood: 'busy',
        title: app.t('card.waiting'),
        text: app.t('card.waiting.text'),
      })
    case 'done':
      return panel({
        icon: 'check',
        mood: 'good',
        title: app.t('card.done'),
        text: app.t('card.done.text'),
        notes: [state.isLow && app.t('card.low'), state.isBinFull && full].filter(
          (note): note is string => note !== false,
        ),
        actions: [nextButton(app, scope)],
      })
    case 'problem':
      return problemPanel(app, scope, state.problem, {
        retry: start,
        notes: state.isBinFull ? [full] : [],
      })
  }
}

/** Hands out a card for the doors. */
export const card: Screen = (app, scope) =>
  frame(
    app,
    scope,
    'card',
    app.t('card.title'),
    live(scope, app.visit.card.state, (state, inner) => view(app, inner, state)),
  )
