import { startSimulator } from 'panorel-client/testing/simulator'
import { expect, it, onTestFinished } from 'vitest'
import { Reception } from './support/reception.js'
import { desk, onBothRoads } from './support/roads.js'

/** Nothing on the page holds these words any more. */
async function isForgotten(reception: Reception, ...words: string[]): Promise<void> {
  const kept = await reception.page.evaluate(() => [
    document.documentElement.outerHTML,
    ...[...document.querySelectorAll('input')].map((input) => input.value),
    ...(location.protocol === 'file:' ? [] : [JSON.stringify({ ...localStorage })]),
  ])
  for (const word of words) expect(kept.join('\n')).not.toContain(word)
}

onBothRoads((road) => {
  it('a visitor who leaves is asked for, then forgotten', async () => {
    const reception = await Reception.open(road, { site: { countdownSeconds: 2 } })
    const { robot } = reception
    const overlay = reception.find('[data-overlay="idle"]')
    const isAda = ({ name }: { name?: string }) => name === 'Ada Byron'
    const { id } = await robot.enter({ name: 'Ada Byron' })
    await robot.waitForMessage('user.has.user', { where: isAda })
    await reception.screen('greeting')
    await reception.press('start', 'language', 'language-es', 'open-badge')
    await reception.type('company', 'Analytical Engines')
    await robot.hear('I am Ada')
    await robot.leave()
    await overlay.waitFor()
    await reception.picture('50-still-there')
    await reception.press('stay')
    await overlay.waitFor({ state: 'detached' })
    expect(await reception.field('company').inputValue()).toBe('Analytical Engines')

    await robot.enter({ id })
    await robot.waitForMessage('user.has.user', { where: isAda })
    await robot.leave()
    await overlay.waitFor()
    await reception.screen('attract')
    await reception.reaches({ interaction: false, people: 0, language: 'en' })
    await isForgotten(reception, 'Ada', 'Byron', 'Analytical')
    await reception.goTo('badge')
    await isForgotten(reception, 'Ada', 'Byron', 'Analytical')
    expect(await reception.field('name').inputValue()).toBe('')
    await reception.press('home', 'open-talk')
    expect(await reception.find('.bubble').count()).toBe(0)
  })

  it('the next visitor sees nothing of the one before', async () => {
    const reception = await Reception.open(road)
    const { robot } = reception
    await robot.enter({ name: 'Ada Byron' })
    await reception.says('greeting.known', { name: 'Ada Byron' })
    await reception.press('start', 'open-badge')
    await reception.type('company', 'Analytical Engines')
    await robot.leave()
    await robot.waitForMessage('user.lost.user')
    await robot.enter({ name: 'Grace Hopper' })
    await reception.says('greeting.known', { name: 'Grace Hopper' })
    await reception.press('start', 'open-badge')
    expect(await reception.field('name').inputValue()).toBe('Grace Hopper')
    await isForgotten(reception, 'Ada', 'Analytical')
  })
})

it('who touches nothing is asked, and stays or is forgotten', async () => {
  const site = { idleSeconds: 1, countdownSeconds: 2 }
  const reception = await Reception.open(desk, { site })
  const overlay = reception.find('[data-overlay="idle"]')
  await reception.goTo('home')
  await overlay.waitFor()
  expect(await reception.find('.countdown-number').textContent()).toMatch(/^[12]$/)
  await reception.press('stay')
  await overlay.waitFor({ state: 'detached' })
  await reception.screen('home')
  await overlay.waitFor()
  await reception.screen('attract')
  await overlay.waitFor({ state: 'detached' })
  await reception.goTo('home')
  await overlay.waitFor()
  await reception.press('finish')
  await reception.screen('attract')
})

it('a page whose robot goes away says so, and works again at its new address', async () => {
  const reception = await Reception.open(desk)
  const { page, simulator } = reception
  const { port } = new URL(simulator.url)
  await reception.goTo('badge')
  await reception.type('name', 'Ada Byron')
  await simulator.stop()
  await reception.find('[data-overlay="lost"]', reception.t('lost.title')).waitFor()
  await reception.picture('60-lost')

  // The address of before does not lead to the new robot, which the page tells kindly.
  const next = await startSimulator({ page: 'dist', speed: 40, port: Number(port) })
  onTestFinished(() => next.stop())
  await reception.screen('offline')
  await reception.says('offline.title')
  await reception.picture('61-offline')
  await isForgotten(reception, 'Ada')
  await reception.press('retry')
  await reception.screen('offline')
  // The browser complains of each attempt.
  for (const words of reception.takeMistakes()) expect(words).toMatch(/WebSocket/)
  await page.goto(next.url)
  await reception.goTo('home')
  await expect.poll(() => next.robot.state()).toMatchObject({ interaction: true })
  // Before this robot goes away, too.
  await page.close()
})
