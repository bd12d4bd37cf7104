import { hangUp, log, type Robot, say, setLanguage } from 'panorel-client'
import type { App } from './app.js'
import type { Config, Localized } from './config.js'
import { createReturning } from './flows/returning.js'
import type { Tools } from './flows/tools.js'
import { createIdle, type Idle } from './idle.js'
import { createInteraction } from './interaction.js'
import { type Known, watchPresence } from './presence.js'
import { createScope, type Scope } from './scope.js'
import { type ScreenName, screens } from './screens/index.js'
import { createStore } from './store.js'
import { createTalk } from './talk.js'
import { direction, type Key, type Language, spoken, translate } from './texts/index.js'
import { createVisit, type Visit } from './visit.js'

/** Builds the page into @p place, for this robot. */
export function createApp(place: HTMLElement, robot: Robot, config: Config): App {
  const language = createStore<Language>(config.language)
  const screen = createStore<ScreenName>('attract')
  const countdown = createStore<number | undefined>(undefined)
  const notice = createStore<Key | undefined>(undefined)
  const isChoosingLanguage = createStore(false)
  const life = createScope()
  let shown: Scope = createScope()
  let isEnding = false

  const t: Tools['t'] = (key, values) =>
    translate(language.get(), key, { company: local(config.company), ...values })
  const local = (text: Localized): string =>
    typeof text === 'string' ? text : text[language.get()] || text.en

  const idle: Idle = createIdle(config, countdown.set, end)
  const tools: Tools = {
    robot,
    config,
    t,
    say: (key, values) => {
      // What is to be forgotten is not said any more.
      if (!isEnding && robot.state === 'connected') say(robot, spoken(t(key, values)))
    },
    warn: (words) => {
      if (robot.state === 'connected') log(robot, 'warning', words)
    },
    busy: idle.hold,
  }
  const talk = createTalk(robot, config)
  const returning = createReturning(tools)
  const interaction = createInteraction(robot, { began: () => wake(), ended: left })
  let visit = followed(createVisit(tools))

  function followed(next: Visit): Visit {
    next.operator.state.watch(({ at }) => {
      if (at === 'answered' && screen.get() !== 'operator') notice.set('operator.answered')
    })
    return next
  }

  function show(): void {
    shown.end()
    shown = createScope()
    const root = screens[screen.get()](app, shown)
    place.replaceChildren(root)
    root.querySelector<HTMLElement>('h1')?.focus({ preventScroll: true })
  }

  function go(next: ScreenName): void {
    const before = screen.get()
    if (before !== next) leave(before)
    notice.set(undefined)
    screen.set(next)
    show()
  }

  // What goes on for a screen ends with it; help that was called comes all the same.
  function leave(before: ScreenName): void {
    if (before === 'passport') visit.passport.cancel()
    if (before === 'badge') visit.printing.cancel()
    if (before === 'card') visit.card.cancel()
    if (before === 'call') visit.call.cancel()
    if (before === 'way') visit.way.cancel()
  }

  function home(): void {
    visit.guide = undefined
    go('home')
  }

  function next(result: 'done' | 'skipped'): void {
    if (visit.guide) go(visit.guide.next(result) || 'finish')
    else home()
  }

  function wake(user?: Known): void {
    if (screen.get() !== 'attract') {
      meet(user)
      return
    }
    if (user) greet(user)
    returning.interrupt()
    interaction.start()
    idle.start()
    go('greeting')
  }

  function greet(user: Known): void {
    visit.user = user
    visit.name = visit.name || user.name
  }

  // Somebody is recognised while a visit goes on.
  function meet(user?: Known): void {
    const known = visit.user
    if (user && known && known.id !== user.id && screen.get() !== 'operator') {
      end()
      wake(user)
      return
    }
    idle.touch()
    if (!user || known) return
    greet(user)
    if (screen.get() === 'greeting' || screen.get() === 'home') show()
  }

  // Nobody is seen any more.
  function left(): void {
    if (screen.get() === 'greeting') end()
    else if (screen.get() !== 'attract') idle.hurry()
  }

  function end(): void {
    if (screen.get() === 'attract') return
    isEnding = true
    const { isAway } = visit.way
    visit.end()
    visit = followed(createVisit(tools))
    talk.clear()
    idle.stop()
    isChoosingLanguage.set(false)
    interaction.stop()
    if (isAway) returning.start()
    else returning.resume()
    go('attract')
    if (language.get() !== config.language) language.set(config.language)
    isEnding = false
  }

  function control(isOn: boolean): void {
    if (isOn && screen.get() === 'attract') wake()
    visit.operator.control(isOn)
    if (isOn) go('operator')
    else if (screen.get() === 'operator') home()
  }

  const app: App = {
    ...tools,
    language,
    get visit() {
      return visit
    },
    talk,
    returning,
    screen,
    countdown,
    notice,
    isChoosingLanguage,
    local,
    go,
    home,
    next,
    wake,
    touch: idle.touch,
    end,
    close() {
      isEnding = true
      visit.end()
      returning.interrupt()
      idle.stop()
      shown.end()
      life.end()
      talk.end()
      place.replaceChildren()
    },
  }

  function speak(): void {
    document.documentElement.lang = language.get()
    document.documentElement.dir = direction(language.get())
    if (robot.state === 'connected') setLanguage(robot, language.get())
  }

  life.add(
    language.watch(() => {
      speak()
      show()
    }),
  )
  life.add(interaction.end)
  life.add(watchPresence(robot, { came: wake, left }))
  life.add(robot.on('operator.control.status', ({ status }) => control(status)))
  life.add(
    robot.onState((state) => {
      if (state !== 'connected') {
        if (visit.operator.state.get().at === 'control') control(false)
        return
      }
      speak()
      if (screen.get() === 'attract') returning.resume()
      notice.set('lost.back')
    }),
  )
  // A conversation comes up where the visitor is not in the middle of something else.
  let asked = talk.state.get().question
  let said = 0
  life.add(
    talk.state.watch(({ question, lines }) => {
      const isAsked = question !== undefined && question !== asked
      asked = question
      const last = lines[lines.length - 1]
      const isSaid = last?.who === 'visitor' && !last.isOpen && last.id > said
      if (isSaid) said = last.id
      if (isAsked && screen.get() === 'attract') wake()
      const isFree = screen.get() === 'greeting' || screen.get() === 'home'
      if (isFree && (isAsked || isSaid)) go('talk')
    }),
  )
  // The buttons of the count-down say themselves what they mean.
  const touched = ({ target }: Event): void => {
    if (!(target instanceof Element && target.closest('[data-overlay="idle"] button'))) idle.touch()
  }
  for (const type of ['pointerdown', 'keydown', 'input']) life.listen(document, type, touched)
  log(robot, 'info', 'The reception is ready')
  // A page that was loaded anew has no button for the call of the one before.
  hangUp(robot)
  speak()
  show()
  return app
}
