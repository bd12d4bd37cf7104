import { el } from '../dom.js'
import { button } from '../parts/button.js'
import { frame, panel } from '../parts/frame.js'
import type { Key } from '../texts/index.js'
import type { Screen } from './index.js'

/** The guided visit is over. */
export const finish: Screen = (app, scope) => {
  const { name, guide } = app.visit
  app.say('visit.say')
  const results = guide?.state.get().results || []
  const skipped = (guide?.steps || [])
    .filter((_, at) => results[at] === 'skipped')
    .map((step) => app.t(`visit.step.${step}` satisfies Key))
  return frame(
    app,
    scope,
    'finish',
    app.t('visit.title'),
    panel({
      icon: 'check',
      mood: 'good',
      title: name ? app.t('visit.finish', { name }) : app.t('visit.finish.nobody'),
      text: app.t('visit.finish.text'),
      content: skipped.length
        ? el('p', { class: 'skipped' }, `${app.t('visit.skipped')}: ${skipped.join(' · ')}`)
        : undefined,
      actions: [
        button(scope, {
          action: 'end',
          label: app.t('common.done'),
          icon: 'check',
          kind: 'primary',
          press: app.end,
        }),
        button(scope, {
          action: 'menu',
          label: app.t('common.home'),
          icon: 'home',
          press: app.home,
        }),
      ],
    }),
  )
}
