import { spawn } from 'node:child_process'
import { existsSync, mkdirSync, symlinkSync, writeFileSync } from 'node:fs'
import { join } from 'node:path'
import { pathToFileURL } from 'node:url'
import { afterEach, describe, expect, it, onTestFinished } from 'vitest'
import { type Simulator, type SimulatorOptions, startSimulator } from '../../src/simulator/index.js'
import { fakeSimulator, ownFolder, runs, simulatorFailure, until } from '../support/simulators.js'

const folder = ownFolder()
const variables = { ...process.env }
const started: Simulator[] = []

afterEach(async () => {
  for (const simulator of started.splice(0)) await simulator.stop()
  for (const name of ['PATH', 'PANOREL_SIMULATOR', 'PULSE_SERVER', 'XDG_RUNTIME_DIR']) {
    if (variables[name] === undefined) delete process.env[name]
    else process.env[name] = variables[name]
  }
})

async function start(mode = 'well', options: SimulatorOptions = {}): Promise<Simulator> {
  const env = {
    FAKE_SIMULATOR: mode,
    FAKE_SIMULATOR_REPORT: join(folder.path, 'report'),
    ...options.env,
  }
  const simulator = await startSimulator({ simulator: fakeSimulator, ...options, env })
  started.push(simulator)
  return simulator
}

describe('the program', () => {
  it('is the one of the option', async () => {
    process.env.PANOREL_SIMULATOR = '/nowhere'
    expect((await start()).url).toMatch(/^http:\/\/127\.0\.0\.1:\d+\/\?token=a%2Bb\/c$/)
  })

  it('is the one of the environment', async () => {
    process.env.PANOREL_SIMULATOR = fakeSimulator
    process.env.PATH = `/nowhere:${process.env.PATH}`
    await start('well', { simulator: undefined })
  })

  it('is the first one on PATH', async () => {
    const [wrong, right] = [join(folder.path, 'wrong'), join(folder.path, 'right')]
    mkdirSync(wrong)
    mkdirSync(right)
    writeFileSync(join(wrong, 'panorel-simulator'), 'cannot be run')
    symlinkSync(fakeSimulator, join(right, 'panorel-simulator'))
    delete process.env.PANOREL_SIMULATOR
    process.env.PATH = `${wrong}:${right}:${process.env.PATH}`
    await start('well', { simulator: undefined })
  })

  it('is missed with the place that names it', async () => {
    const asked = simulatorFailure(startSimulator({ simulator: '/nowhere' }), 'not-found')
    expect(await asked).toBe('option "simulator" names "/nowhere", which is no program')
    process.env.PANOREL_SIMULATOR = folder.path
    expect(await simulatorFailure(startSimulator(), 'not-found')).toBe(
      `the environment variable PANOREL_SIMULATOR names "${folder.path}", which is no program`,
    )
    process.env.PANOREL_SIMULATOR = ''
    process.env.PATH = '/nowhere:/neither'
    expect(await simulatorFailure(startSimulator(), 'not-found')).toMatch(
      /option "simulator".*PANOREL_SIMULATOR.*PATH \(\/nowhere:\/neither\)$/,
    )
  })
})

describe('a start', () => {
  it('hands over what it was told', async () => {
    await start('well', {
      page: pathToFileURL('/a page/index.html'),
      scenario: 'robot.json',
      speed: 20,
      without: ['printer', 'users'],
      allowOrigins: ['http://localhost:1', 'http://localhost:2'],
      port: 8123,
    })
    const { arguments: list, data } = folder.report()
    expect(list).toEqual([
      ...['--serve', '--port', '8123', '--data', data, '--page', '/a page/index.html'],
      ...['--scenario', 'robot.json', '--speed', '20', '--without', 'printer,users'],
      ...['--allow-origin', 'http://localhost:1', '--allow-origin', 'http://localhost:2'],
    ])
  })

  it('takes any free port, a folder of its own, no display and no sound', async () => {
    delete process.env.PULSE_SERVER
    delete process.env.XDG_RUNTIME_DIR
    await start()
    const { arguments: list, data, environment } = folder.report()
    expect(list).toEqual(['--serve', '--port', '0', '--data', data])
    expect(data.startsWith(join(folder.path, 'panorel-simulator-'))).toBe(true)
    const own = data.replace(/\/data$/, '')
    expect(environment).toMatchObject({
      QT_QPA_PLATFORM: 'offscreen',
      QT_QUICK_BACKEND: 'software',
      QTWEBENGINE_CHROMIUM_FLAGS: '--disable-gpu',
      PULSE_SERVER: `unix:${own}/no-sound`,
      XDG_RUNTIME_DIR: `${own}/run`,
      XDG_CACHE_HOME: `${own}/cache`,
    })
    expect(environment.QTWEBENGINE_DISABLE_SANDBOX).toBe(process.getuid?.() ? undefined : '1')
  })

  it('keeps what the environment has, and what the option says', async () => {
    process.env.PULSE_SERVER = 'unix:/my/sound'
    process.env.XDG_RUNTIME_DIR = folder.path
    await start('well', { display: true, env: { QT_QPA_PLATFORM: 'xcb' } })
    expect(folder.report().environment).toMatchObject({
      PULSE_SERVER: 'unix:/my/sound',
      XDG_RUNTIME_DIR: folder.path,
      QT_QPA_PLATFORM: 'xcb',
    })
  })

  it("shows the page on the robot's screen, too, with a port for tools", async () => {
    await start('well', { screenPort: 9222 })
    const { arguments: list, environment } = folder.report()
    expect(list).toContain('--window')
    expect(environment.QTWEBENGINE_REMOTE_DEBUGGING).toBe('127.0.0.1:9222')
  })

  it('tells why the program ended', async () => {
    const why = await simulatorFailure(start('ends'), 'ended')
    expect(why).toBe(`${fakeSimulator} ended with 1; it said:\nThere is no page to read.`)
  })

  it('tells that the program cannot be run', async () => {
    const program = join(folder.path, 'program')
    writeFileSync(program, '#!/nowhere\n', { mode: 0o755 })
    const why = await simulatorFailure(startSimulator({ simulator: program }), 'ended')
    expect(why).toMatch(/ended with 12\d; it said:\n.*program/)
  })

  it.each(['silent', 'garbage'])('ends a program that is %s', async (mode) => {
    const why = await simulatorFailure(start(mode, { timeout: 2000 }), 'timeout')
    expect(why).toContain('has not said where it serves within 2000 ms')
    expect(why.includes('it said:\n')).toBe(mode === 'garbage')
    expect(runs(folder.report().pid)).toBe(false)
  })

  it('ends a program that serves nowhere', async () => {
    const why = await simulatorFailure(start('no address'), 'refused')
    expect(why).toBe('the simulator serves at "nothing today", which is no address')
    expect(runs(folder.report().pid)).toBe(false)
  })
})

describe('an end', () => {
  it('takes the program, what it started and its folder', async () => {
    const simulator = await start()
    const { pid, helper, data } = folder.report()
    expect([pid, helper].map(runs)).toEqual([true, true])
    await simulator.stop()
    expect(runs(pid)).toBe(false)
    await until(() => !runs(helper))
    expect(runs(helper)).toBe(false)
    expect(existsSync(join(data, '..'))).toBe(false)
    await simulator.stop()
    expect(await simulatorFailure(simulator.robot.leave(), 'ended')).toContain('SIGTERM')
  })

  it('comes also when the program does not listen', async () => {
    const simulator = await start('deaf')
    const begin = Date.now()
    await simulator.stop()
    expect(Date.now() - begin).toBeGreaterThan(4000)
    expect(runs(folder.report().pid)).toBe(false)
  })

  it('comes at the end of a block', async () => {
    {
      await using simulator = await start()
      await simulator.robot.enter()
    }
    expect(runs(folder.report().pid)).toBe(false)
  })

  it('that comes by itself is told', async () => {
    const simulator = await start('dies')
    const why = await simulatorFailure(simulator.robot.printer({ paper: 1 }), 'ended')
    expect(why).toContain('ended with 7')
    await simulator.stop()
  })

  it('that others bring is told', async () => {
    const simulator = await start()
    process.kill(folder.report().pid, 'SIGKILL')
    await until(() => !runs(folder.report().pid))
    expect(await simulatorFailure(simulator.robot.state(), 'ended')).toContain('SIGKILL')
  })

  const script = `
    import { startSimulator } from ${JSON.stringify(new URL('../../dist/simulator.mjs', import.meta.url).href)}
    const simulator = await startSimulator()
    process.stdout.write('ready')
  `
  it.each([
    ['has nothing more to do', '', undefined],
    ['exits', 'process.exit(3)', undefined],
    ['throws', "throw new Error('x')", undefined],
    ['is killed', 'setInterval(() => {}, 1000)', 'SIGKILL'],
  ] as const)('comes when Node %s', async (_, rest, signal) => {
    const node = spawn(process.execPath, ['--input-type=module', '-e', script + rest], {
      stdio: ['ignore', 'pipe', 'ignore'],
      env: {
        ...process.env,
        PANOREL_SIMULATOR: fakeSimulator,
        FAKE_SIMULATOR_REPORT: join(folder.path, 'report'),
      },
    })
    onTestFinished(() => void node.kill('SIGKILL'))
    const ended = new Promise((resolve) => node.once('exit', resolve))
    await new Promise((resolve) => node.stdout.once('data', resolve))
    if (signal) node.kill(signal)
    await ended
    const { pid, helper } = folder.report()
    await until(() => !runs(pid) && !runs(helper))
    const left = [pid, helper].filter(runs)
    for (const one of left) process.kill(one, 'SIGKILL')
    expect(left).toEqual([])
  })
})

describe('the robot', () => {
  it('is asked for what the functions say', async () => {
    const { robot, url } = await start()
    expect(await robot.enter({ name: 'Ada' })).toEqual({ id: 7, track: 1 })
    await robot.leave({ track: 1 })
    await robot.hear('Hello', { final: false })
    await robot.ask({ text: 'Tea?', answers: ['yes'] })
    await robot.ask()
    await robot.passportScanner({ present: false })
    await robot.tell('user.lost.user')
    await robot.tell('system.custom.event.core', { a: [1] })
    const asked = await (await fetch(url.replace('/?', '/robot/asked?'))).json()
    expect(asked).toEqual([
      ['enter', { name: 'Ada' }],
      ['leave', { track: 1 }],
      ['hear', { text: 'Hello', final: false }],
      ['ask', { text: 'Tea?', answers: ['yes'] }],
      ['ask', {}],
      ['passport-scanner', { present: false }],
      ['tell', { topic: 'user.lost.user', attributes: {} }],
      ['tell', { topic: 'system.custom.event.core', attributes: { a: [1] } }],
    ])
  })

  it('says why it refuses', async () => {
    const { robot } = await start()
    const why = await simulatorFailure(robot.printer({ paper: -1 }), 'refused')
    expect(why).toBe('printer: "paper" has to be more.')
    expect(await simulatorFailure(robot.state(), 'refused')).toBe('state: status 200')
  })

  it('gives each message once, whenever it came', async () => {
    const { robot } = await start()
    const numberOf = async (message: Promise<{ number: number }>) => (await message).number
    expect(await numberOf(robot.waitForMessage('printer.print'))).toBe(1)
    expect(await numberOf(robot.waitForMessage('dialog.say'))).toBe(0)
    const last = robot.waitForMessage('dialog.say', { where: ({ text }) => text === 'text 4' })
    expect(await numberOf(last)).toBe(4)
    expect((await robot.messages(3)).messages.map(({ topic }) => topic)).toEqual([
      'user.lost.user',
      'dialog.say',
    ])
    const none = robot.waitForMessage('printer.print', { timeout: 100 })
    expect(await simulatorFailure(none, 'timeout')).toBe(
      'no printer.print came within 100 ms, but dialog.say, user.lost.user',
    )
  })

  it('gives two that wait at once two messages', async () => {
    const { robot } = await start()
    const both = [robot.waitForMessage('dialog.say'), robot.waitForMessage('dialog.say')]
    expect((await Promise.all(both)).map(({ number }) => number).sort()).toEqual([0, 2])
  })
})
