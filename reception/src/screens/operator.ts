import type { App } from '../app.js'
import type { OperatorState } from '../flows/operator.js'
import { button } from '../parts/button.js'
import { frame, live, panel } from '../parts/frame.js'
import { problemPanel } from '../parts/problem.js'
import type { Scope } from '../scope.js'
import type { Screen } from './index.js'

function view(app: App, scope: Scope, state: OperatorState): Node {
  const { operator } = app.visit
  const call = (): void => void operator.call()
  const withdraw = button(scope, {
    action: 'withdraw',
    label: app.t('operator.withdraw'),
    icon: 'close',
    press: operator.cancel,
  })
  switch (state.at) {
    case 'ready':
      return panel({
        icon: 'person',
        title: app.t('operator.intro'),
        text: app.t('operator.intro.text'),
        actions: [
          button(scope, {
            action: 'call-operator',
            label: app.t('operator.call'),
            icon: 'help',
            kind: 'primary',
            press: call,
          }),
          back(app, scope),
        ],
      })
    case 'calling':
      return panel({
        icon: 'person',
        mood: 'busy',
        title: app.t('operator.calling'),
        text: app.t('operator.calling.text'),
        actions: [withdraw],
      })
    case 'answered':
      return panel({
        icon: 'check',
        mood: 'good',
        title: app.t('operator.answered'),
        text: app.t('operator.answered.text'),
        actions: [back(app, scope), withdraw],
      })
    case 'control':
      return panel({
        icon: 'person',
        mood: 'good',
        title: app.t('operator.control'),
        text: app.t('operator.control.text'),
        actions: [withdraw],
      })
    case 'problem':
      return problemPanel(app, scope, state.problem, {
        retry: call,
        more: [
          button(scope, {
            action: 'open-call',
            label: app.t('tile.call'),
            icon: 'phone',
            press: () => app.go('call'),
          }),
        ],
      })
  }
}

function back(app: App, scope: Scope): HTMLElement {
  return button(scope, {
    action: 'back',
    label: app.t('common.back'),
    icon: 'back',
    press: () => app.go(app.visit.guide?.current || 'home'),
  })
}

/** Help from a person. */
export const operator: Screen = (app, scope) =>
  frame(
    app,
    scope,
    'operator',
    app.t('operator.title'),
    live(scope, app.visit.operator.state, (state, inner) => view(app, inner, state)),
  )
