import type { Plugin } from 'vite'
import { defineConfig } from 'vitest/config'

// A robot's screen loads the page from files, from where a browser takes no modules.
const classicScript: Plugin = {
  name: 'classic-script',
  apply: 'build',
  enforce: 'post',
  transformIndexHtml: (html) =>
    html.replace('<script type="module"', '<script defer').replace(/ crossorigin/g, ''),
}

export default defineConfig({
  base: './',
  build: {
    // The web engine of the oldest robots.
    target: 'chrome87',
    modulePreload: false,
    cssCodeSplit: false,
    rollupOptions: { output: { format: 'iife', inlineDynamicImports: true } },
  },
  plugins: [classicScript],
  test: { include: ['*.test.ts'] },
})
