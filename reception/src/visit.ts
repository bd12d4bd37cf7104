import type { Person } from './config.js'
import { type Call, createCall } from './flows/call.js'
import { type Card, createCard } from './flows/card.js'
import type { Guide } from './flows/guide.js'
import { createOperator, type Operator } from './flows/operator.js'
import { createPassport, type Passport } from './flows/passport.js'
import { createPrinting, type Printing } from './flows/printing.js'
import type { Tools } from './flows/tools.js'
import { createWay, type Way } from './flows/way.js'

/** All that the page knows of one visitor. It is thrown away as a whole when the visitor leaves. */
export interface Visit {
  /** The person whom the robot recognised. */
  user: { readonly id: number; readonly name: string } | undefined
  /** What the visitor entered, or a passport said. */
  name: string
  company: string
  picture: HTMLCanvasElement | undefined
  host: Person | undefined
  guide: Guide | undefined
  readonly passport: Passport
  readonly printing: Printing
  readonly card: Card
  readonly call: Call
  readonly way: Way
  readonly operator: Operator
  end(): void
}

export function createVisit(tools: Tools): Visit {
  const visit: Visit = {
    user: undefined,
    name: '',
    company: '',
    picture: undefined,
    host: undefined,
    guide: undefined,
    passport: createPassport(tools),
    printing: createPrinting(tools),
    card: createCard(tools),
    call: createCall(tools),
    way: createWay(tools),
    operator: createOperator(tools),
    end() {
      for (const flow of [
        visit.passport,
        visit.printing,
        visit.card,
        visit.call,
        visit.way,
        visit.operator,
      ]) {
        flow.cancel()
      }
    },
  }
  return visit
}
