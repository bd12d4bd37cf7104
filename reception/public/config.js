/*
 * What this site changes. Everything may be left out; the defaults are in src/config.ts of the page's
 * sources, and docs/reception.md describes each value. Mistakes are told on the console.
 */
window.reception = {
  // company: 'My Company',
  // language: 'en',
  // people: [{ name: 'Ann Example', department: 'Sales', number: '100', point: 2 }],
  // idleSeconds: 60,
}
