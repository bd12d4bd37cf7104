import type { App } from '../app.js'
import { adviceOf, type Problem, titleOf } from '../problems.js'
import type { Scope } from '../scope.js'
import type { Values } from '../texts/index.js'
import { button } from './button.js'
import { panel } from './frame.js'

export interface ProblemOptions {
  readonly values?: Values
  readonly notes?: readonly string[]
  readonly retry: () => void
  /** What else can be done here, instead of calling for help. */
  readonly more?: readonly HTMLElement[]
}

/** Tells kindly what went wrong, and what to do next. There is always a way on. */
export function problemPanel(
  app: App,
  scope: Scope,
  problem: Problem,
  options: ProblemOptions,
): HTMLElement {
  const help = button(scope, {
    action: 'call-help',
    label: app.t('tile.operator'),
    icon: 'help',
    press: () => app.go('operator'),
  })
  const element = panel({
    icon: 'warning',
    mood: 'bad',
    title: app.t(titleOf(problem), options.values),
    text: app.t(adviceOf(problem), options.values),
    notes: options.notes || [],
    actions: [
      button(scope, {
        action: 'retry',
        label: app.t('common.retry'),
        icon: 'retry',
        kind: 'primary',
        press: options.retry,
      }),
      ...(options.more || [help]),
      button(scope, {
        action: 'skip',
        label: app.t('common.without'),
        icon: 'next',
        isIconLast: true,
        press: () => app.next('skipped'),
      }),
    ],
  })
  element.dataset.problem = problem
  return element
}

/** Steps over a step of a guided visit; outside of one there is nothing to skip. */
export function skipButton(app: App, scope: Scope): HTMLElement | undefined {
  if (!app.visit.guide) return undefined
  return button(scope, {
    action: 'skip',
    label: app.t('common.skip'),
    kind: 'quiet',
    press: () => app.next('skipped'),
  })
}

/** Goes on with a guided visit, or back to the menu. */
export function nextButton(app: App, scope: Scope): HTMLElement {
  const isGuided = app.visit.guide !== undefined
  return button(scope, {
    action: 'next',
    label: app.t(isGuided ? 'common.next' : 'common.done'),
    icon: isGuided ? 'next' : 'check',
    isIconLast: isGuided,
    kind: 'primary',
    press: () => app.next('done'),
  })
}
