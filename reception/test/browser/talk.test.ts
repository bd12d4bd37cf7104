import { expect, it } from 'vitest'
import { Reception } from './support/reception.js'
import { onBothRoads } from './support/roads.js'

onBothRoads((road) => {
  it('robot and visitor talk, on the screen too', async () => {
    const reception = await Reception.open(road)
    const { robot } = reception
    const heard = reception.find('.bubble-visitor .bubble-text')
    const said = reception.find('.bubble-robot .bubble-text')
    await reception.goTo('home')
    await robot.hear('Where is the', { final: false })
    await reception.find('.caption-words', 'Where is the').waitFor()
    await robot.hear('Where is the café?')
    await reception.screen('talk')
    await expect.poll(() => heard.allTextContents()).toEqual(['Where is the café?'])
    await reception.find('.bubble-robot', 'Take the stairs').waitFor()
    // What the robot offers beside its words.
    await reception.action('open-way').waitFor()

    await robot.hear('I need a badge')
    await reception.find('.bubble-robot', 'Print a badge?').waitFor()
    await reception.picture('30-talk')
    await reception.find('[data-action="answer"]', 'Yes, please').click()
    const answer = await robot.waitForMessage('dialog.question.answer')
    expect(answer).toMatchObject({ direction: 'from page', attributes: { text: 'Yes, please' } })
    await reception.find('.bubble-robot', 'Your badge is being printed').waitFor()
    expect((await heard.allTextContents()).pop()).toBe('Yes, please')
    expect(await said.count()).toBe(3)
    await reception.press('open-badge')
    await reception.screen('badge')
  })

  it('a question of the robot finds the visitor on any screen', async () => {
    const reception = await Reception.open(road)
    const { robot } = reception
    await robot.ask({ text: 'Tea or coffee?', answers: ['Tea', 'Coffee'] })
    await reception.screen('talk')
    await reception.find('[data-action="answer"]', 'Coffee').click()
    expect((await robot.waitForMessage('dialog.question.answer')).attributes).toEqual({
      text: 'Coffee',
    })
    await reception.reaches({ question: '' })

    await reception.press('home', 'open-card')
    await robot.ask({ text: 'Is it raining?', answers: ['Yes', 'No'] })
    await reception.press('open-question')
    await reception.screen('talk')
    await reception.action('answer').first().waitFor()
    await robot.ask()
    await expect.poll(() => reception.action('answer').count()).toBe(0)
  })

  it('an operator is called, takes over, and hands back', async () => {
    const reception = await Reception.open(road)
    const { robot } = reception
    await reception.goTo('operator')
    await reception.press('call-operator')
    await reception.says('operator.calling')
    await reception.reaches({ operator: { called: true } })
    await robot.operator({ response: 1 })
    await reception.says('operator.answered')
    await robot.operator({ control: true })
    await reception.says('operator.control')
    await reception.picture('31-operator')
    await robot.operator({ control: false })
    await reception.screen('home')
    await reception.reaches({ operator: { called: false, control: false } })

    await reception.press('open-operator', 'call-operator')
    await reception.says('operator.calling')
    await reception.press('withdraw')
    await reception.says('operator.intro')
    await reception.reaches({ operator: { called: false } })
  })

  it('hostile words show as words', async () => {
    const reception = await Reception.open(road)
    const { robot, page } = reception
    const words = '<img src="x:" onerror="window.isHit = 1"><b>&lt;</b>'
    await robot.enter({ name: `Eve ${words}` })
    await reception.says('greeting.known', { name: `Eve ${words}` })
    await reception.press('start')
    await robot.tell('dialog.robot.replic.start', { text: `Robot ${words}` })
    await reception.find('.caption-words', `Robot ${words}`).waitFor()
    await robot.hear(words)
    await reception.find('.bubble-visitor .bubble-text', words).waitFor()
    await reception.find('.bubble-robot .bubble-text', `Robot ${words}`).waitFor()
    await robot.ask({ text: `Question ${words}`, answers: [`Answer ${words}`] })
    await reception.find('.talk-question', `Question ${words}`).waitFor()
    await reception.find('[data-action="answer"]', `Answer ${words}`).click()
    expect((await robot.waitForMessage('dialog.question.answer')).attributes).toEqual({
      text: `Answer ${words}`,
    })

    await robot.passportScanner({ fields: { name: words, surname: words, [words]: words } })
    await reception.press('home', 'open-passport', 'scan')
    await reception.find('[data-result] dt', words).waitFor()
    const found = await page.evaluate(() => ({
      made: document.querySelectorAll('img, b').length,
      isHit: 'isHit' in window,
    }))
    expect(found).toEqual({ made: 0, isHit: false })
  })
})
