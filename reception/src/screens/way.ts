import type { App } from '../app.js'
import { el } from '../dom.js'
import type { Place, WayState } from '../flows/way.js'
import { type IconName, icon } from '../icons.js'
import { button, tile } from '../parts/button.js'
import { robotFace } from '../parts/face.js'
import { frame, live, panel } from '../parts/frame.js'
import { nextButton, problemPanel, skipButton } from '../parts/problem.js'
import type { Scope } from '../scope.js'
import type { Screen } from './index.js'

function iconOf(app: App, place: Place): IconName {
  return app.config.destinations.find((one) => one.point === place.point)?.icon || 'place'
}

/** Where the person visited is, if the robot can drive there. */
export function placeOfHost(app: App): Place | undefined {
  const { host } = app.visit
  const point = host?.point
  if (!host || point === undefined) return undefined
  return app.config.destinations.find((one) => one.point === point) || { name: host.name, point }
}

function begin(app: App, place: Place): void {
  app.visit.way.start(place, app.local(place.name))
}

function chooser(app: App, scope: Scope): HTMLElement {
  const host = app.visit.guide && placeOfHost(app)
  const { destinations } = app.config
  const first = host ? destinations.filter((one) => one.point === host.point) : []
  const rest = destinations.filter((one) => !first.includes(one))
  const unnamed = host && first.length === 0 ? [host] : []
  const tiles = [...unnamed, ...first, ...rest].map((place, at) => {
    const element = tile(scope, {
      action: 'destination',
      icon: iconOf(app, place),
      title: app.local(place.name),
      isLarge: host !== undefined && at === 0,
      ...(host && at === 0 && app.visit.host ? { text: app.visit.host.name } : {}),
      press: () => begin(app, place),
    })
    element.dataset.point = String(place.point)
    return element
  })
  return el(
    'section',
    { class: 'chooser' },
    el('h1', { class: 'panel-title', tabindex: -1 }, app.t('way.title')),
    tiles.length
      ? el('div', { class: 'tiles tiles-places' }, ...tiles)
      : el('p', { class: 'none-title' }, app.t('way.none')),
    el('div', { class: 'actions' }, skipButton(app, scope)),
  )
}

function track(app: App, place: Place, state: WayState['at']): HTMLElement {
  return el(
    'div',
    { class: `track track-${state}`, 'aria-hidden': 'true' },
    el(
      'span',
      { class: 'track-end' },
      el('span', { class: 'track-mark' }, icon('home')),
      el('span', { class: 'track-name' }, app.t('way.from')),
    ),
    el('span', { class: 'track-line' }, el('span', { class: 'track-robot' }, robotFace())),
    el(
      'span',
      { class: 'track-end' },
      el('span', { class: 'track-mark' }, icon(iconOf(app, place))),
      el('span', { class: 'track-name', dir: 'auto' }, app.local(place.name)),
    ),
  )
}

function driving(app: App, scope: Scope, state: WayState & { place: Place }): HTMLElement {
  const { way } = app.visit
  const { at, place } = state
  const isGoing = at === 'moving' || at === 'starting'
  const act = (
    action: string,
    key: Parameters<App['t']>[0],
    picture: IconName,
    kind: 'primary' | 'secondary' | 'danger',
    press: () => void,
  ) => button(scope, { action, label: app.t(key), icon: picture, kind, press })
  const resume = act('resume', 'way.resume', 'play', 'primary', way.resume)
  const stop = act('stop', 'way.stop', 'stop', 'danger', way.stop)
  const actions = isGoing
    ? [act('pause', 'way.pause', 'pause', 'primary', way.pause), stop]
    : at === 'paused'
      ? [resume, stop]
      : [resume, act('other', 'way.other', 'way', 'secondary', way.cancel), skipButton(app, scope)]
  const text =
    at === 'paused'
      ? app.t('way.paused.text')
      : at === 'stopped'
        ? app.t('way.stopped.text')
        : app.t('way.to', { place: app.local(place.name) })
  return el(
    'section',
    { class: 'driving' },
    el('h1', { class: 'panel-title', tabindex: -1 }, app.t(`way.${at as 'moving'}`)),
    el('p', { class: 'panel-text' }, text),
    track(app, place, at),
    el('div', { class: 'actions' }, ...actions),
  )
}

function view(app: App, scope: Scope, state: WayState): Node {
  const { way } = app.visit
  switch (state.at) {
    case 'choose':
      return chooser(app, scope)
    case 'arrived':
      return panel({
        icon: 'check',
        mood: 'good',
        title: app.t('way.arrived', { place: app.local(state.place.name) }),
        text: app.t('way.arrived.text'),
        actions: [
          app.visit.guide
            ? nextButton(app, scope)
            : button(scope, {
                action: 'end',
                label: app.t('common.done'),
                icon: 'check',
                kind: 'primary',
                press: app.end,
              }),
          button(scope, {
            action: 'other',
            label: app.t('way.other'),
            icon: 'way',
            press: way.cancel,
          }),
        ],
      })
    case 'problem': {
      const { directions } = state.place
      return problemPanel(app, scope, state.problem, {
        retry: way.resume,
        notes: directions ? [`${app.t('way.walk')}: ${app.local(directions)}`] : [],
        more: [
          button(scope, {
            action: 'other',
            label: app.t('way.other'),
            icon: 'way',
            press: way.cancel,
          }),
        ],
      })
    }
    default:
      return driving(app, scope, state)
  }
}

/** Drives ahead of the visitor. */
export const way: Screen = (app, scope) =>
  frame(
    app,
    scope,
    'way',
    app.t('tile.way'),
    live(scope, app.visit.way.state, (state, inner) => view(app, inner, state)),
  )
