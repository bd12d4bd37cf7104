import { hideKeyboard, showKeyboard } from 'panorel-client'
import type { App } from '../app.js'
import { el } from '../dom.js'
import { keyboardLocales } from '../platform.js'
import type { Scope } from '../scope.js'

export interface FieldOptions {
  readonly name: string
  readonly label: string
  readonly value: string
  readonly type?: 'text' | 'search'
  readonly changed: (value: string) => void
}

/** A field to type into. The robot's keyboard shows as long as it has the focus. */
export function field(app: App, scope: Scope, options: FieldOptions): HTMLLabelElement {
  const input = el('input', {
    class: 'field-input',
    name: options.name,
    type: options.type || 'text',
    value: options.value,
    autocomplete: 'off',
    autocapitalize: 'words',
    spellcheck: 'false',
    maxlength: 60,
    dir: 'auto',
    'data-field': options.name,
  })
  let isShown = false
  const hide = (): void => {
    if (isShown && app.robot.state === 'connected') hideKeyboard(app.robot)
    isShown = false
  }
  scope.listen(input, 'input', () => options.changed(input.value))
  scope.listen(input, 'focus', () => {
    if (app.robot.state !== 'connected') return
    isShown = true
    showKeyboard(app.robot, keyboardLocales[app.language.get()])
  })
  scope.listen(input, 'blur', hide)
  scope.add(hide)
  return el('label', { class: 'field' }, el('span', { class: 'field-label' }, options.label), input)
}
