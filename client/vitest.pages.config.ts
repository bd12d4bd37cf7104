import { defineConfig } from 'vitest/config'
import config from './vitest.config.js'

// What needs a simulator and a browser: scripts/test-pages.sh.
export default defineConfig({
  ...config,
  test: { ...config.test, include: ['test/pages/**/*.test.ts'], exclude: [] },
})
