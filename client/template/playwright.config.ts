import { existsSync } from 'node:fs'
import { defineConfig } from '@playwright/test'

// The desk's own browser; nothing is downloaded.
const places = ['/usr/bin/chromium', '/usr/bin/chromium-browser', '/usr/bin/google-chrome']
const executablePath = process.env.CHROMIUM || places.find((path) => existsSync(path))
if (!executablePath) throw new Error('no Chromium: install it, or name it with CHROMIUM')

export default defineConfig({
  testMatch: '*.spec.ts',
  fullyParallel: true,
  workers: 2,
  reporter: 'list',
  use: {
    launchOptions: {
      executablePath,
      // Chromium's sandbox refuses to run as root; then Playwright gives it --no-sandbox.
      chromiumSandbox: process.getuid?.() !== 0,
    },
  },
})
