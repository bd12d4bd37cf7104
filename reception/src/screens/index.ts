import type { App } from '../app.js'
import type { Scope } from '../scope.js'
import { attract } from './attract.js'
import { badge } from './badge.js'
import { call } from './call.js'
import { card } from './card.js'
import { finish } from './finish.js'
import { greeting } from './greeting.js'
import { home } from './home.js'
import { operator } from './operator.js'
import { passport } from './passport.js'
import { talk } from './talk.js'
import { visit } from './visit.js'
import { way } from './way.js'

/** Builds a screen. What it listens to ends with the scope. */
export type Screen = (app: App, scope: Scope) => HTMLElement

export const screens = {
  attract,
  greeting,
  home,
  talk,
  visit,
  passport,
  badge,
  card,
  call,
  way,
  operator,
  finish,
} satisfies { [name: string]: Screen }

export type ScreenName =
  | 'attract'
  | 'greeting'
  | 'home'
  | 'talk'
  | 'visit'
  | 'passport'
  | 'badge'
  | 'card'
  | 'call'
  | 'way'
  | 'operator'
  | 'finish'
