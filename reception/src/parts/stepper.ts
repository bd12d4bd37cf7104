import type { App } from '../app.js'
import { el } from '../dom.js'
import type { Guide } from '../flows/guide.js'
import { icon } from '../icons.js'
import type { Key } from '../texts/index.js'

/** Where one is in a guided visit. */
export function stepper(app: App, guide: Guide): HTMLElement {
  const { index, results } = guide.state.get()
  const count = guide.steps.length
  const label = app.t('common.progress', { step: Math.min(index + 1, count), count })
  return el(
    'ol',
    { class: 'stepper', 'aria-label': label },
    ...guide.steps.map((step, at) => {
      const result = results[at] || 'open'
      const state = at === index ? 'current' : result
      return el(
        'li',
        {
          class: `step step-${state}`,
          'data-step': step,
          'data-state': state,
          'aria-current': at === index ? 'step' : undefined,
        },
        el(
          'span',
          { class: 'step-mark', 'aria-hidden': 'true' },
          result === 'done' ? icon('check') : result === 'skipped' ? '–' : String(at + 1),
        ),
        el('span', { class: 'step-name' }, app.t(`visit.step.${step}` satisfies Key)),
      )
    }),
  )
}
