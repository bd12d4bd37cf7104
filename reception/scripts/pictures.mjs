// Takes a picture of every screen in four sizes and four languages, and looks for what does not fit.
// Usage: npm run pictures -- FOLDER [--only NAME,...] [--sizes 1280x800,...] [--languages en,...]
import { mkdirSync, rmSync } from 'node:fs'
import { join, resolve } from 'node:path'
import { fileURLToPath, pathToFileURL } from 'node:url'
import { chromium } from 'playwright-core'
import { build } from 'vite'
import { measure } from './measure.mjs'

const root = fileURLToPath(new URL('..', import.meta.url))
const option = (name, otherwise) => {
  const at = process.argv.indexOf(`--${name}`)
  return at < 0 ? otherwise : process.argv[at + 1].split(',')
}
const folder = process.argv[2] && !process.argv[2].startsWith('--') && resolve(process.argv[2])
const sizes = option('sizes', ['1280x800', '1080x1920', '800x1280', '1920x1080', '800x800'])
const languages = option('languages', ['en', 'es', 'zh', 'ar'])
const only = option('only')

const out = join(root, 'node_modules/.cache/pictures')
rmSync(out, { recursive: true, force: true })
await build({
  root: join(root, 'pictures'),
  configFile: join(root, 'vite.config.ts'),
  publicDir: false,
  logLevel: 'warn',
  build: { outDir: out, emptyOutDir: true },
})

const browser = await chromium.launch({
  executablePath: process.env.CHROMIUM || '/usr/bin/chromium',
  args: [
    ...(process.getuid() === 0 ? ['--no-sandbox'] : []),
    '--allow-file-access-from-files',
    '--use-fake-device-for-media-stream',
    '--use-fake-ui-for-media-stream',
  ],
})
const problems = []
try {
  for (const size of sizes) {
    const [width, height] = size.split('x').map(Number)
    const page = await browser.newPage({ viewport: { width, height } })
    page.on('pageerror', (error) => problems.push(`${size}: ${error.message}`))
    page.on('request', (request) => {
      if (!/^(file|data|blob):/.test(request.url())) problems.push(`asks for ${request.url()}`)
    })
    await page.emulateMedia({ reducedMotion: 'reduce' })
    await page.goto(pathToFileURL(join(out, 'index.html')).href)
    const names = only || (await page.evaluate(() => window.stage.names))
    for (const language of languages) {
      for (const name of names) {
        await page.evaluate(([scene, chosen]) => window.stage.play(scene, chosen), [name, language])
        for (const problem of await page.evaluate(measure)) {
          problems.push(`${name} ${size} ${language}: ${problem}`)
        }
        if (!folder) continue
        mkdirSync(join(folder, size), { recursive: true })
        await page.screenshot({ path: join(folder, size, `${name}-${language}.png`) })
      }
    }
    await page.close()
  }
} finally {
  await browser.close()
}
console.log(problems.length ? [...new Set(problems)].join('\n') : 'Everything fits.')
process.exitCode = problems.length ? 1 : 0
