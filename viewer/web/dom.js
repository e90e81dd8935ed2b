// Elements. Texts of recordings only ever become text nodes.

export function make(tag, attributes, ...inside) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes ?? {})) element.setAttribute(name, value);
    element.append(...inside);
    return element;
}

export const find = selector => document.querySelector(selector);
