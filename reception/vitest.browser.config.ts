import { defineConfig } from 'vitest/config'

// What needs a simulator and browsers: scripts/test-pages.sh.
export default defineConfig({
  test: {
    include: ['test/browser/**/*.test.ts'],
    // All robots print by the same file.
    fileParallelism: false,
    testTimeout: 30000,
  },
})
