/** Steps and answers that several tests share. */
import type { Page } from './page.js'

/** Times in which nobody is forgotten. */
export const quiet = { idleSeconds: 3600, busySeconds: 3600 }

export async function callFirst(page: Page): Promise<void> {
  await page.open('call')
  await page.press('call-person')
}

/** The ordinary call goes on. */
export const state = (page: Page, number: number): void =>
  page.fake.emit('sip.events', { event: 'public_call', state: number })

export async function driveFirst(page: Page): Promise<void> {
  page.fake.answer('system.drive.control')
  await page.open('way')
  await page.press('destination')
}

export const drive = (page: Page, status: number): void =>
  page.fake.emit('system.drive.status', { status })
