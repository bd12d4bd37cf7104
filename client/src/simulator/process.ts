import { type ChildProcess, spawn } from 'node:child_process'
import { rmSync } from 'node:fs'
import { SimulatorError } from './errors.js'

const KEPT_OUTPUT = 10000
const LAST_OUTPUT_TIME = 500

// Leaves a watcher behind and becomes the program. The watcher reads a pipe whose other end closes when
// Node ends, however that happens; then it ends the group, which is the program, all that it started
// and the watcher itself, and removes the folder.
const WATCHED = `
exec 3<&0
{
  trap '' TERM
  read -r _ <&3
  kill -TERM 0
  for _ in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do
    kill -0 $$ || break
    sleep 0.1
  done
  rm -rf "$0"
  kill -KILL 0
} < /dev/null > /dev/null 2>&1 &
exec "$@" < /dev/null 3<&-
`

/** A program that runs in a group of its own and ends with Node at the latest. */
export class Watched {
  private child: ChildProcess
  private output = ''
  private errors = ''
  private how = ''
  private readonly ended: Promise<void>
  private heard: (output: string) => void = () => {}

  /** @param folder what the program writes into; goes away with it. */
  constructor(
    private program: string,
    list: readonly string[],
    env: { [name: string]: string | undefined },
    private folder: string,
  ) {
    this.child = spawn('/bin/sh', ['-c', WATCHED, folder, program, ...list], {
      env,
      detached: true,
      stdio: ['pipe', 'pipe', 'pipe'],
    })
    const { child } = this
    // Node may end while the program runs.
    child.unref()
    for (const stream of child.stdio) (stream as { unref?(): void } | null)?.unref?.()
    child.stdout?.setEncoding('utf8').on('data', (text: string) => {
      this.output = (this.output + text).slice(-KEPT_OUTPUT)
      this.heard(this.output)
    })
    child.stderr?.setEncoding('utf8').on('data', (text: string) => {
      this.errors = (this.errors + text).slice(-KEPT_OUTPUT)
    })
    this.ended = new Promise((resolve) => {
      child.once('error', (error) => {
        this.end(error.message)
        resolve()
      })
      child.once('exit', (code, signal) => {
        this.end(signal ? `ended by ${signal}` : `ended with ${code}`)
        // Its last words may come later than its end.
        const enough = setTimeout(resolve, LAST_OUTPUT_TIME)
        child.once('close', () => {
          clearTimeout(enough)
          resolve()
        })
      })
    })
  }

  get hasEnded(): boolean {
    return this.how !== ''
  }

  /** Resolves when the program is gone. */
  whenEnded(): Promise<void> {
    return this.ended
  }

  /** How it ended, and its last words. */
  ending(): SimulatorError {
    return new SimulatorError('ended', `${this.program} ${this.how}${this.words()}`)
  }

  /** Resolves with what the first line of the output that fits holds in its group. */
  async line(pattern: RegExp, timeout: number): Promise<string> {
    let timer: NodeJS.Timeout | undefined
    const found = new Promise<string>((resolve, reject) => {
      this.heard = (output) => {
        const match = pattern.exec(output)
        if (match) resolve(match[1] ?? '')
      }
      this.ended.then(() => reject(this.ending()))
      timer = setTimeout(() => {
        const late = `${this.program} has not said where it serves within ${timeout} ms`
        reject(new SimulatorError('timeout', `${late}${this.words()}`))
      }, timeout)
    })
    try {
      return await found
    } finally {
      clearTimeout(timer)
      this.heard = () => {}
    }
  }

  /** Asks the program to end, and ends it @p grace milliseconds later. Resolves when it is gone. */
  async stop(grace: number): Promise<void> {
    this.child.kill('SIGTERM')
    const timer = setTimeout(() => this.killGroup(), grace)
    await this.ended
    clearTimeout(timer)
  }

  private end(how: string): void {
    this.how = how
    this.killGroup()
    rmSync(this.folder, { recursive: true, force: true, maxRetries: 5, retryDelay: 50 })
  }

  // The watcher keeps the group's number from being given to others.
  private killGroup(): void {
    const { pid } = this.child
    if (pid === undefined) return
    try {
      process.kill(-pid, 'SIGKILL')
    } catch {
      // Nobody is left.
    }
  }

  private words(): string {
    const said = this.errors.trim() || this.output.trim()
    return said ? `; it said:\n${said}` : ''
  }
}
