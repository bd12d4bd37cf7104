import { fileURLToPath } from 'node:url'
import { defineConfig } from 'vitest/config'

const source = (name: string) => fileURLToPath(new URL(`src/${name}`, import.meta.url))

export default defineConfig({
  resolve: {
    alias: [
      { find: /^panorel-client$/, replacement: source('index.ts') },
      { find: /^panorel-client\/testing$/, replacement: source('testing/index.ts') },
      {
        find: /^panorel-client\/testing\/simulator$/,
        replacement: source('simulator/index.ts'),
      },
    ],
  },
  // A callback that fails tells so on the console: a test that expects it takes it from there.
  test: {
    include: ['test/**/*.test.ts', 'examples/**/*.test.ts'],
    // Needs a simulator and a browser: vitest.pages.config.ts.
    exclude: ['test/pages/**'],
    restoreMocks: true,
    unstubGlobals: true,
    testTimeout: 20000,
    setupFiles: ['test/support/console.ts'],
  },
})
