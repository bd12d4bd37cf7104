import type { App } from '../app.js'
import type { Service } from '../config.js'
import { el } from '../dom.js'
import type { IconName } from '../icons.js'
import { tile } from '../parts/button.js'
import { frame } from '../parts/frame.js'
import type { Key } from '../texts/index.js'
import type { Screen } from './index.js'

const icons: { readonly [S in Service | 'operator']: IconName } = {
  visit: 'calendar',
  badge: 'badge',
  passport: 'passport',
  card: 'card',
  call: 'phone',
  way: 'way',
  talk: 'talk',
  operator: 'help',
}

/** Opens what a tile or the robot offers. */
export function open(app: App, what: Service | 'operator' | 'language'): void {
  if (what === 'language') app.isChoosingLanguage.set(true)
  else app.go(what)
}

export function offerTile(
  app: App,
  scope: Parameters<Screen>[1],
  what: Service | 'operator',
  isLarge = false,
): HTMLElement {
  return tile(scope, {
    action: `open-${what}`,
    icon: icons[what],
    title: app.t(`tile.${what}` satisfies Key),
    text: app.t(`tile.${what}.text` satisfies Key),
    isLarge,
    press: () => open(app, what),
  })
}

/** The menu. */
export const home: Screen = (app, scope) => {
  const { name } = app.visit
  return frame(
    app,
    scope,
    'home',
    '',
    el(
      'h1',
      { class: 'home-title', tabindex: -1 },
      name ? app.t('home.known', { name }) : app.t('home.title'),
    ),
    el('p', { class: 'home-text' }, app.t('home.text')),
    el(
      'div',
      { class: 'tiles' },
      ...app.config.services.map((service) => offerTile(app, scope, service, service === 'visit')),
      offerTile(app, scope, 'operator'),
    ),
  )
}
