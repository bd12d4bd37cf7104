import { connect, say } from 'panorel-client'
import { printBadge, runPage, type Screen } from './page.js'

const element = (id: string) => document.getElementById(id)!
const badge = element('badge')

const screen: Screen = {
  show(words) {
    element('words').textContent = words
  },
  offer(answers, chosen) {
    const buttons = answers.map((answer) => {
      const button = document.createElement('button')
      button.textContent = answer
      button.onclick = () => chosen(answer)
      return button
    })
    element('answers').replaceChildren(...buttons)
  },
  offerBadge(name) {
    badge.dataset.name = name
    badge.hidden = !name
  },
  setConnected(isConnected) {
    element('banner').hidden = isConnected
  },
}

function drawBadge(name: string): string {
  const canvas = document.createElement('canvas')
  canvas.width = 600
  canvas.height = 300
  const context = canvas.getContext('2d')!
  context.fillStyle = 'white'
  context.fillRect(0, 0, canvas.width, canvas.height)
  context.fillStyle = 'black'
  context.font = '60px sans-serif'
  context.textAlign = 'center'
  context.fillText(name, canvas.width / 2, canvas.height / 2, canvas.width - 40)
  return canvas.toDataURL()
}

connect().then(
  (robot) => {
    runPage(robot, screen)
    badge.onclick = async () => {
      const words = await printBadge(robot, drawBadge(badge.dataset.name ?? ''))
      screen.show(words)
      say(robot, words)
    }
  },
  (error) => {
    console.warn(error)
    screen.setConnected(false)
  },
)
