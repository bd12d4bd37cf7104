import { el } from '../dom.js'
import { createGuide } from '../flows/guide.js'
import { type IconName, icon } from '../icons.js'
import { button } from '../parts/button.js'
import { frame } from '../parts/frame.js'
import type { Key } from '../texts/index.js'
import type { Screen } from './index.js'

export const stepIcons = {
  passport: 'passport',
  badge: 'badge',
  card: 'card',
  call: 'phone',
  way: 'way',
} satisfies { [step: string]: IconName }

/** "I have an appointment": what will happen, before it begins. */
export const visit: Screen = (app, scope) =>
  frame(
    app,
    scope,
    'visit',
    app.t('visit.title'),
    el(
      'section',
      { class: 'visit' },
      el('h1', { class: 'panel-title', tabindex: -1 }, app.t('visit.intro')),
      el('p', { class: 'panel-text' }, app.t('visit.intro.text')),
      el(
        'ol',
        { class: 'visit-steps' },
        ...app.config.steps.map((step, at) =>
          el(
            'li',
            { class: 'visit-step' },
            el('span', { class: 'tile-icon' }, icon(stepIcons[step])),
            el('span', { class: 'visit-number', 'aria-hidden': 'true' }, String(at + 1)),
            el('span', {}, app.t(`visit.step.${step}` satisfies Key)),
          ),
        ),
      ),
      el(
        'div',
        { class: 'actions' },
        button(scope, {
          action: 'begin',
          label: app.t('visit.start'),
          icon: 'next',
          isIconLast: true,
          kind: 'primary',
          press: () => {
            app.visit.guide = createGuide(app.config.steps)
            const first = app.visit.guide.current
            if (first) app.go(first)
          },
        }),
      ),
    ),
  )
