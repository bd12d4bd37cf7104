import { replyTopics } from '../topics.js'
import type { AnsweredTopic, EventTopic, Reply } from '../types.js'
import { examples } from './examples.js'

/** Attributes as they arrived, from whatever page. */
export type Sent = { readonly [name: string]: unknown }

/** One reply: its topic, alone where it has no attributes, or with them. */
export type FakeReply<T extends AnsweredTopic> = Pair<Reply<T>>

type Pair<E> = E extends { topic: infer N; attributes: infer A }
  ? ({} extends A ? N : never) | readonly [topic: N, attributes: A]
  : never

/** What the fake robot says to a request, in order. */
export type FakeAnswers = {
  [T in AnsweredTopic]: (attributes: Sent) => readonly FakeReply<T>[]
}

const NO_CALL = '{00000000-0000-0000-0000-000000000000}'

// A queued call needs texts, as the robot does.
function queued(order: unknown, name: string): string {
  const fields = Object(order) as Sent
  const isComplete = typeof fields.number === 'string' && typeof fields[name] === 'string'
  return isComplete ? examples['sip.text.response'].uuid : NO_CALL
}

/**
 * What a robot says on which everything works: one that knows one person, one replica and the
 * settings of the contract's examples.
 */
export const working: FakeAnswers = {
  'system.interaction.control': ({ state }) =>
    state === 'Start'
      ? [['system.interaction.state', { state: 'Interaction', Reason: 1 }]]
      : state === 'Stop'
        ? [['system.interaction.state', { state: 'NonInteraction' }]]
        : [],
  'system.scripts.control': ({ start }) =>
    start === undefined
      ? []
      : [['system.scripts.start.result', { result: ['started'] }], 'system.scripts.end'],
  'dialog.say': ({ text, step, replica }) => {
    const line =
      text ||
      (step !== undefined || replica !== undefined
        ? examples['dialog.replica.load'].replica.text
        : '')
    return line
      ? [['dialog.robot.replic.start', { text: String(line) }], 'dialog.robot.replic.finish']
      : []
  },
  'dialog.replica.get': ({ step, replica_type }) =>
    step === undefined && replica_type === undefined
      ? []
      : [['dialog.replica.load', examples['dialog.replica.load']]],
  'face.recognize.control': ({ add_face }) =>
    add_face === undefined ? [] : [['face.add.status', examples['face.add.status']]],
  'system.general.touch': ({ x, y }) =>
    x === undefined || y === undefined
      ? []
      : [['system.general.setted', examples['system.general.setted']]],
  'database.user.request': (request) => [['database.user.response', { response: people(request) }]],
  'operator.call.request': ({ call }) =>
    call === true ? [['operator.call.response', examples['operator.call.response']]] : [],
  'printer.print': () => ['printer.success'],
  'printer.state': () => [['printer.state.info', { state: 'IDLE' }]],
  'dispenser.dispense': () => [
    'dispenser.card.dispensing',
    ['dispenser.sensor', { sensor: 'DispSensor' }],
  ],
  'scanner.document.request': () => [
    ['scanner.document.response', { success: true }],
    ['scanner.document.state', examples['scanner.document.state']],
    ['scanner.document.progress', examples['scanner.document.progress']],
    ['scanner.document.finish', examples['scanner.document.finish']],
  ],
  'scanner.passport.request': () => [
    ['scanner.passport.response', { success: true }],
    ['scanner.passport.state', examples['scanner.passport.state']],
    ['scanner.passport.finish', examples['scanner.passport.finish']],
  ],
  'system.drive.control': ({ drive_point, drive_pause, drive_mode, drive_charger }) => {
    const news: FakeReply<'system.drive.control'>[] = []
    if (drive_point !== undefined || drive_pause !== undefined) {
      news.push(['system.drive.status', examples['system.drive.status']])
    }
    if (typeof drive_mode === 'number') news.push(['system.drive.mode', { mode: drive_mode }])
    if (drive_charger !== undefined) {
      news.push(['system.drive.charge', examples['system.drive.charge']])
    }
    return news
  },
  'keyboard.control.request': ({ get_locale, is_visible }) => {
    const news: FakeReply<'keyboard.control.request'>[] = []
    if (get_locale !== undefined) news.push(['keyboard.control.response', { locale: 'en_GB' }])
    if (is_visible !== undefined) news.push(['keyboard.control.response', { is_visible: false }])
    return news
  },
  'system.settings.get': ({ settings_type, group, name }) => {
    const all = Object.entries(examples['system.settings.load'].settings)
    const found = all.filter(
      ([, one]) =>
        one.settings_type === settings_type && one.group === group && (!name || one.name === name),
    )
    const settings: { [key: string]: (typeof all)[0][1] } = {}
    for (const [key, one] of found) settings[key] = one
    return [['system.settings.load', { settings }]]
  },
  'system.environment.get': () => [
    ['system.environment.load', examples['system.environment.load']],
  ],
  'system.sound.properties': ({ get_volume, get_mic }) => {
    const sound: { volume?: number; mic?: number } = {}
    if (get_volume !== undefined) sound.volume = 40
    if (get_mic !== undefined) sound.mic = 70
    return Object.keys(sound).length ? [['system.sound.load', { sound }]] : []
  },
  'system.play.external': ({ url, stop }) => {
    const states: ('PlayingState' | 'StoppedState' | 'EndOfMedia')[] = []
    if (url) states.push('PlayingState')
    if (stop !== undefined) states.push('StoppedState')
    else if (url) states.push('StoppedState', 'EndOfMedia')
    return states.map((status) => ['system.play.status', { status }] as const)
  },
  'record.audio.request': ({ start, stop }) =>
    start === undefined && stop === undefined
      ? []
      : [['record.audio.response', examples['record.audio.response']]],
  'sip.control': ({ call_start, play_file, play_text }) => {
    const news: FakeReply<'sip.control'>[] = []
    if (call_start !== undefined) {
      const { number } = Object(call_start) as Sent
      news.push(['sip.call.response', { result: typeof number === 'string' }])
    }
    if (play_file !== undefined) {
      news.push(['sip.file.response', { uuid: queued(play_file, 'file') }])
    }
    if (play_text !== undefined) {
      news.push(['sip.text.response', { uuid: queued(play_text, 'text') }])
    }
    return news
  },
  'mail.sender.request': ({ email }) =>
    email === undefined ? [] : [['mail.sender.response', { status: 'success' }]],
}

function people({ get_user, add_user, del_user }: Sent) {
  const known = examples['database.user.response'].response.get_user
  const response: (typeof examples)['database.user.response']['response'] = {}
  if (get_user !== undefined) {
    response.get_user = known && known.id === get_user ? known : false
  }
  if (add_user !== undefined) response.add_user = true
  if (del_user !== undefined) response.del_user = known ? known.id === del_user : false
  return response
}

/** Whether a reply comes before the robot has done with the request. */
export function isAtOnce(request: string, reply: EventTopic, attributes: Sent): boolean {
  const [now = [], later = []] = replyTopics[request] || []
  // A reply that may be either comes at once where something is ended.
  return now.includes(reply) && (!later.includes(reply) || attributes.stop !== undefined)
}
