#!/usr/bin/env node
// Stands for the simulator in the tests of its runner. FAKE_SIMULATOR says what it does.
import { spawn } from 'node:child_process'
import { writeFileSync } from 'node:fs'
import { createServer } from 'node:http'

const mode = process.env.FAKE_SIMULATOR ?? 'well'
const data = process.argv[process.argv.indexOf('--data') + 1]
const report = process.env.FAKE_SIMULATOR_REPORT

const asked = []
const server = createServer((request, response) => {
  const url = new URL(request.url, 'http://localhost')
  let body = ''
  request.on('data', (part) => {
    body += part
  })
  request.on('end', () => {
    const action = url.pathname.replace('/robot/', '')
    const answer = (status, value) => response.writeHead(status).end(JSON.stringify(value))
    if (url.searchParams.get('token') !== 'a+b/c') answer(403, { error: 'no token' })
    else if (action === 'asked') answer(200, asked)
    else if (action === 'state') response.writeHead(200).end('no JSON')
    else if (action === 'messages') answer(200, messages(Number(url.searchParams.get('since'))))
    else if (action === 'printer' && mode === 'dies') process.exit(7)
    else if (action === 'printer') answer(400, { error: '"paper" has to be more.' })
    else {
      asked.push([action, JSON.parse(body)])
      answer(200, action === 'enter' ? { id: 7, track: 1 } : {})
    }
  })
})

// A message more each time that somebody asks.
const topics = ['dialog.say', 'printer.print', 'dialog.say', 'user.lost.user', 'dialog.say']
let told = 0
function messages(since) {
  told = Math.min(told + 1, topics.length)
  const all = topics.slice(0, told).map((topic, number) => ({
    number,
    direction: 'from page',
    topic,
    attributes: { text: `text ${number}` },
  }))
  return { next: told, messages: all.slice(since) }
}

if (report) {
  const helper = spawn(process.execPath, ['-e', 'setInterval(() => {}, 1000)'], { stdio: 'ignore' })
  const told = { arguments: process.argv.slice(2), environment: process.env, data }
  writeFileSync(report, JSON.stringify({ ...told, pid: process.pid, helper: helper.pid }))
}
if (mode === 'deaf') process.on('SIGTERM', () => {})
if (mode === 'ends') {
  console.error('There is no page to read.')
  process.exit(1)
} else if (mode === 'garbage') {
  process.stdout.write(`${'Serving'.repeat(5000)}\nServing\n\0\xff\n`)
  setInterval(() => process.stdout.write('Serv'), 10)
} else if (mode === 'silent') {
  setInterval(() => {}, 1000)
} else if (mode === 'no address') {
  console.log('Serving nothing today')
  setInterval(() => {}, 1000)
} else {
  server.listen(0, '127.0.0.1', () => {
    const address = `http://127.0.0.1:${server.address().port}/?token=a%2Bb/c`
    // In two pieces, after something else.
    process.stdout.write(`Hello\nServing ${address.slice(0, 9)}`)
    setTimeout(() => process.stdout.write(`${address.slice(9)}\nBye\n`), 20)
  })
}
