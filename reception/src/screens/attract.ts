import { el, fill } from '../dom.js'
import { icon } from '../icons.js'
import { robotFace } from '../parts/face.js'
import { brand } from '../parts/frame.js'
import { names } from '../texts/index.js'
import type { Screen } from './index.js'

/** Nobody is there: invites whoever passes by. The whole screen is one button. */
export const attract: Screen = (app, scope) => {
  const hint = el('p', { class: 'attract-hint' })
  const showHint = (): void => {
    const isReturning = app.returning.isUnderWay.get()
    fill(
      hint,
      !isReturning && icon('hand'),
      app.t(isReturning ? 'attract.returning' : 'attract.hint'),
    )
  }
  const root = el(
    'main',
    { class: 'screen screen-attract', 'data-screen': 'attract' },
    el(
      'button',
      { type: 'button', class: 'attract', 'data-action': 'wake' },
      brand(app),
      robotFace(),
      el('h1', { class: 'attract-title', tabindex: -1 }, app.t('attract.title')),
      hint,
      el(
        'span',
        { class: 'attract-languages' },
        ...app.config.languages.map((one) => el('span', { lang: one }, names[one])),
      ),
    ),
  )
  scope.listen(root, 'click', () => app.wake())
  scope.listen(document, 'keydown', () => app.wake())
  scope.add(app.returning.isUnderWay.watch(showHint))
  showHint()
  return root
}
