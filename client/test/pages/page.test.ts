import { expect, it } from 'vitest'
import { Desk } from '../support/pages.js'

const desk = new Desk()

it('page.html finds its robot, greets, and sees the visitor leave', async () => {
  await desk.page.goto(desk.simulator.url)
  const language = await desk.robot.waitForMessage('system.language.set')
  expect(language).toMatchObject({ direction: 'from page', attributes: { language: 'en' } })
  await desk.robot.hear('Good morning', { final: false })
  const said = await desk.robot.waitForMessage('dialog.say')
  expect(said.attributes).toEqual({ text: 'You said Good morning' })
  await desk.robot.enter({ name: 'Ada' })
  await desk.page.getByText('Hello Ada').waitFor()
  await desk.robot.leave()
  await desk.page.getByText('Nobody here').waitFor()
})

it('page.html says that there is no robot when its address has no token', async () => {
  // The first address leaves a cookie, which brings the page to another tab, but no robot.
  await desk.open()
  await desk.page.evaluate('sessionStorage.clear()')
  await desk.page.goto(desk.simulator.url.split('?')[0] ?? '')
  await desk.page.getByText(/^no robot here/).waitFor()
})

it('page.html finds its robot again when the tab comes back without the token', async () => {
  await desk.open()
  await desk.page.goto(desk.simulator.url.split('?')[0] ?? '')
  await desk.robot.waitForMessage('system.language.set')
})
