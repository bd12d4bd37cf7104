import type { Robot } from 'panorel-client'
import type { Config } from './config.js'
import { createApp } from './createapp.js'
import { createScope } from './scope.js'
import { showOffline } from './screens/offline.js'
import { createShell } from './shell.js'

/** How long to wait before the robot is looked for once more. */
export const RETRY_TIME = 3000

/** Looks for the robot until it is there, then starts the page. Returns how to end all of it. */
export function start(
  body: HTMLElement,
  config: Config,
  find: () => Promise<Robot>,
): { close(): void } {
  const life = createScope()
  let ending = (): void => {}

  async function look(): Promise<void> {
    try {
      const robot = await find()
      if (life.isOver) return
      ending()
      ending = run(robot)
    } catch (error) {
      if (life.isOver) return
      console.info(`No robot yet: ${String(error)}`)
      wait()
    }
  }

  function wait(): void {
    ending()
    const scope = createScope()
    const retry = (): void => {
      scope.end()
      look()
    }
    ending = () => scope.end()
    showOffline(body, config, scope, retry)
    scope.after(RETRY_TIME, retry)
  }

  function run(robot: Robot): () => void {
    const shell = createShell(body)
    const app = createApp(shell.place, robot, config)
    const leave = shell.attach(app)
    const stop = robot.onState((state) => {
      // Closed for good: begin anew.
      if (state === 'closed') wait()
    })
    return () => {
      stop()
      leave()
      app.close()
      body.replaceChildren()
    }
  }

  // Whoever drags or holds a finger on a kiosk wants neither a menu nor marked text.
  life.listen(document, 'contextmenu', (event) => event.preventDefault())
  life.listen(document, 'dragstart', (event) => event.preventDefault())
  look()
  return {
    close() {
      life.end()
      ending()
    },
  }
}
