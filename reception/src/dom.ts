type Child = Node | string | undefined | false
type Attributes = { readonly [name: string]: string | number | boolean | undefined }

/**
 * An element with attributes and children. Texts become text nodes: what a robot says or a passport
 * holds is never HTML.
 */
export function el<K extends keyof HTMLElementTagNameMap>(
  tag: K,
  attributes: Attributes = {},
  ...children: Child[]
): HTMLElementTagNameMap[K] {
  const element = document.createElement(tag)
  write(element, attributes)
  append(element, children)
  return element
}

const SVG = 'http://www.w3.org/2000/svg'

/** An element of a drawing. */
export function svg(tag: string, attributes: Attributes, ...children: Child[]): SVGElement {
  const element = document.createElementNS(SVG, tag) as SVGElement
  write(element, attributes)
  append(element, children)
  return element
}

/** Puts these children in place of those that are there. */
export function fill(element: Element, ...children: Child[]): void {
  element.textContent = ''
  append(element, children)
}

function write(element: Element, attributes: Attributes): void {
  for (const [name, value] of Object.entries(attributes)) {
    if (value === undefined || value === false) continue
    element.setAttribute(name, value === true ? '' : String(value))
  }
}

function append(element: Element, children: readonly Child[]): void {
  for (const child of children) {
    if (child === undefined || child === false) continue
    element.appendChild(typeof child === 'string' ? document.createTextNode(child) : child)
  }
}
