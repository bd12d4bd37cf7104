import { fileURLToPath } from 'node:url'
import ts from 'typescript'

const client = fileURLToPath(new URL('../..', import.meta.url))

/** What the compiler says of a file that is nowhere but here, as the tests are compiled or as a
 *  project elsewhere would be. */
export function faults(name: string, text: string, elsewhere?: ts.CompilerOptions): string[] {
  const config = ts.readConfigFile(`${client}/tsconfig.test.json`, ts.sys.readFile)
  const ours = ts.parseJsonConfigFileContent(config.config, ts.sys, client).options
  const options = elsewhere ?? Object.assign(ours, { noUnusedLocals: false })
  const host = ts.createCompilerHost(options)
  const { getSourceFile, fileExists } = host
  host.fileExists = (file) => file === name || fileExists(file)
  host.getSourceFile = (file, target, ...rest) =>
    file === name ? ts.createSourceFile(file, text, target) : getSourceFile(file, target, ...rest)
  return ts
    .getPreEmitDiagnostics(ts.createProgram([name], options, host))
    .map((fault) => ts.flattenDiagnosticMessageText(fault.messageText, '\n'))
}
