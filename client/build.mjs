// Builds dist/: an ES module, the same for tests of pages, a plain script, the simulator's runner, and
// the types.
import { execFileSync } from 'node:child_process'
import { rmSync } from 'node:fs'
import { createRequire } from 'node:module'
import { build } from 'esbuild'

// What the oldest web engine of a robot runs.
const common = { bundle: true, target: 'es2017', charset: 'utf8', logLevel: 'warning' }

rmSync('dist', { recursive: true, force: true })
await build({
  ...common,
  entryPoints: { panorel: 'src/index.ts', testing: 'src/testing/index.ts' },
  format: 'esm',
  // An error of the one has to be the other's, too.
  splitting: true,
  chunkNames: 'shared-[hash]',
  outExtension: { '.js': '.mjs' },
  outdir: 'dist',
})
await build({
  ...common,
  entryPoints: ['src/index.ts'],
  format: 'iife',
  globalName: 'panorel',
  minify: true,
  outfile: 'dist/panorel.min.js',
})
// Runs in Node, never in a page.
await build({
  ...common,
  entryPoints: ['src/simulator/index.ts'],
  format: 'esm',
  platform: 'node',
  target: 'node18',
  outfile: 'dist/simulator.mjs',
})
const tsc = createRequire(import.meta.url).resolve('typescript/bin/tsc')
for (const project of ['tsconfig.json', 'tsconfig.simulator.json']) {
  const options = ['--declaration', '--emitDeclarationOnly', '-p', project]
  execFileSync(process.execPath, [tsc, ...options], { stdio: 'inherit' })
}
