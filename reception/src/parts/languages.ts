import type { App } from '../app.js'
import { el } from '../dom.js'
import type { Scope } from '../scope.js'
import { direction, names } from '../texts/index.js'

/** One button for each language, in its own words. */
export function languageButtons(app: App, scope: Scope, chosen?: () => void): HTMLElement {
  return el(
    'div',
    { class: 'languages', role: 'group', 'aria-label': app.t('language.title') },
    ...app.config.languages.map((one) => {
      const isCurrent = app.language.get() === one
      const element = el(
        'button',
        {
          type: 'button',
          class: isCurrent ? 'button button-language is-current' : 'button button-language',
          'data-action': `language-${one}`,
          lang: one,
          dir: direction(one),
          'aria-pressed': String(isCurrent),
        },
        names[one],
      )
      scope.listen(element, 'click', () => {
        chosen?.()
        if (!isCurrent) app.language.set(one)
      })
      return element
    }),
  )
}
