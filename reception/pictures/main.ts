import '../src/style/index.css'
import { fakeRobot } from 'panorel-client/testing'
import { defaults } from '../src/config.js'
import { start } from '../src/start.js'
import type { Language } from '../src/texts/index.js'
import { type Kit, scenes } from './scenes.js'

/** The page with a robot in memory, which the pictures and the browser's tests steer. */
export interface Stage {
  readonly names: readonly string[]
  play(scene: string, language: Language): Promise<void>
}

const pause = (milliseconds: number) => new Promise((done) => setTimeout(done, milliseconds))

async function find(selector: string): Promise<HTMLElement> {
  for (let left = 100; left > 0; left -= 1) {
    const found = document.querySelector<HTMLElement>(selector)
    if (found) return found
    await pause(20)
  }
  throw new Error(`there is no ${selector}`)
}

let page: { close(): void } | undefined

const stage: Stage = {
  names: Object.keys(scenes),
  async play(name, language) {
    page?.close()
    const scene = scenes[name]
    if (!scene) throw new Error(`there is no scene ${name}`)
    const fake = fakeRobot()
    // What is said stays on the screen, for the picture.
    fake.answer('dialog.say', ({ text }) => [['dialog.robot.replic.start', { text: String(text) }]])
    fake.answer('system.drive.control')
    const config = { ...defaults, language, countdownSeconds: 10, ...scene.config }
    const isThere = scene.isThere !== false
    page = start(document.body, config, () =>
      isThere ? fake.connect() : Promise.reject(new Error('nobody there')),
    )
    const kit: Kit = {
      fake,
      language,
      async press(action) {
        ;(await find(`[data-action="${action}"]`)).click()
        await pause(30)
      },
      async type(field, text) {
        const input = (await find(`[data-field="${field}"]`)) as HTMLInputElement
        input.focus()
        input.value = text
        input.dispatchEvent(new Event('input', { bubbles: true }))
      },
      pause,
    }
    await find('[data-screen]')
    await pause(30)
    await scene.play(kit)
    await pause(50)
  },
}

;(window as unknown as { stage: Stage }).stage = stage
