import { existsSync, readdirSync, readFileSync } from 'node:fs'
import { fileURLToPath } from 'node:url'
import vm from 'node:vm'
import { gzipSync } from 'node:zlib'
import { parse } from 'acorn'
import { build } from 'esbuild'
import ts from 'typescript'
import { describe, expect, it } from 'vitest'
import * as source from '../src/index.js'
import * as runner from '../src/simulator/index.js'
import * as testing from '../src/testing/index.js'
import { faults } from './support/compiler.js'

const path = (name: string) => fileURLToPath(new URL(`../${name}`, import.meta.url))
const read = (name: string) => readFileSync(path(name), 'utf8')
// The compiler has other paths for what is built.
const load = (name: string) => import(/* @vite-ignore */ path(name)) as Promise<typeof source>
const scripts = readdirSync(path('dist')).filter((name) => /\.m?js$/.test(name))
// The runner of the simulator never comes into a page.
const forPages = scripts.filter((name) => name !== 'simulator.mjs')

describe('what is built', () => {
  it('is all there', () => {
    expect(scripts).toEqual(
      expect.arrayContaining(['panorel.min.js', 'panorel.mjs', 'simulator.mjs', 'testing.mjs']),
    )
    const exports = JSON.parse(read('package.json')).exports as { [name: string]: unknown }
    for (const [, file] of JSON.stringify(exports).matchAll(/"\.\/(dist\/[^"]*)"/g)) {
      expect(existsSync(path(file ?? '')), file).toBe(true)
    }
  })

  it('is less than 8 KB as a plain script', () => {
    const size = gzipSync(read('dist/panorel.min.js'), { level: 9 }).length
    expect(size).toBeLessThan(8 * 1024)
    expect(size).toBeGreaterThan(4 * 1024)
  })

  it.each(forPages)('%s is ES2017', (name) => {
    const sourceType = name.endsWith('.mjs') ? 'module' : 'script'
    expect(() => parse(read(`dist/${name}`), { ecmaVersion: 2017, sourceType })).not.toThrow()
  })

  it.each(forPages)('%s needs nothing of Node', (name) => {
    expect(read(`dist/${name}`)).not.toMatch(/from "[^.]|"node:|require\(/)
  })

  it('has a runner of the simulator that needs nothing but Node', () => {
    const from = [...read('dist/simulator.mjs').matchAll(/ from "([^"]*)"/g)].map(([, it]) => it)
    expect(from.length).toBeGreaterThan(3)
    expect(from.filter((name) => !name?.startsWith('node:'))).toEqual([])
  })

  it('is seen when it is not ES2017', () => {
    expect(() => parse('a?.b', { ecmaVersion: 2017 })).toThrow()
  })

  it('holds the same functions as the sources', async () => {
    const names = Object.keys(source).sort()
    expect(names.length).toBeGreaterThan(60)
    expect(Object.keys(await load('dist/panorel.mjs')).sort()).toEqual(names)
    expect(Object.keys(await load('dist/testing.mjs')).sort()).toEqual(Object.keys(testing).sort())
    expect(Object.keys(await load('dist/simulator.mjs')).sort()).toEqual(Object.keys(runner).sort())
    const page: { panorel?: object } = {}
    vm.runInNewContext(`${read('dist/panorel.min.js')}; this.panorel = panorel`, page)
    expect(Object.keys(page.panorel ?? {}).sort()).toEqual(names)
  })

  it('has one class of errors for pages and their tests', async () => {
    const client = await load('dist/panorel.mjs')
    const { fakeRobot } = (await load('dist/testing.mjs')) as unknown as typeof testing
    const fake = fakeRobot()
    fake.answer('printer.print', 'printer.nopaper')
    const error = await client.print(await fake.connect(), 'x').catch((reason) => reason)
    expect(error).toBeInstanceOf(client.PanorelError)
    const lost = await (await fake.connect())
      .request(
        'printer.print',
        {},
        {
          signal: AbortSignal.abort(),
        },
      )
      .catch((reason) => reason)
    expect(lost).toBeInstanceOf(client.PanorelError)
  })

  it.each([
    ['a bundler', ts.ModuleKind.ESNext, ts.ModuleResolutionKind.Bundler],
    ['Node', ts.ModuleKind.NodeNext, ts.ModuleResolutionKind.NodeNext],
  ])('has types for a project with %s', (_, module, moduleResolution) => {
    const options = {
      module,
      moduleResolution,
      strict: true,
      noEmit: true,
      types: [],
      target: ts.ScriptTarget.ES2017,
      lib: ['lib.es2017.d.ts', 'lib.dom.d.ts'],
    }
    const page = `
      import { connect, type Robot } from 'panorel-client'
      import { fakeRobot } from 'panorel-client/testing'
      import { type Simulator, startSimulator } from 'panorel-client/testing/simulator'
      export const robot: Promise<Robot> = connect({ open: fakeRobot().open })
      // @ts-expect-error no such topic
      robot.then((found) => found.send('system.language'))
      export const simulator: Promise<Simulator> = startSimulator({ page: 'dist' })
      // @ts-expect-error no such action
      simulator.then((found) => found.robot.dance())
    `
    expect(faults(path('consumer.mts'), page, options)).toEqual([])
  })

  it('leaves out what a page does not use', async () => {
    const bundle = async (code: string) => {
      const { outputFiles } = await build({
        stdin: { contents: code, resolveDir: path('dist') },
        bundle: true,
        format: 'esm',
        write: false,
        target: 'es2017',
        logLevel: 'error',
      })
      return outputFiles[0]?.text ?? ''
    }
    const one = await bundle("import { say } from './panorel.mjs'; say(self.robot, 'Hi')")
    expect(one).toContain('dialog.say')
    for (const other of ['mail.sender.request', 'WebSocket', 'setTimeout']) {
      expect(one).not.toContain(other)
    }
    expect(await bundle("import './panorel.mjs'")).not.toContain('dialog')
  })
})

describe('the package', () => {
  it('is the only thing that the template needs at run time', () => {
    expect(JSON.parse(read('template/package.json')).dependencies).toEqual({
      'panorel-client': 'file:..',
    })
  })

  it('needs nothing at run time', () => {
    const { dependencies, peerDependencies } = JSON.parse(read('package.json'))
    expect([dependencies, peerDependencies]).toEqual([undefined, undefined])
  })

  it.each(['', 'template/'])('%s names no address of a registry', (folder) => {
    const lock = read(`${folder}package-lock.json`)
    const resolved = [...lock.matchAll(/"resolved": "(.*)"/g)].map(([, address]) => address)
    // The template takes the client from the folder around it.
    expect(resolved).toEqual(folder ? ['file:..'] : [])
    const urls = [...lock.matchAll(/"([^"]*:\/\/[^"]*)"/g)].map(([, url]) => url ?? '')
    expect(urls.filter((url) => /npmjs|registry|\.tgz/.test(url))).toEqual([])
    expect(read(`${folder}.npmrc`)).toContain('omit-lockfile-registry-resolved=true')
    expect(read(`${folder}.npmrc`)).not.toContain('://')
  })
})
