import type { FakeRobot } from 'panorel-client/testing'
import type { Config } from '../src/config.js'
import { Call, Drive, Scanner } from '../src/platform.js'
import type { Language } from '../src/texts/index.js'

/** What a scene may do. */
export interface Kit {
  readonly fake: FakeRobot
  readonly language: Language
  press(action: string): Promise<void>
  type(field: string, text: string): Promise<void>
  pause(milliseconds: number): Promise<unknown>
}

export interface Scene {
  readonly config?: Partial<Config>
  /** Whether there is a robot. */
  readonly isThere?: boolean
  play(kit: Kit): Promise<void>
}

const visitors: { readonly [L in Language]: { name: string; surname: string; said: string } } = {
  en: { name: 'ERIKA', surname: 'MUSTERMANN', said: 'Where can I find the' },
  es: { name: 'MARÍA JOSÉ', surname: 'GARCÍA LÓPEZ', said: '¿Dónde está la' },
  zh: { name: '小明', surname: '王', said: '请问会议室' },
  ar: { name: 'فاطمة', surname: 'الأحمد', said: 'أين توجد' },
}

const user = {
  user_id: 7,
  name: 'Anna',
  age: 34,
  gender: 1,
  extra_data: null,
  acquaintance_date: '2026-05-04T10:15:00',
  last_visit: '2026-05-05T09:00:00',
}

const replica = {
  id: { id: 12, uuid: '' },
  anchor: { id: 0, uuid: '' },
  category: { id: 3, uuid: '' },
  text: '',
  screen_text: '',
  url: '',
  actions: '',
  animation: 0,
  type: 1,
}

const scene = (play: Scene['play'], rest: Partial<Scene> = {}): Scene => ({ ...rest, play })

// Opens a tile of the menu.
const opened = (what: string, play: Scene['play'] = async () => {}): Scene =>
  scene(async (kit) => {
    await kit.press('wake')
    await kit.press('start')
    await kit.press(`open-${what}`)
    await play(kit)
  })

const guided = (play: Scene['play']): Scene =>
  opened('visit', async (kit) => {
    await kit.press('begin')
    await play(kit)
  })

const calling = (state: number): Scene =>
  opened('call', async (kit) => {
    await kit.press('call-person')
    kit.fake.emit('sip.events', { event: 'public_call', state })
  })

const driving = (...states: number[]): Scene =>
  opened('way', async (kit) => {
    await kit.press('destination')
    for (const status of states) kit.fake.emit('system.drive.status', { status })
  })

const scanning = (...states: number[]): Scene =>
  opened('passport', async (kit) => {
    kit.fake.answer('scanner.passport.request', ['scanner.passport.response', { success: true }])
    await kit.press('scan')
    for (const state of states) kit.fake.emit('scanner.passport.state', { state })
  })

const named: Scene['play'] = async ({ type, press, language }) => {
  const { name, surname } = visitors[language]
  await type('name', language === 'zh' ? surname + name : `${name} ${surname}`)
  await press('preview')
}

/** Every screen, in every state in which it looks different. */
export const scenes: { readonly [name: string]: Scene } = {
  offline: scene(async () => {}, { isThere: false }),
  attract: scene(async () => {}),
  greeting: scene(async ({ press }) => press('wake')),
  'greeting-known': scene(async ({ fake, pause }) => {
    fake.emit('user.has.user', user)
    await pause(1000)
  }),
  home: scene(async ({ press }) => {
    await press('wake')
    await press('start')
  }),
  language: scene(async ({ press }) => {
    await press('wake')
    await press('language')
  }),
  'talk-empty': opened('talk'),
  talk: opened('talk', async ({ fake, language }) => {
    const { said } = visitors[language]
    const text = {
      en: 'The café is on the second floor.',
      es: 'La cafetería está en la segunda planta.',
      zh: '咖啡厅在三楼。',
      ar: 'المقهى في الطابق الثاني.',
    }[language]
    fake.emit('dialog.user.said', { text: `${said}…`, is_finish: true })
    fake.emit('dialog.answer.load', {
      answer: {
        id: { id: 1, uuid: '' },
        source: 1,
        id_pattern: { id: 0, uuid: '' },
        pattern: '',
        question: '',
        replica: { ...replica, text, screen_text: text, actions: 'head.left,screen.map' },
      },
    })
    fake.emit('dialog.robot.replic.start', { text })
    fake.emit('dialog.robot.replic.finish')
    fake.emit('dialog.user.said', { text: said, is_finish: false })
  }),
  'talk-question': opened('talk', async ({ fake }) => {
    fake.emit('dialog.robot.replic.start', { text: 'What shall I do for you?' })
    fake.emit('dialog.question.new', {
      text: 'What shall I do for you?',
      answers: ['Print a badge', 'Show me the way', 'Call an operator'],
    })
  }),
  visit: opened('visit'),
  passport: opened('passport'),
  'passport-guided': guided(async () => {}),
  'passport-waiting': scanning(Scanner.waiting),
  'passport-reading': scanning(Scanner.waiting, Scanner.scanning, Scanner.recognizing),
  'passport-done': opened('passport', async ({ fake, press, language }) => {
    const { name, surname } = visitors[language]
    fake.answer(
      'scanner.passport.request',
      ['scanner.passport.response', { success: true }],
      [
        'scanner.passport.finish',
        { data: { surname, name, number: 'C01X00T47', birth_date: '12.08.1983' } },
      ],
    )
    await press('scan')
  }),
  'passport-problem': opened('passport', async ({ fake, press }) => {
    fake.answer('scanner.passport.request', ['scanner.passport.response', { success: false }])
    await press('scan')
  }),
  badge: opened('badge'),
  'badge-guided': guided(async ({ press }) => press('skip')),
  'badge-preview': opened('badge', named),
  'badge-camera': opened('badge', async (kit) => {
    await named(kit)
    await kit.press('picture')
    await kit.pause(800)
  }),
  'badge-picture': opened('badge', async (kit) => {
    await named(kit)
    await kit.press('picture')
    await kit.pause(4000)
  }),
  'badge-done': opened('badge', async (kit) => {
    kit.fake.answer('printer.print', 'printer.paper.low', 'printer.success')
    await named(kit)
    await kit.press('print')
  }),
  'badge-problem': opened('badge', async (kit) => {
    kit.fake.answer('printer.print', 'printer.nopaper')
    await named(kit)
    await kit.press('print')
  }),
  card: opened('card'),
  'card-waiting': opened('card', async ({ fake, press }) => {
    fake.answer('dispenser.dispense', 'dispenser.card.dispensing')
    await press('dispense')
  }),
  'card-done': opened('card', async ({ fake, press }) => {
    fake.answer('dispenser.dispense', 'dispenser.card.preempty', 'dispenser.cardbin.full', [
      'dispenser.sensor',
      { sensor: 'DispSensor' },
    ])
    await press('dispense')
  }),
  'card-problem': opened('card', async ({ fake, press }) => {
    fake.answer('dispenser.dispense', 'dispenser.not.connected')
    await press('dispense')
  }),
  call: opened('call'),
  'call-none': opened('call', async ({ type }) => type('search', 'xyz')),
  'call-ringing': calling(Call.ringing),
  'call-connected': calling(Call.connected),
  'call-ended': calling(Call.ended),
  'call-busy': calling(Call.busy),
  way: opened('way'),
  'way-guided': guided(async ({ press, fake }) => {
    for (const _ of ['passport', 'badge', 'card']) await press('skip')
    await press('call-person')
    fake.emit('sip.events', { event: 'public_call', state: Call.ended })
    await press('next')
  }),
  'way-moving': driving(Drive.moving),
  'way-paused': driving(Drive.moving, Drive.paused),
  'way-arrived': driving(Drive.moving, Drive.reached),
  'way-blocked': driving(Drive.moving, Drive.blocked),
  operator: opened('operator'),
  'operator-calling': opened('operator', async ({ fake, press }) => {
    fake.answer('operator.call.request')
    await press('call-operator')
  }),
  'operator-control': scene(async ({ fake }) => {
    fake.emit('operator.control.status', { status: true })
  }),
  'question-asked': opened('card', async ({ fake }) => {
    fake.emit('dialog.question.new', { text: 'Tea or coffee?', answers: ['Tea', 'Coffee'] })
  }),
  finish: guided(async ({ press }) => {
    for (const _ of [1, 2, 3, 4, 5]) await press('skip')
  }),
  idle: scene(
    async ({ press, pause }) => {
      await press('wake')
      await pause(4200)
    },
    { config: { idleSeconds: 1 } },
  ),
  lost: opened('card', async ({ fake }) => fake.lose()),
}
