import { spawnSync } from 'node:child_process'
import { cpSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs'
import { fileURLToPath } from 'node:url'
import { afterEach, beforeEach, describe, expect, it } from 'vitest'

const root = fileURLToPath(new URL('../../', import.meta.url))
const hasPython = spawnSync('python3', ['--version']).status === 0
let tree: string

function run(command: string, at: string) {
  const script = `${root}scripts/client-types.py`
  return spawnSync('python3', [script, command, '--root', at], { encoding: 'utf8' })
}

function change(name: string, from: string, to: string) {
  const text = readFileSync(`${tree}/${name}`, 'utf8')
  expect(text).toContain(from)
  writeFileSync(`${tree}/${name}`, text.replace(from, to))
}

describe.skipIf(!hasPython)('client-types.py', () => {
  beforeEach(() => {
    tree = mkdtempSync(`${root}client/node_modules/tree-`)
    for (const name of [
      'protocol/topics.json',
      'client/src/topics.ts',
      'client/src/testing/examples.ts',
    ]) {
      cpSync(`${root}${name}`, `${tree}/${name}`)
    }
  })
  afterEach(() => rmSync(tree, { recursive: true, force: true }))

  it('finds the committed files as the contract says', () => {
    const { status, stdout, stderr } = run('check', root)
    expect([status, stdout, stderr]).toEqual([0, '', ''])
  })

  it('fails when a file or the contract was changed, and mends it', () => {
    change('client/src/topics.ts', 'language: string', 'language: number')
    const failed = run('check', tree)
    expect(failed.status).toBe(1)
    expect(failed.stdout).toContain('language: number')
    expect(failed.stderr).toContain('client-types.py write')
    expect(run('write', tree).status).toBe(0)
    expect(run('check', tree).status).toBe(0)

    change('protocol/topics.json', '"language"', '"tongue"')
    expect(run('check', tree).status).toBe(1)
  })

  it('fails when the examples were changed', () => {
    change('client/src/testing/examples.ts', 'Ann', 'Ben')
    expect(run('check', tree).status).toBe(1)
  })

  it('goes by the mark of interim replies, whatever their words', () => {
    change('protocol/topics.json', 'paper is low', 'there is little paper')
    expect(run('write', tree).status).toBe(0)
    const isInterim = "interim: 'printer.paper.low'"
    const types = () => readFileSync(`${tree}/client/src/topics.ts`, 'utf8')
    expect(types()).toContain('there is little paper')
    expect(types()).toContain(isInterim)

    const marked = '"when": "there is little paper",\n          "how": "synchronous"'
    change('protocol/topics.json', `${marked},\n          "interim": true`, marked)
    expect(run('check', tree).status).toBe(1)
    expect(run('write', tree).status).toBe(0)
    expect(types()).not.toContain(isInterim)
  })
})
