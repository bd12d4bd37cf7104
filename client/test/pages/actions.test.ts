import { describe, expect, it } from 'vitest'
import type * as Client from '../../src/index.js'
import { Desk } from '../support/pages.js'
import { simulatorFailure } from '../support/simulators.js'

declare const panorel: typeof Client

const desk = new Desk()

const someone = {
  user_id: 7,
  age: 0,
  gender: 0,
  extra_data: null,
  acquaintance_date: '',
  last_visit: '',
}

describe('an action', () => {
  it('enter and leave bring and take people', async () => {
    const { id, track } = await desk.robot.enter({ name: 'Ada', age: 36 })
    const user = await desk.robot.waitForMessage('user.has.user')
    expect(user.attributes).toMatchObject({ name: 'Ada', age: 36, user_id: id })
    await desk.robot.enter()
    await desk.reaches({ people: 2 })
    await desk.robot.leave({ track })
    await desk.robot.waitForMessage('user.lost.user')
    await desk.reaches({ people: 1 })
    await desk.robot.leave()
    await desk.reaches({ people: 0 })
    const why = await simulatorFailure(desk.robot.leave({ track: 99 }), 'refused')
    expect(why).toBe('leave: Nobody in the picture has the track 99.')
  })

  it('hear is heard', async () => {
    await desk.robot.hear('Where is', { final: false })
    await desk.robot.hear('Where is the lift?')
    const first = await desk.robot.waitForMessage('dialog.user.said')
    const second = await desk.robot.waitForMessage('dialog.user.said')
    expect([first.attributes, second.attributes]).toEqual([
      { text: 'Where is', is_finish: false },
      { text: 'Where is the lift?', is_finish: true },
    ])
  })

  it('ask puts a question and withdraws it', async () => {
    await desk.robot.ask({ text: 'Tea or coffee?', answers: ['tea', 'coffee'] })
    await desk.robot.waitForMessage('dialog.question.new')
    await desk.reaches({ question: 'Tea or coffee?' })
    await desk.robot.ask()
    await desk.robot.waitForMessage('dialog.question.cancel')
    await desk.reaches({ question: '' })
  })

  it('interaction starts and stops', async () => {
    await desk.robot.interaction({ reason: 'touch' })
    const begin = await desk.robot.waitForMessage('system.interaction.state')
    expect(begin.attributes).toEqual({ state: 'Interaction', Reason: 3 })
    await desk.reaches({ interaction: true })
    await desk.robot.interaction()
    await desk.reaches({ interaction: false })
  })

  it('printer changes paper, errors and plug', async () => {
    await desk.robot.printer({ paper: 1 })
    await desk.reaches({ printer: { paper: 1, connected: true, printed: 0 } })
    await desk.robot.printer({ error: { code: 7, text: 'jam' } })
    await desk.reaches({ printer: { state: 2 } })
    await desk.robot.printer({ paper: 40, clear: true, refusing: true })
    await desk.reaches({ printer: { state: 0 } })
    await desk.robot.printer({ connected: false })
    await desk.reaches({ printer: { connected: false, state: 3 } })
  })

  it('dispenser changes cards, jams, bin and status', async () => {
    await desk.robot.dispenser({ cards: 4, jammed: true, bin_full: true })
    await desk.reaches({ dispenser: { cards: 4 } })
    await desk.robot.dispenser({ jammed: false, bin_full: false, taken: true, status: 8 })
    await desk.reaches({ dispenser: { status: 8 } })
    await desk.robot.dispenser({ connected: false })
    await desk.reaches({ dispenser: { connected: false } })
  })

  it('passportScanner and documentScanner say what is read', async () => {
    await desk.open()
    await desk.robot.passportScanner({ fields: { surname: 'LOVELACE' } })
    const read = await desk.page.evaluate(async () =>
      panorel.scanPassport(await panorel.connect(), { timeout: 5000 }),
    )
    expect(JSON.stringify(read)).toContain('LOVELACE')
    await desk.robot.passportScanner({ present: false })
    await desk.robot.documentScanner({ connected: false })
    await desk.reaches({
      passport_scanner: { present: false },
      document_scanner: { connected: false },
    })
    await desk.robot.documentScanner({ error: { code: 5, text: 'lamp' } })
    const fault = await desk.robot.waitForMessage('scanner.document.error')
    expect(fault.attributes).toMatchObject({ code: '5' })
  })

  it('telephone lets a call be busy, or answered and ended', async () => {
    await desk.open()
    const call = () => desk.page.evaluate(async () => panorel.call(await panorel.connect(), '100'))
    await desk.robot.telephone({ outcome: 'busy' })
    await call()
    await desk.reaches({ telephone: { state: 4, number: '100' } })
    await desk.robot.telephone({ outcome: 'answered' })
    await call()
    await desk.reaches({ telephone: { state: 3 } })
    await desk.robot.telephone({ key: 11 })
    const isKey = ({ event }: { event?: string }) => event === 'tone'
    const pressed = await desk.robot.waitForMessage('sip.events', { where: isKey })
    expect(pressed.attributes).toMatchObject({ tone: 11 })
    await desk.robot.telephone({ hang_up: true })
    await desk.reaches({ telephone: { state: 6 } })
  })

  it('drive changes the mode, takes its time and is blocked', async () => {
    await desk.open()
    await desk.robot.drive({ mode: 'automatic', travel_time: 3600000 })
    const mode = await desk.robot.waitForMessage('system.drive.mode')
    expect(mode.attributes).toEqual({ mode: 1 })
    await desk.page.evaluate(async () => panorel.driveTo(await panorel.connect(), 3))
    await desk.reaches({ drive: { mode: 1, point: 3, status: 1 } })
    await desk.robot.drive({ block: true })
    await desk.reaches({ drive: { status: 4 } })
  })

  it('operator answers and takes over', async () => {
    await desk.robot.operator({ response: 9, control: true })
    const answer = await desk.robot.waitForMessage('operator.call.response')
    expect(answer.attributes).toEqual({ response: '9' })
    await desk.reaches({ operator: { control: true } })
  })

  it('mail refuses mails, and takes them again', async () => {
    await desk.open()
    const send = () =>
      desk.page.evaluate(async () => {
        const mail = { email: 'ada@example.org', subject: 'Hi' }
        return panorel.sendMail(await panorel.connect(), mail).then(
          () => 'sent',
          (error) => error.said,
        )
      })
    await desk.robot.mail({ error: { code: 550, text: 'no such box' } })
    expect(await send()).toBe('no such box')
    await desk.robot.mail()
    expect(await send()).toBe('sent')
    await desk.reaches({ mails: [{ to: 'ada@example.org', subject: 'Hi' }] })
  })

  it("pace lets the robot's time run", async () => {
    await desk.open()
    await desk.robot.pace({ speed: 10000 })
    await desk.robot.drive({ travel_time: 3600000 })
    await desk.page.evaluate(async () => panorel.driveTo(await panorel.connect(), 3))
    await desk.reaches({ drive: { point: 3, status: 3 } })
    const why = await simulatorFailure(desk.robot.pace({ speed: 0 }), 'refused')
    expect(why).toBe('pace: "speed" has to be a number from 0.01 to 10000.')
  })

  it('tell reaches the page', async () => {
    await desk.open()
    await desk.robot.tell('user.has.user', { ...someone, name: 'Grace' })
    await desk.page.getByText('Hello Grace').waitFor()
    await desk.robot.tell('user.lost.user')
    await desk.page.getByText('Nobody here').waitFor()
  })
})
