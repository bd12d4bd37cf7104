import type { Config } from '../config.js'
import { el } from '../dom.js'
import { button } from '../parts/button.js'
import { robotFace } from '../parts/face.js'
import type { Scope } from '../scope.js'
import { direction, translate } from '../texts/index.js'

/** No robot is behind the page, and nobody knows in which language to say so: in all of them. */
export function showOffline(
  body: HTMLElement,
  config: Config,
  scope: Scope,
  retry: () => void,
): void {
  const { language } = config
  const others = config.languages.filter((one) => one !== language)
  document.documentElement.lang = language
  document.documentElement.dir = direction(language)
  body.replaceChildren(
    el(
      'main',
      { class: 'screen screen-offline', 'data-screen': 'offline' },
      robotFace(),
      el('h1', { class: 'offline-title', tabindex: -1 }, translate(language, 'offline.title')),
      el('p', { class: 'offline-text' }, translate(language, 'offline.text')),
      el(
        'div',
        { class: 'offline-others' },
        ...others.map((one) =>
          el('p', { lang: one, dir: direction(one) }, translate(one, 'offline.title')),
        ),
      ),
      el('p', { class: 'offline-trying', role: 'status' }, translate(language, 'offline.trying')),
      button(scope, {
        action: 'retry',
        label: translate(language, 'offline.retry'),
        icon: 'retry',
        kind: 'primary',
        press: retry,
      }),
    ),
  )
}
