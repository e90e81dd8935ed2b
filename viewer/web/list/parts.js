// The views of items that the module hands over, as elements.

import {make} from '../dom.js';

const octetsOf = digits => digits.toUpperCase().match(/../g) ?? [];
const row = (cells, attributes) => make('tr', attributes, ...cells);
const cell = (text, attributes) => make('td', attributes, text);

const rowsOf = (cells, count, absent) =>
    Array.from({length: Math.ceil(cells.length / count)}, (_, row) =>
        Array.from({length: count}, (_, i) => cells[row * count + i] ?? absent)
    );

export function hexTable(digits) {
    const head = row([make('th', {colspan: 8}, 'Octet 1'), make('th', {colspan: 8, class: 'last'}, 'Octet 16')]);
    const rows = rowsOf(octetsOf(digits), 16, '--').map(octets => row(octets.map(octet => cell(octet))));
    return make('table', {class: 'hex_table'}, head, ...rows);
}

export function bitTable(digits) {
    const bits = octet => (octet === '--' ? '-'.repeat(8) : parseInt(octet, 16).toString(2).padStart(8, '0'));
    const rows = rowsOf(octetsOf(digits), 4, '--').flatMap((octets, number) => [
        row(
            octets.map((octet, i) => make('th', {colspan: 8}, `Octet ${number * 4 + i + 1} - ${octet}`)),
            {class: 'caption_row'}
        ),
        row(
            octets.flatMap(octet => [...bits(octet)].map(bit => cell(bit))),
            {class: 'data_row'}
        )
    ]);
    return make('table', {class: 'bin_table'}, ...rows);
}

// Maps are the only addresses that there are; any other is text.
function link({link: title, url}) {
    if (!/^https:\/\//.test(url)) return title;
    return make('a', {href: url, rel: 'noopener'}, title);
}

function piece(of) {
    if (typeof of === 'string') return of;
    return 'strong' in of ? make('b', {}, of.strong) : link(of);
}

export function table(head, rows, attributes = {class: 'detail_table'}) {
    return make(
        'table',
        attributes,
        row(head.map(title => make('th', {scope: 'col'}, piece(title)))),
        ...rows.map((cells, i) =>
            row(
                cells.map(of => cell(piece(of))),
                i % 2 ? {class: 'even_row'} : {}
            )
        )
    );
}

function part(of) {
    if (of.title) return make('h5', {}, ...of.title.map(piece));
    if (of.paragraph) return make('p', {}, ...of.paragraph.map(piece));
    if (of.bits) return bitTable(of.bits);
    return of.table ? table(of.table, of.rows) : '';
}

const parts = detail => (detail ?? []).map(part);

// All that is inside an item.
export const itemParts = ({detail, octets}) => [
    ...parts(detail),
    make('h5', {}, 'Octets'),
    hexTable(octets),
    bitTable(octets)
];
