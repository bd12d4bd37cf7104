// npm run dev: a simulated robot and, in front of it, Vite's server, which shows each change at once.
import { startSimulator } from 'panorel-client/testing/simulator'
import { createServer } from 'vite'

const port = Number(process.env.PORT || 5173)
const origin = `http://localhost:${port}`
const hasDisplay = !!(process.env.DISPLAY || process.env.WAYLAND_DISPLAY)

const simulator = await startSimulator({
  page: '.',
  display: hasDisplay,
  allowOrigins: [origin],
})
const robot = new URL(simulator.url)

const server = await createServer({
  server: {
    host: 'localhost',
    port,
    strictPort: true,
    proxy: {
      '/qwebchannel.js': robot.origin,
      '/channel': { target: `ws://${robot.host}`, ws: true, changeOrigin: true },
    },
  },
})
await server.listen()
console.log(`The robot alone: ${simulator.url}`)
console.log(`The page with its robot: ${origin}/${robot.search}`)
