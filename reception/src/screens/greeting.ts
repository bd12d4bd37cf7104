import { el } from '../dom.js'
import { button } from '../parts/button.js'
import { robotFace } from '../parts/face.js'
import { frame } from '../parts/frame.js'
import { languageButtons } from '../parts/languages.js'
import type { Screen } from './index.js'

// The dialog engine greets whom the robot knows: only if it does not, the page does.
const PATIENCE = 900

/** Says hello, and goes on to the menu by itself. */
export const greeting: Screen = (app, scope) => {
  const { user } = app.visit
  scope.after(PATIENCE, () => {
    if (app.talk.state.get().lines.some((line) => line.who === 'robot')) return
    if (user) app.say('greeting.known', { name: user.name })
    else app.say('greeting.say')
  })
  scope.after(app.config.greetingSeconds * 1000, () => app.home())
  return frame(
    app,
    scope,
    'greeting',
    app.local(app.config.company),
    el(
      'section',
      { class: 'greeting' },
      robotFace(),
      el(
        'h1',
        { class: 'greeting-title', tabindex: -1 },
        user ? app.t('greeting.known', { name: user.name }) : app.t('greeting.title'),
      ),
      el('p', { class: 'greeting-text' }, app.t('greeting.text')),
      el(
        'div',
        { class: 'actions' },
        button(scope, {
          action: 'start',
          label: app.t('greeting.start'),
          icon: 'next',
          isIconLast: true,
          kind: 'primary',
          press: app.home,
        }),
      ),
      languageButtons(app, scope),
    ),
  )
}
