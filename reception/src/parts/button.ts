import { el } from '../dom.js'
import { type IconName, icon } from '../icons.js'
import type { Scope } from '../scope.js'

export interface ButtonOptions {
  /** Names the button for tests, in any language. */
  readonly action: string
  readonly label: string
  readonly icon?: IconName
  readonly kind?: 'primary' | 'secondary' | 'quiet' | 'danger'
  /** The icon after the words. */
  readonly isIconLast?: boolean
  readonly press: () => void
}

export function button(scope: Scope, options: ButtonOptions): HTMLButtonElement {
  const { action, label, kind = 'secondary', press } = options
  const picture = options.icon && icon(options.icon)
  const words = el('span', { class: 'button-label' }, label)
  const element = el(
    'button',
    {
      type: 'button',
      class: `button button-${kind}`,
      'data-action': action,
      // Where there is no room for the words they are still to be heard.
      'aria-label': label,
    },
    ...(options.isIconLast ? [words, picture] : [picture, words]),
  )
  scope.listen(element, 'click', press)
  return element
}

export interface TileOptions {
  readonly action: string
  readonly icon: IconName
  readonly title: string
  readonly text?: string
  readonly isLarge?: boolean
  readonly press: () => void
}

/** A large button with a picture, for menus. */
export function tile(scope: Scope, options: TileOptions): HTMLButtonElement {
  const element = el(
    'button',
    {
      type: 'button',
      class: options.isLarge ? 'tile tile-large' : 'tile',
      'data-action': options.action,
    },
    el('span', { class: 'tile-icon' }, icon(options.icon)),
    el(
      'span',
      { class: 'tile-words' },
      el('span', { class: 'tile-title', dir: 'auto' }, options.title),
      options.text !== undefined && el('span', { class: 'tile-text' }, options.text),
    ),
  )
  scope.listen(element, 'click', options.press)
  return element
}
