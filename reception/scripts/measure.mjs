// Runs in the page: what is too small, too close, cut off or out of sight on the screen that shows.
export function measure() {
  const LEAST = 64
  const GAP = 16
  const found = []
  const isShown = (element) => element.getClientRects().length > 0
  const nameOf = (element) => element.dataset.action || element.className || element.tagName
  const dialog = [...document.querySelectorAll('.veil')].pop()
  const scope = dialog || document.body

  const targets = [...scope.querySelectorAll('button, input')].filter(isShown)
  const boxes = targets.map((element) => element.getBoundingClientRect())
  targets.forEach((element, at) => {
    const box = boxes[at]
    const name = nameOf(element)
    if (box.height < LEAST - 0.5) found.push(`${name} is ${box.height.toFixed(1)} high`)
    if (box.width < LEAST - 0.5) found.push(`${name} is ${box.width.toFixed(1)} wide`)
    boxes.slice(at + 1).forEach((other, index) => {
      const next = targets[at + 1 + index]
      if (element.contains(next) || next.contains(element)) return
      const across = Math.max(other.left - box.right, box.left - other.right)
      const down = Math.max(other.top - box.bottom, box.top - other.bottom)
      const apart = Math.max(across, down)
      if (apart < GAP - 0.5) found.push(`${name} and ${nameOf(next)} are ${apart.toFixed(1)} apart`)
    })
  })

  const head = [...scope.querySelectorAll('.head button, .head-title, .step')].filter(isShown)
  head.forEach((element, at) => {
    const box = element.getBoundingClientRect()
    for (const next of head.slice(at + 1)) {
      const other = next.getBoundingClientRect()
      const across = Math.max(other.left - box.right, box.left - other.right)
      const down = Math.max(other.top - box.bottom, box.top - other.bottom)
      if (Math.max(across, down) < -0.5) found.push(`${nameOf(element)} lies on ${nameOf(next)}`)
    }
  })

  for (const element of scope.querySelectorAll('*')) {
    if (!isShown(element) || element.closest('svg') || element.matches('.unseen, input')) continue
    const box = element.getBoundingClientRect()
    if (element.closest('.notice')) continue
    if (box.left < -1 || box.right > window.innerWidth + 1) {
      found.push(`${nameOf(element)} goes out of the screen sideways`)
    }
    const style = getComputedStyle(element)
    const isCut = style.overflowX !== 'visible' && element.scrollWidth > element.clientWidth + 1
    if (isCut || (element.tagName === 'BUTTON' && element.scrollWidth > element.clientWidth + 1)) {
      found.push(`${nameOf(element)} is cut off sideways`)
    }
    // Lists may be longer than the screen; nothing else has to be scrolled.
    const mayScroll = element.matches('.people, .bubbles')
    if ((style.overflowY !== 'visible' || element.tagName === 'BUTTON') && !mayScroll) {
      if (element.scrollHeight > element.clientHeight + 1) {
        found.push(
          `${nameOf(element)} is cut off: ${element.scrollHeight} in ${element.clientHeight}`,
        )
      }
    }
  }
  return found
}
