import { defineConfig, type Plugin } from 'vitest/config'

// A page from a file is not given modules, nor scripts that ask for an origin: the page is one classic
// script, and the site's changes come before it.
function classicPage(): Plugin {
  return {
    name: 'classic-page',
    enforce: 'post',
    transformIndexHtml: {
      order: 'post',
      handler(html, { server }) {
        const site = '<script src="./config.js"></script>\n    '
        if (server) return html.replace('<script type="module" src="/src', `${site}$&`)
        return html
          .replace(/<script type="module" crossorigin src="([^"]+)"><\/script>/, (_, source) => {
            return `${site}<script defer src="${source}"></script>`
          })
          .replace(/<link rel="stylesheet" crossorigin /, '<link rel="stylesheet" ')
      },
    },
  }
}

export default defineConfig({
  base: './',
  plugins: [classicPage()],
  build: {
    // The oldest web engine of a robot.
    target: 'chrome87',
    cssTarget: 'chrome87',
    modulePreload: false,
    cssCodeSplit: false,
    rollupOptions: {
      output: {
        format: 'iife',
        entryFileNames: 'reception.js',
        assetFileNames: 'reception[extname]',
      },
    },
  },
  server: {
    // The page is served here, the robot of a simulator there.
    proxy: {
      '/channel': { target: 'http://127.0.0.1:8080', ws: true },
      '/qwebchannel.js': 'http://127.0.0.1:8080',
    },
    fs: { allow: ['..'] },
  },
  test: {
    environment: 'happy-dom',
    include: ['test/**/*.test.ts'],
    // Needs a simulator and browsers: vitest.browser.config.ts.
    exclude: ['test/browser/**'],
    setupFiles: ['test/support/setup.ts'],
    restoreMocks: true,
    unstubGlobals: true,
    testTimeout: 20000,
  },
})
