import { type ErrorKind, PanorelError } from 'panorel-client'
import type { Key, Texts } from './texts/index.js'

type ProblemName<K> = K extends `problem.${infer Name}.advice` ? Name : never

/** What can go wrong; "problem.NAME" tells it, "problem.NAME.advice" what to do. */
export type Problem = ProblemName<keyof Texts>

export const problems = {
  printer: {
    'missing-device': 'printer.missing',
    'not-connected': 'printer.unplugged',
    'no-paper': 'printer.paper',
    'no-answer': 'printer.silent',
    timeout: 'printer.silent',
    disconnected: 'lost',
    otherwise: 'printer.failed',
  },
  dispenser: {
    'missing-device': 'dispenser.missing',
    'not-connected': 'dispenser.unplugged',
    'no-cards': 'dispenser.empty',
    timeout: 'dispenser.silent',
    disconnected: 'lost',
    otherwise: 'dispenser.failed',
  },
  scanner: {
    'not-started': 'scanner.closed',
    timeout: 'scanner.silent',
    disconnected: 'lost',
    otherwise: 'scanner.failed',
  },
  call: { disconnected: 'lost', otherwise: 'call.unreachable' },
  message: { disconnected: 'lost', otherwise: 'call.message' },
  operator: { disconnected: 'lost', otherwise: 'operator.noanswer' },
} as const

export type Device = keyof typeof problems

/** What an error of a device means to a visitor. */
export function problemOf(device: Device, error: unknown): Problem {
  const known: { readonly [K in ErrorKind | 'otherwise']?: Problem } & { otherwise: Problem } =
    problems[device]
  return (error instanceof PanorelError && known[error.kind]) || known.otherwise
}

export const titleOf = (problem: Problem): Key => `problem.${problem}`
export const adviceOf = (problem: Problem): Key => `problem.${problem}.advice`
