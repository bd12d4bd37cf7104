// What does not compile, and what does: looked at by the compiler alone (npm run check).
import type { EventTopics, Face, RequestTopics, Robot } from '../src/index.js'
import { print, sendMail } from '../src/index.js'
import { startSimulator } from '../src/simulator/index.js'
import { fakeRobot } from '../src/testing/index.js'

type Same<A, B> = (<T>() => T extends A ? 1 : 2) extends <T>() => T extends B ? 1 : 2 ? true : false
function same<A, B>(_: Same<A, B>): void {}

export async function types(robot: Robot): Promise<void> {
  robot.send('system.language.set', { language: 'de' })
  robot.send('dialog.robot.replic.abort')
  robot.send('system.custom.event.js', { anything: [1] })
  robot.send('keyboard.control.request', { show: true })
  // @ts-expect-error no such topic
  robot.send('system.language.sett', { language: 'de' })
  // @ts-expect-error a topic that only the robot sends
  robot.send('user.lost.user')
  // @ts-expect-error no such attribute
  robot.send('system.language.set', { language: 'de', speed: 2 })
  // @ts-expect-error another kind
  robot.send('system.language.set', { language: 7 })
  // @ts-expect-error one is missing
  robot.send('system.language.set', {})
  // @ts-expect-error all are missing
  robot.send('system.language.set')
  // @ts-expect-error no such value
  robot.send('system.interaction.control', { state: 'start' })
  // @ts-expect-error it has none
  robot.send('dialog.robot.replic.abort', { now: true })
  // @ts-expect-error false would count as present
  robot.send('keyboard.control.request', { show: false })
  // @ts-expect-error inside of an attribute
  robot.send('sip.control', { call_start: { number: 100 } })
  same<ReturnType<Robot['send']>, void>(true)

  const stop = robot.on('user.has.user', (user) => {
    same<typeof user, EventTopics['user.has.user']>(true)
    same<typeof user.name, string>(true)
    // @ts-expect-error no such attribute
    user.surname
  })
  same<typeof stop, () => void>(true)
  robot.on('face.recognize.info', ({ info }) => {
    same<typeof info, { [key: string]: Face }>(true)
  })
  robot.on('sip.events', (news) => {
    if (news.event === 'tone') same<typeof news.tone, number>(true)
    // @ts-expect-error not in every one
    const tone: number = news.tone
    return tone
  })
  // @ts-expect-error no such topic
  robot.on('user.has.users', () => {})
  // @ts-expect-error a topic that only the page sends
  robot.on('dialog.say', () => {})

  const printed = await robot.request('printer.print', { data: 'x' })
  same<
    typeof printed.topic,
    'printer.success' | 'printer.error' | 'printer.nopaper' | 'printer.noprinter' | 'none'
  >(true)
  const spoken = await robot.request('dialog.say', { text: 'Hi' })
  same<typeof spoken.topic, 'dialog.robot.replic.finish' | 'none'>(true)
  same<(typeof spoken.replies)[0]['topic'], `dialog.robot.replic.${'start' | 'finish'}`>(true)
  const mailed = await robot.request('mail.sender.request', { email: 'a' }, { timeout: 5 })
  if (mailed.topic !== 'none') same<typeof mailed.attributes.status, 'success' | 'error'>(true)
  const scanned = await robot.request('scanner.passport.request', {}, { until: () => true })
  same<typeof scanned.topic, `scanner.passport.${'response' | 'state' | 'error' | 'finish'}`>(true)
  // @ts-expect-error no such attribute
  robot.request('printer.print', { dat: 'x' })
  // @ts-expect-error it is never answered
  robot.request('system.log', { level: 'info' })
  // @ts-expect-error one is missing
  robot.request('mail.sender.request')
  // @ts-expect-error no such option
  robot.request('printer.print', {}, { time: 5 })
  // @ts-expect-error none of its replies
  printed.topic === 'user.lost.user'

  // @ts-expect-error no picture
  print(robot, 7)
  // @ts-expect-error no recipient
  sendMail(robot, { subject: 'x' })

  const fake = fakeRobot()
  fake.answer('printer.print', 'printer.paper.low', ['printer.success', {}])
  fake.answer('printer.print', ({ data }) => (data ? ['printer.success'] : []))
  fake.emit('user.lost.user')
  same<ReturnType<typeof fake.sentOf<'system.language.set'>>, { language: string }[]>(true)
  // @ts-expect-error not one of its replies
  fake.answer('printer.print', 'user.lost.user')
  // @ts-expect-error its attributes are missing
  fake.answer('printer.state', 'printer.state.info')
  // @ts-expect-error another kind
  fake.answer('printer.state', ['printer.state.info', { state: 'idle' }])
  // @ts-expect-error its attributes are missing
  fake.emit('user.has.user')
  // @ts-expect-error one is missing
  fake.emit('dialog.user.said', { text: 'x' })
  // @ts-expect-error no such topic
  fake.sentOf('printer.prin')
}

export async function simulatorTypes(): Promise<void> {
  const { robot } = await startSimulator({ page: 'dist', without: ['printer'] })
  // @ts-expect-error no such device
  startSimulator({ without: ['wheels'] })
  await robot.tell('user.lost.user')
  await robot.tell('system.drive.mode', { mode: 2 })
  // @ts-expect-error a topic that only the page sends
  await robot.tell('dialog.say', { text: 'x' })
  // @ts-expect-error its attributes are missing
  await robot.tell('user.has.user')
  // @ts-expect-error another kind
  await robot.tell('system.drive.mode', { mode: 'follow' })
  // @ts-expect-error no such word
  await robot.drive({ mode: 'sideways' })
  // @ts-expect-error a text is needed
  await robot.hear({ final: true })
  const said = await robot.waitForMessage('dialog.say', { where: ({ text }) => text === 'Hi' })
  same<typeof said.topic, 'dialog.say'>(true)
  same<typeof said.attributes, RequestTopics['dialog.say'] | undefined>(true)
  const gone = await robot.waitForMessage('user.has.user')
  same<typeof gone.attributes, EventTopics['user.has.user'] | undefined>(true)
  // @ts-expect-error no such topic
  await robot.waitForMessage('dialog.sai')
  const { printer } = await robot.state()
  // @ts-expect-error this robot may have none
  printer.paper
}
