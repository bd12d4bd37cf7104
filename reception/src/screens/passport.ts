import type { App } from '../app.js'
import { el } from '../dom.js'
import { masked, nameOf, type PassportStage, type PassportState } from '../flows/passport.js'
import { button } from '../parts/button.js'
import { frame, live, panel } from '../parts/frame.js'
import { nextButton, problemPanel, skipButton } from '../parts/problem.js'
import type { Scope } from '../scope.js'
import type { Key } from '../texts/index.js'
import type { Screen } from './index.js'

const stages: readonly PassportStage[] = ['waiting', 'scanning', 'recognizing']
const stageNames: { readonly [S in PassportStage]: Key } = {
  waiting: 'passport.stage.lay',
  scanning: 'passport.stage.scan',
  recognizing: 'passport.stage.read',
}
// In the order in which they are shown; what else a passport has comes behind.
const labels: { readonly [field: string]: Key } = {
  surname: 'passport.field.surname',
  name: 'passport.field.name',
  number: 'passport.field.number',
  birth_date: 'passport.field.birth_date',
}

function progress(app: App, stage: PassportStage): HTMLElement {
  const index = stages.indexOf(stage)
  return el(
    'ol',
    { class: 'stages' },
    ...stages.map((one, at) =>
      el(
        'li',
        {
          class: `stage stage-${at < index ? 'done' : at === index ? 'current' : 'open'}`,
          'aria-current': at === index ? 'step' : undefined,
        },
        app.t(stageNames[one]),
      ),
    ),
  )
}

function fields(app: App, found: { readonly [name: string]: string }): HTMLElement {
  const known = Object.keys(labels).filter((name) => found[name] !== undefined)
  const others = Object.keys(found).filter((name) => !known.includes(name))
  return el(
    'dl',
    { class: 'fields' },
    ...[...known, ...others].map((name) => {
      const value = found[name] || ''
      const label = labels[name]
      const shown = name === 'number' ? masked(value) : value
      return el(
        'div',
        { class: 'fields-row', 'data-result': name },
        el('dt', {}, label ? app.t(label) : name),
        el('dd', { dir: 'auto' }, shown),
      )
    }),
  )
}

function view(app: App, scope: Scope, state: PassportState): Node {
  const start = (): void => void app.visit.passport.start()
  switch (state.at) {
    case 'ready':
      return panel({
        icon: 'passport',
        title: app.t('passport.intro'),
        text: app.t('passport.intro.text'),
        notes: [app.t('passport.privacy')],
        actions: [
          button(scope, {
            action: 'scan',
            label: app.t('passport.start'),
            icon: 'scan',
            kind: 'primary',
            press: start,
          }),
          skipButton(app, scope),
        ],
      })
    case 'scanning':
      return panel({
        icon: state.stage === 'waiting' ? 'passport' : 'scan',
        mood: 'busy',
        title: app.t(`passport.${state.stage}` satisfies Key),
        text: app.t('passport.intro.text'),
        content: progress(app, state.stage),
        actions: [
          button(scope, {
            action: 'cancel',
            label: app.t('common.cancel'),
            icon: 'close',
            press: app.visit.passport.cancel,
          }),
        ],
      })
    case 'done':
      return panel({
        icon: 'check',
        mood: 'good',
        title: app.t('passport.done', { name: nameOf(state.fields) }),
        text: app.t('passport.done.text'),
        content: fields(app, state.fields),
        actions: [nextButton(app, scope)],
      })
    case 'problem':
      return problemPanel(app, scope, state.problem, { retry: start })
  }
}

/** Reads the visitor's passport. */
export const passport: Screen = (app, scope) => {
  const { state } = app.visit.passport
  scope.add(
    state.watch((now) => {
      if (now.at === 'done') app.visit.name = nameOf(now.fields) || app.visit.name
    }),
  )
  return frame(
    app,
    scope,
    'passport',
    app.t('passport.title'),
    live(scope, state, (now, inner) => view(app, inner, now)),
  )
}
