import type { App } from './app.js'
import { el, fill } from './dom.js'
import { countdownDialog, languageDialog, lostNotice } from './overlays.js'
import { button } from './parts/button.js'
import { robotFace } from './parts/face.js'
import { createScope } from './scope.js'
import { speaking } from './talk.js'

/** What surrounds every screen: what the robot says, notices, and what lies above. */
export interface Shell {
  /** Where the screens go. */
  readonly place: HTMLElement
  attach(app: App): () => void
}

// How long a line stays to be read after the robot has spoken it, and a notice.
const READ_TIME = 3000
const NOTICE_TIME = 5000

export function createShell(body: HTMLElement): Shell {
  const place = el('div', { class: 'place' })
  const words = el('p', { class: 'caption-words', dir: 'auto', 'aria-live': 'polite' })
  const hint = el('p', { class: 'caption-hint' })
  const asked = el('div', { class: 'caption-question' })
  const caption = el('aside', { class: 'caption' }, robotFace(), hint, words, asked)
  const notice = el('p', { class: 'notice', role: 'status' })
  const above = el('div', { class: 'above' })
  body.replaceChildren(el('div', { class: 'shell' }, place, caption), notice, above)

  return {
    place,
    attach(app) {
      const scope = createScope()
      let hide = (): void => {}
      let hideNotice = (): void => {}
      let questions = createScope()

      function showWords(): void {
        const { lines } = app.talk.state.get()
        const said = speaking(app.talk.state.get())
        const heard = lines.find((line) => line.who === 'visitor' && line.isOpen)?.text
        caption.classList.toggle('is-speaking', said !== undefined)
        const shown = said ?? (heard && `${app.t('talk.visitor')}: ${heard}`)
        if (shown !== undefined) {
          hide()
          if (words.textContent !== shown) words.textContent = shown
          caption.classList.add('has-words')
        } else if (caption.classList.contains('has-words')) {
          hide()
          if (lines.length === 0) clear()
          else hide = scope.after(READ_TIME, clear)
        }
      }

      function clear(): void {
        words.textContent = ''
        caption.classList.remove('has-words')
      }

      function showQuestion(): void {
        questions.end()
        questions = createScope()
        const { question } = app.talk.state.get()
        const name = app.screen.get()
        const isWanted = question && name !== 'talk' && name !== 'attract'
        fill(
          asked,
          isWanted &&
            button(questions, {
              action: 'open-question',
              label: app.t('talk.question'),
              icon: 'talk',
              press: () => app.go('talk'),
            }),
        )
      }

      function showScreen(): void {
        caption.dataset.on = app.screen.get()
        hint.textContent = app.t('talk.empty')
        showQuestion()
      }

      let question = app.talk.state.get().question
      scope.add(
        app.talk.state.watch((now) => {
          showWords()
          if (now.question === question) return
          question = now.question
          showQuestion()
        }),
      )
      scope.add(app.screen.watch(showScreen))
      scope.add(app.language.watch(showScreen))
      scope.add(
        app.notice.watch((key) => {
          hideNotice()
          notice.textContent = key ? app.t(key) : ''
          notice.classList.toggle('is-shown', key !== undefined)
          if (key) hideNotice = scope.after(NOTICE_TIME, () => app.notice.set(undefined))
        }),
      )
      scope.add(() => questions.end())
      languageDialog(app, scope, above)
      countdownDialog(app, scope, above)
      lostNotice(app, scope, above)
      showScreen()
      return scope.end
    },
  }
}
