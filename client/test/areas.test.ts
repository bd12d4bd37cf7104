import { describe, expect, it } from 'vitest'
import type { Robot } from '../src/index.js'
import * as panorel from '../src/index.js'
import { faults } from './support/contract.js'
import { connected, settled } from './support/robots.js'

type Case = [name: string, act: (robot: Robot) => unknown, topic: string, attributes: object]

// Helpers that only send.
const commands: Case[] = [
  ['say', (r) => panorel.say(r, 'Hi'), 'dialog.say', { text: 'Hi' }],
  [
    'say with options',
    (r) => panorel.say(r, '%a%', { macros: { a: 'b' }, terminate: false }),
    'dialog.say',
    { text: '%a%', macroses: { a: 'b' }, terminate: false },
  ],
  [
    'playStep',
    (r) => panorel.playStep(r, 'welcome', { category: 'guests', use_general: false }),
    'dialog.say',
    { step: 'welcome', category: 'guests', use_general: false },
  ],
  [
    'playReplica',
    (r) => panorel.playReplica(r, { text: 'Hi' }),
    'dialog.say',
    { replica: { text: 'Hi' } },
  ],
  ['abortSpeech', (r) => panorel.abortSpeech(r), 'dialog.robot.replic.abort', {}],
  ['setLanguage', (r) => panorel.setLanguage(r, 'de'), 'system.language.set', { language: 'de' }],
  [
    'answerQuestion',
    (r) => panorel.answerQuestion(r, 'Yes'),
    'dialog.question.answer',
    { text: 'Yes' },
  ],
  ['trackFace', (r) => panorel.trackFace(r, 12), 'face.recognize.control', { tracking_face: 12 }],
  [
    'trackAutomatically',
    (r) => panorel.trackAutomatically(r, false),
    'face.recognize.control',
    { tracking_auto: false },
  ],
  [
    'moveHead',
    (r) => panorel.moveHead(r, false),
    'face.recognize.control',
    { head_enabled: false },
  ],
  ['learnFace', (r) => panorel.learnFace(r, 7), 'face.recognize.control', { add_face: 7 }],
  ['forgetFace', (r) => panorel.forgetFace(r, 7), 'face.recognize.control', { del_face: 7 }],
  [
    'withdrawOperator',
    (r) => panorel.withdrawOperator(r),
    'operator.call.request',
    { call: false },
  ],
  ['driveTo', (r) => panorel.driveTo(r, 3), 'system.drive.control', { drive_point: 3 }],
  ['pauseDrive', (r) => panorel.pauseDrive(r), 'system.drive.control', { drive_pause: true }],
  ['resumeDrive', (r) => panorel.resumeDrive(r), 'system.drive.control', { drive_pause: false }],
  ['setDriveMode', (r) => panorel.setDriveMode(r, 1), 'system.drive.control', { drive_mode: 1 }],
  [
    'driveToCharger',
    (r) => panorel.driveToCharger(r),
    'system.drive.control',
    { drive_charger: true },
  ],
  [
    'leaveCharger',
    (r) => panorel.leaveCharger(r),
    'system.drive.control',
    { drive_charger: false },
  ],
  ['showKeyboard', (r) => panorel.showKeyboard(r), 'keyboard.control.request', { show: true }],
  [
    'showKeyboard in a locale',
    (r) => panorel.showKeyboard(r, 'de_DE'),
    'keyboard.control.request',
    { set_locale: 'de_DE', show: true },
  ],
  ['hideKeyboard', (r) => panorel.hideKeyboard(r), 'keyboard.control.request', { hide: true }],
  [
    'setKeyboardLocale',
    (r) => panorel.setKeyboardLocale(r, 'en_GB'),
    'keyboard.control.request',
    { set_locale: 'en_GB' },
  ],
  ['setVolume', (r) => panorel.setVolume(r, 30), 'system.sound.properties', { set_volume: 30 }],
  [
    'setMicrophone',
    (r) => panorel.setMicrophone(r, 80),
    'system.sound.properties',
    { set_mic: 80 },
  ],
  ['stopPlaying', (r) => panorel.stopPlaying(r), 'system.play.external', { stop: true }],
  ['stopRecording', (r) => panorel.stopRecording(r), 'record.audio.request', { stop: true }],
  ['hangUp', (r) => panorel.hangUp(r), 'sip.control', { call_stop: true }],
  ['clearCalls', (r) => panorel.clearCalls(r), 'sip.control', { clear_queue: true }],
  [
    'startInteraction',
    (r) => panorel.startInteraction(r),
    'system.interaction.control',
    { state: 'Start' },
  ],
  [
    'stopInteraction',
    (r) => panorel.stopInteraction(r),
    'system.interaction.control',
    { state: 'Stop' },
  ],
  ['stopScript', (r) => panorel.stopScript(r), 'system.scripts.control', { stop: true }],
  ['log', (r) => panorel.log(r, 'info', 'x'), 'system.log', { level: 'info', message: 'x' }],
  [
    'statistic',
    (r) =>
      panorel.statistic(r, 'visits', [
        ['2026-05-04', 1, true],
        ['a;b', 'say "x"', 'two\nlines'],
      ]),
    'system.statistic',
    { topic: 'visits', data: ['2026-05-04;1;true\n', '"a;b";"say ""x""";"two\nlines"\n'] },
  ],
  ['tellHost', (r) => panorel.tellHost(r, { floor: 3 }), 'system.custom.event.js', { floor: 3 }],
]

describe('a command', () => {
  it.each(commands)('%s is one message', async (_, act, topic, attributes) => {
    const { fake, robot } = await connected()
    expect(act(robot)).toBeUndefined()
    expect(fake.sent).toEqual([{ topic, attributes }])
    expect(faults(topic, attributes)).toEqual([])
  })
})

// Helpers that listen: what the robot tells, and how the page hears it.
type Listening = [
  name: string,
  listen: (robot: Robot, heard: (...values: unknown[]) => void) => () => void,
  messages: { type: string }[],
  heard: unknown[][],
]

const face = {
  id: 7,
  type: 2,
  is_tracking: true,
  id_track: 12,
  gender: 1,
  age: 34,
  emotion: 'happy',
}
const match = { type: 2, id: 7, score: 0.9 }
const told = (type: string, attributes: object = {}) => Object.assign({ type }, attributes)
const asked = { text: 'Tea?', answers: ['Yes', 'No'] }

const listening: Listening[] = [
  [
    'onQuestion',
    (r, heard) =>
      panorel.onQuestion(
        r,
        (question) => heard(question),
        () => heard('over'),
      ),
    [told('dialog.question.new', asked), told('dialog.question.cancel')],
    [[asked], ['over']],
  ],
  [
    'onFaces',
    (r, heard) => panorel.onFaces(r, heard),
    [
      told('face.recognize.info', {
        info: { k1: { ...face, matches: { m1: match } }, k2: { ...face, matches: {} } },
      }),
    ],
    [
      [
        [
          { ...face, matches: [match] },
          { ...face, matches: [] },
        ],
      ],
    ],
  ],
  [
    'onFaces without any',
    (r, heard) => panorel.onFaces(r, heard),
    [told('face.recognize.info', { info: {} })],
    [[[]]],
  ],
  [
    'onFaces with odd ones',
    (r, heard) => panorel.onFaces(r, heard),
    [
      told('face.recognize.info'),
      told('face.recognize.info', { info: 'x' }),
      told('face.recognize.info', { info: { k: null, l: 7, m: [], n: face } }),
    ],
    [[[]], [[]], [[{ ...face, matches: [] }]]],
  ],
  [
    'onUser',
    (r, heard) =>
      panorel.onUser(
        r,
        (user) => heard(user.name),
        () => heard('left'),
      ),
    [told('user.has.user', { name: 'Ann' }), told('user.lost.user')],
    [['Ann'], ['left']],
  ],
  [
    'onDrive',
    (r, heard) => panorel.onDrive(r, heard),
    [
      told('system.drive.mode', { mode: 1 }),
      told('system.drive.status', { status: 2 }),
      told('system.drive.charge', { charge: 3 }),
    ],
    [[{ mode: 1 }], [{ status: 2 }], [{ charge: 3 }]],
  ],
  [
    'onCall',
    (r, heard) => panorel.onCall(r, heard),
    [told('sip.events', { event: 'tone', tone: 5 })],
    [[{ event: 'tone', tone: 5 }]],
  ],
  [
    'onInteraction',
    (r, heard) => panorel.onInteraction(r, heard),
    [
      told('system.interaction.state', { state: 'Interaction', Reason: 4 }),
      told('system.interaction.state', { state: 'NonInteraction' }),
    ],
    [
      [true, 4],
      [false, undefined],
    ],
  ],
  ['onScriptEnd', (r, heard) => panorel.onScriptEnd(r, heard), [told('system.scripts.end')], [[]]],
  [
    'onHost',
    (r, heard) => panorel.onHost(r, heard),
    [told('system.custom.event.core', { floor: 3 })],
    [[{ floor: 3 }]],
  ],
]

describe('listening', () => {
  it.each(listening)(
    '%s calls back until it is told to stop',
    async (_, listen, messages, expected) => {
      const { fake, robot } = await connected()
      const heard: unknown[][] = []
      const stop = listen(robot, (...values) => heard.push(values))
      messages.forEach((message) => fake.emitRaw(message))
      expect(heard).toEqual(expected)
      stop()
      messages.forEach((message) => fake.emitRaw(message))
      expect(heard.length).toBe(expected.length)
    },
  )

  it('needs no second callback', async () => {
    const { fake, robot } = await connected()
    panorel.onQuestion(robot, () => {})
    panorel.onUser(robot, () => {})
    fake.emit('dialog.question.cancel')
    fake.emit('user.lost.user')
    await settled()
  })
})
