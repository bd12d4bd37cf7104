import type { App } from '../app.js'
import { el, fill } from '../dom.js'
import { type IconName, icon } from '../icons.js'
import { createScope, type Scope } from '../scope.js'
import type { ScreenName } from '../screens/index.js'
import { button } from './button.js'
import { stepper } from './stepper.js'

/** A screen with its head: the way home, where one is, language and help. */
export function frame(
  app: App,
  scope: Scope,
  name: ScreenName,
  title: string,
  ...content: (Node | undefined)[]
): HTMLElement {
  const { guide } = app.visit
  const home = button(scope, {
    action: 'home',
    label: app.t('common.home'),
    icon: 'home',
    kind: 'quiet',
    press: app.home,
  })
  const language = button(scope, {
    action: 'language',
    label: app.t('common.language'),
    icon: 'globe',
    kind: 'quiet',
    press: () => app.isChoosingLanguage.set(true),
  })
  const help = button(scope, {
    action: 'help',
    label: app.t('common.help'),
    icon: 'help',
    kind: 'quiet',
    press: () => app.go('operator'),
  })
  const isHome = name === 'home'
  return el(
    'main',
    { class: `screen screen-${name}`, 'data-screen': name },
    el(
      'header',
      { class: guide && !isHome ? 'head head-guided' : 'head' },
      isHome ? brand(app) : home,
      guide && !isHome ? stepper(app, guide) : el('span', { class: 'head-title' }, title),
      el('div', { class: 'head-tools' }, language, name !== 'operator' && !isHome && help),
    ),
    el('div', { class: 'body' }, ...content),
  )
}

/** The site's name, where the way home would lead nowhere. */
export function brand(app: App): HTMLElement {
  return el(
    'span',
    { class: 'brand' },
    el('span', { class: 'brand-mark', 'aria-hidden': 'true' }),
    el('span', { class: 'brand-name' }, app.local(app.config.company)),
  )
}

export interface PanelOptions {
  readonly icon: IconName
  readonly mood?: 'calm' | 'busy' | 'good' | 'bad'
  readonly title: string
  readonly text?: string
  readonly notes?: readonly string[]
  readonly content?: Node | undefined
  readonly actions?: readonly (HTMLElement | undefined)[]
}

/** What a screen says at one moment: a picture, words, and what can be done. */
export function panel(options: PanelOptions): HTMLElement {
  const { mood = 'calm', notes = [], actions = [] } = options
  return el(
    'section',
    { class: `panel panel-${mood}` },
    el('div', { class: 'panel-picture' }, icon(options.icon)),
    el(
      'div',
      { class: 'panel-words' },
      el('h1', { class: 'panel-title', tabindex: -1 }, options.title),
      options.text !== undefined && el('p', { class: 'panel-text' }, options.text),
      ...notes.map((note) => el('p', { class: 'panel-note' }, note)),
      options.content,
      el('div', { class: 'actions' }, ...actions),
    ),
  )
}

/** Shows what @p view makes of every new value. What a view listens to ends with it. */
export function live<T>(
  scope: Scope,
  store: { get(): T; watch(callback: (value: T) => void): () => void },
  view: (value: T, scope: Scope) => Node,
): HTMLElement {
  const place = el('div', { class: 'live', 'aria-live': 'polite' })
  let shown = createScope()
  const show = (value: T): void => {
    const hadFocus = place.contains(document.activeElement)
    shown.end()
    shown = createScope()
    fill(place, view(value, shown))
    // Whoever does not see the screen goes on where the button was that is gone now.
    if (hadFocus) place.querySelector<HTMLElement>('h1')?.focus({ preventScroll: true })
  }
  scope.add(store.watch(show))
  scope.add(() => shown.end())
  show(store.get())
  return place
}
