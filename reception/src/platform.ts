// The numbers of the robot platform that this page understands. Another platform may number
// differently: change them here.

/** "system.drive.status" */
export const Drive = { stopped: 0, moving: 1, paused: 2, reached: 3, blocked: 4 } as const

/** "sip.events" of a "public_call" */
export const Call = {
  idle: 0,
  calling: 1,
  ringing: 2,
  connected: 3,
  busy: 4,
  failed: 5,
  ended: 6,
} as const

/** "scanner.passport.state" */
export const Scanner = {
  idle: 0,
  waiting: 1,
  scanning: 2,
  recognizing: 3,
  disconnected: 4,
} as const

/** "scanner.passport.error": nothing was laid on the scanner. */
export const NO_DOCUMENT = 1

/** The locales of the robot's keyboard. */
export const keyboardLocales = { en: 'en_GB', es: 'es_ES', zh: 'zh_CN', ar: 'ar_EG' } as const
