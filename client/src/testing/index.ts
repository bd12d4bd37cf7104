export type { FakeReply } from './answers.js'
export { examples } from './examples.js'
export * from './fake.js'
