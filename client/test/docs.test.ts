import { existsSync, readdirSync, readFileSync } from 'node:fs'
import { fileURLToPath } from 'node:url'
import vm from 'node:vm'
import { describe, expect, it } from 'vitest'
import { messages } from '../examples/messages.js'
import { watch } from '../examples/state.js'
import { welcome } from '../examples/welcome.js'
import * as panorel from '../src/index.js'
import { type FakeRobot, fakeRobot } from '../src/testing/index.js'
import { faults } from './support/compiler.js'
import { contract } from './support/contract.js'
import { connected, settled } from './support/robots.js'

const root = fileURLToPath(new URL('../../', import.meta.url))
const read = (name: string) => readFileSync(`${root}${name}`, 'utf8')

/** The code blocks of a document: what stands behind the fence, and the lines. */
function blocks(document: string): { info: string; lines: string[] }[] {
  const found = [...read(document).matchAll(/^```(.*)\n([\s\S]*?)^```$/gm)]
  return found.map(([, info = '', code = '']) => ({ info, lines: code.trimEnd().split('\n') }))
}

describe.each(['docs/client.md', 'client/README.md'])('%s', (document) => {
  const all = blocks(document)

  it('has code blocks', () => expect(all.length).toBeGreaterThan(1))

  it.each(all)('shows code as its file has it: $info', ({ info, lines }) => {
    const [language = '', file] = info.split(' ')
    if (!file) {
      expect(['sh', 'json', 'text']).toContain(language)
      return
    }
    expect(file).toMatch(/^client\/(examples|template)\//)
    let rest = read(file)
    for (const part of `\n${lines.join('\n')}\n`.split('\n...\n')) {
      const at = `\n${rest}`.indexOf(`\n${part.trim() ? part.replace(/^\n/, '') : part}`)
      expect(at, `${file} has\n${part}`).toBeGreaterThanOrEqual(0)
      rest = rest.slice(at + part.length - 1)
    }
  })

  it('shows commands that are there', () => {
    const commands = all.filter(({ info }) => info === 'sh').flatMap(({ lines }) => lines)
    const { scripts } = JSON.parse(read('client/package.json')) as { scripts: object }
    for (const command of commands) {
      const [, script] = /^npm (?:run )?([\w:]+)/.exec(command) ?? []
      if (command.startsWith('scripts/')) {
        expect(existsSync(`${root}${command.split(' ')[0]}`), command).toBe(true)
      } else if (script !== 'ci' && script !== 'install') {
        expect(Object.keys(scripts)).toContain(script)
      }
    }
  })
})

const areas = readdirSync(`${root}client/src/areas`).filter((name) => name !== 'common.ts')
const functions = areas.flatMap((name) =>
  [
    ...read(`client/src/areas/${name}`).matchAll(
      /(\/\*\*(?:(?!\*\/)[\s\S])*\*\/\n)?export (?:async )?function (\w+)/g,
    ),
  ].map(([, comment = '', found = '']) => ({ found, comment })),
)

describe('the functions', () => {
  it('have a module for each area of the contract but the free topics', () => {
    const wanted = contract.areas.map(({ area }) => area).filter((area) => area !== 'free')
    // Areas in which nothing is asked and little is told.
    expect(areas.map((name) => name.replace('.ts', '')).sort()).toEqual(wanted.sort())
  })

  it('are listed in the document, and no others', () => {
    const [, table = ''] =
      /## What the robot can do\n([\s\S]*?)\n## /.exec(read('docs/client.md')) ?? []
    const listed = table.split('\n').filter((line) => line.startsWith('|'))
    const names = [...listed.join('').matchAll(/`(\w+)`/g)].map(([, name]) => name)
    expect(names.sort()).toEqual(functions.map(({ found }) => found).sort())
  })

  it.each(functions)('$found has an example that uses it', ({ found, comment }) => {
    expect(comment.split('@example\n')[1] ?? '').toContain(`${found}(`)
  })

  it('have examples that compile', () => {
    const name = `${root}client/test/comment-examples.ts`
    const names = functions.map(({ found }) => found).join(', ')
    const all = functions.map(
      ({ comment }) =>
        `export async function example(robot: Robot) {${(comment.split('@example\n')[1] ?? '').replace(/^ \*\/?/gm, '')}}`,
    )
    const text = `import { ${names}, PanorelError, type Robot } from 'panorel-client'\n${all
      .map((code, index) => code.replace('example', `example${index}`))
      .join('\n')}`
    // The compiler has really looked when it finds this.
    const wrong = '\n// @ts-expect-error no robot\nsay(7)\n'
    expect(faults(name, text + wrong)).toEqual([])
  })
})

describe('the examples', () => {
  /** The plain page, with the script as it is built. */
  function page(fake?: FakeRobot): { textContent: string } {
    const heading = { textContent: 'Nobody here' }
    const context: { [name: string]: unknown } = {
      document: { getElementById: () => heading },
      URL,
    }
    context.self = context
    fake?.install(context)
    const html = read('client/examples/page.html')
    const [, src, inline = ''] =
      /<script src="([^"]*)">[\s\S]*<script>([\s\S]*)<\/script>/.exec(html) ?? []
    const names = { setTimeout, clearTimeout, console }
    vm.createContext(Object.assign(context, names))
    vm.runInContext(`${read(`client/dist/${src}`)};this.panorel = panorel`, context)
    vm.runInContext(inline, context)
    return heading
  }

  it('page.html greets, and has ten lines', async () => {
    const fake = fakeRobot()
    const heading = page(fake)
    await settled()
    expect(fake.sent.map(({ topic }) => topic)).toEqual(['system.language.set'])
    fake.emitRaw({ type: 'user.has.user', name: 'Ann' })
    expect(heading.textContent).toBe('Hello Ann')
    fake.emit('user.lost.user')
    expect(heading.textContent).toBe('Nobody here')
    fake.emit('dialog.user.said', { text: 'hi', is_finish: true })
    expect(fake.sentOf('dialog.say')).toEqual([{ text: 'You said hi' }])
    expect(read('client/examples/page.html').trimEnd().split('\n').length).toBeLessThanOrEqual(10)
  })

  it('page.html tells that there is no robot', async () => {
    const heading = page()
    await settled()
    expect(heading.textContent).toMatch(/^no robot here/)
  })

  it('welcome.ts greets whom the robot knows', async () => {
    const shown: string[] = []
    expect(await welcome((words) => shown.push(words))).toBeUndefined()
    expect(shown.splice(0)[0]).toMatch(/^no robot here/)
    const fake = fakeRobot()
    const remove = fake.install()
    const robot = await welcome((words) => shown.push(words))
    fake.emitRaw({ type: 'user.has.user', name: 'Ann' })
    await settled()
    expect(shown).toEqual(['Hello Ann', 'What can I do for you?'])
    robot?.close()
    remove()
  })

  it('messages.ts sends, listens and asks', async () => {
    const { fake, robot } = await connected()
    expect(await messages(robot)).toEqual(['status 2', 'IDLE', 'scanner.passport.finish'])
    fake.answer('printer.state')
    fake.answer('scanner.passport.request', ['scanner.passport.response', { success: false }])
    expect((await messages(robot)).slice(1)).toEqual(['no answer', 'scanner.passport.response'])
  })

  it('state.ts shows a banner while the robot is lost', async () => {
    const { fake, robot } = await connected()
    const banner = { hidden: true }
    let count = 0
    watch(robot, banner, () => {
      count += 1
    })
    fake.lose()
    expect(banner.hidden).toBe(false)
    fake.recover()
    await new Promise((resolve) => setTimeout(resolve, 300))
    expect([banner.hidden, count]).toEqual([true, 1])
    panorel.say(robot, 'Hi')
    robot.close()
  })
})
