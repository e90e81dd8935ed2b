'use strict';

// Values as texts. Columns hold one more than a value, and 0 for none.

const digits = (number, count, base = 10) => number.toString(base).toUpperCase().padStart(count, '0');

function clockText(seconds, fraction = 3) {
    const day = 86400;
    const unit = 10 ** fraction;
    const units = Math.floor((seconds % day + day) % day * unit + 1e-6) % (day * unit);
    const whole = Math.floor(units / unit);
    const text = [whole / 3600, whole / 60 % 60, whole % 60].map(part => digits(Math.floor(part), 2)).join(':');
    return fraction === 0 ? text : `${text}.${digits(units % unit, fraction)}`;
}

const codeText = code => digits(code - 1, 4, 8);
const addressText = address => digits(address - 1, 6, 16);
const trackText = track => `#${track - 1}`;
const levelText = level => {
    const hundreds = (level - 32769) / 4;
    return `FL${hundreds < 0 ? '-' : ''}${digits(Math.round(Math.abs(hundreds)), 3)}`;
};

const HAS_SOURCE = 1 << 24;
const categoryText = word => digits(word >> 16 & 0xFF, 3);
const sacSicText = word => word & HAS_SOURCE ? `${digits(word >> 8 & 0xFF, 3)}/${digits(word & 0xFF, 3)}` : '';
const sourceText = word => `${categoryText(word)} ${sacSicText(word)}`.trim();

const degreesText = (degrees, [positive, negative]) =>
    `${Math.abs(degrees).toFixed(4)}° ${degrees < 0 ? negative : positive}`;
const placeText = ([latitude, longitude]) =>
    `${degreesText(latitude, 'NS')} ${degreesText(longitude, 'EW')}`;

const countText = (count, noun) => `${count.toLocaleString('en')} ${noun}${count === 1 ? '' : 's'}`;

// An element with attributes, texts and other elements in it.
function make(tag, attributes, ...inside) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes ?? {})) element.setAttribute(name, value);
    element.append(...inside);
    return element;
}
