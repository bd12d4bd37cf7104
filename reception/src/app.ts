import type { Localized } from './config.js'
import type { Returning } from './flows/returning.js'
import type { Tools } from './flows/tools.js'
import type { Known } from './presence.js'
import type { ScreenName } from './screens/index.js'
import type { Store } from './store.js'
import type { Talk } from './talk.js'
import type { Key, Language } from './texts/index.js'
import type { Visit } from './visit.js'

/** The page's state, and the ways from screen to screen. */
export interface App extends Tools {
  readonly language: Store<Language>
  readonly visit: Visit
  readonly talk: Talk
  readonly returning: Returning
  readonly screen: Store<ScreenName>
  /** Seconds left until the page forgets the visitor; nothing while it does not count. */
  readonly countdown: Store<number | undefined>
  /** A short notice, which goes by itself. */
  readonly notice: Store<Key | undefined>
  readonly isChoosingLanguage: Store<boolean>
  /** A text of the site in the visitor's language. */
  local(text: Localized): string
  go(screen: ScreenName): void
  /** Back to the menu. */
  home(): void
  /** The step of a guided visit ends; outside of one, the menu. */
  next(result: 'done' | 'skipped'): void
  /** Somebody is there. */
  wake(user?: Known): void
  /** The visitor did something. */
  touch(): void
  /** The visit is over: forgets all of it. */
  end(): void
  /** Ends the page. */
  close(): void
}
