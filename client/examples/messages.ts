import type { Robot } from 'panorel-client'

/** What the helpers are made of. */
export async function messages(robot: Robot): Promise<string[]> {
  const lines: string[] = []
  // A message to the robot, and what it tells.
  robot.send('system.drive.control', { drive_point: 3 })
  const stop = robot.on('system.drive.status', ({ status }) => lines.push(`status ${status}`))

  // A message with an answer.
  const answer = await robot.request('printer.state', {}, { timeout: 2000 })
  if (answer.topic === 'none') lines.push('no answer')
  else if (answer.attributes.error_message) lines.push(answer.attributes.error_message)
  else lines.push(answer.attributes.state)

  // More than the first answer: `until` says which one ends it.
  const scan = await robot.request(
    'scanner.passport.request',
    { timeout: 15 },
    {
      until: ({ topic, attributes }) =>
        topic === 'scanner.passport.response'
          ? !attributes.success
          : topic !== 'scanner.passport.state',
    },
  )
  lines.push(scan.topic)
  stop()
  return lines
}
