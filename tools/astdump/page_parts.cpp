#include "page_parts.hpp"

namespace astdump {

namespace {

// The policy lets nothing be loaded and no script run but the one below, which it knows by its SHA-256.
constexpr char kStart[] = R"html(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="referrer" content="no-referrer">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src 'sha256-2l4C1EpyaKs2XD7NPU9HnlksPGZ0cBZaXQmy+2ooho8='">
<base target="_blank">
<title>ASTERIX recording</title>
)html";

constexpr char kStyle[] = R"css(
:root { color-scheme: light dark; --text: #1c2430; --muted: #667085; --page: #f6f7f9; --card: #fff; --line: #dfe3e8;
    --stripe: #f3f5f8; --head: #eaeef3; --accent: #175cd3; --fault: #b42318; }
@media (prefers-color-scheme: dark) {
    :root { --text: #e4e8ee; --muted: #98a2b3; --page: #12161c; --card: #1a2029; --line: #2e3743; --stripe: #202732;
        --head: #28313d; --accent: #84adff; --fault: #fda29b; }
}
* { box-sizing: border-box; }
body { display: flex; flex-direction: column; max-width: 1200px; margin: 0 auto; padding: 24px; gap: 24px;
    background: var(--page); color: var(--text); font: 14px/1.5 system-ui, sans-serif; }
header { order: -1; overflow-x: auto; } /* written last, shown first */
h1 { margin: 0 0 12px; font-size: 22px; }
h2 { margin: 0 0 8px; font: 600 15px/1.5 ui-monospace, monospace; overflow-wrap: anywhere; }
.section ~ h2 { margin-top: 24px; }
h3 { margin: 20px 0 8px; font-size: 14px; }
h3:first-child { margin-top: 12px; }
h4 { margin: 12px 0 4px; font-size: 13px; color: var(--muted); }
p:empty, br { display: none; }
small { color: var(--muted); font-weight: normal; font-size: 13px; }
summary { cursor: pointer; }
summary:focus-visible { outline: 2px solid var(--accent); outline-offset: -2px; }
.fault { color: var(--fault); font-weight: 600; }

.section > summary { padding: 6px 4px; font-weight: 600; }
.section > summary > span { margin-left: 16px; color: var(--muted); font-weight: normal; }
.block { background: var(--card); border: 1px solid var(--line); border-top-width: 0; content-visibility: auto;
    contain-intrinsic-size: auto 36px; }
.block:first-child { border-top-width: 1px; border-radius: 6px 6px 0 0; }
.block > summary { padding: 6px 12px; font-variant-numeric: tabular-nums; white-space: nowrap; overflow: hidden;
    text-overflow: ellipsis; }
.block > summary:hover, .item > summary:hover { background: var(--stripe); }
.block > summary > span { display: inline-block; margin-left: 16px; color: var(--muted); }
.block > summary > .number { min-width: 52px; margin-left: 4px; text-align: right; }
.block > summary > .category { color: var(--accent); font-weight: 600; }
.block > summary > .time { color: var(--text); }
.block > summary > .counts { min-width: 150px; color: var(--text); }
.block > summary > .profile { min-width: 80px; }
.block > summary > .fault, .section > summary > .fault { color: var(--fault); }
.block[open] > summary { border-bottom: 1px solid var(--line); }
.block > div { padding: 0 16px 16px 36px; overflow-x: auto; }

table { border-collapse: collapse; font-size: 13px; font-variant-numeric: tabular-nums; }
th, td { padding: 2px 10px; border: 1px solid var(--line); text-align: left; }
th { background: var(--head); font-weight: 600; }
.even_row { background: var(--stripe); }
.item > div > h4:first-child { margin-top: 4px; }
.detail_table { margin-bottom: 12px; }
.totals { background: var(--card); }
.totals th, .totals td { padding: 3px 14px; }
.totals td, .totals th + th { text-align: right; }
.totals tr:last-child > * { border-top: 2px solid var(--line); font-weight: 600; }
.hex_table, .bin_table { margin-bottom: 12px; font-family: ui-monospace, monospace; font-size: 12px; }
.hex_table td, .bin_table td { padding: 1px 4px; text-align: center; }
.hex_table th, .caption_row th { padding: 1px 6px; font-weight: normal; color: var(--muted); }
.hex_table th[align=right] { text-align: right; }
.caption_row th, .data_row td:nth-child(8n) { border-right: 2px solid var(--muted); }
.item { border-top: 1px solid var(--line); }
.item > summary { padding: 3px 4px; }
.item > summary b { display: inline-block; min-width: 76px; color: var(--accent); font-weight: 600; }
.item > div { padding: 4px 4px 8px 24px; overflow-x: auto; }
a { color: var(--accent); }
)css";

constexpr char kScript[] = R"js(
'use strict';

async function unpack(text) {
    const octets = Uint8Array.from(atob(text), character => character.charCodeAt(0));
    const stream = new Response(octets).body.pipeThrough(new DecompressionStream('deflate'));
    return new Response(stream).text();
}

// The lines of a section by what they begin with. Items are numbered; records hold the items themselves.
function readSection(text) {
    const types = [], shapes = [], items = [], blocks = [];
    let next = 0;
    const take = {
        T: (id, name) => types.push({id, name}),
        S: pieces => shapes.push(pieces.split('\x01')),
        D: (type, octets, summary, shape, changes) =>
            items.push({type: types[type], octets, summary, shape: shapes[shape], changes}),
        B: line => blocks.push({line, records: []}),
        R: (line, numbers) => blocks.at(-1).records.push({
            line,
            items: numbers === '-' ? [] : numbers.split(',').map(number => items[number === '' ? next++ : number]),
        }),
        F: line => { blocks.at(-1).fault = line; },
    };
    for (const line of text.split('\n').slice(0, -1)) {
        const [kind, ...fields] = line.split('\t');
        take[kind](...fields);
    }
    return blocks;
}

// Texts stand at the odd places of a shape.
function detail({shape, changes}) {
    if (!shape) return '';
    const pieces = [...shape];
    for (const change of changes ? changes.split('\x01') : []) {
        const [place, text] = change.split('\x02');
        pieces[2 * place + 1] = text;
    }
    return pieces.join('');
}

const rowsOf = (cells, count, absent) =>
    Array.from({length: Math.ceil(cells.length / count)}, (_, row) =>
        Array.from({length: count}, (_, i) => cells[row * count + i] ?? absent));

function hexTable(octets) {
    const rows = rowsOf(octets, 16, '--').map(row => `<tr><td>${row.join('</td><td>')}</td></tr>`);
    return '<table class="hex_table"><tr><th colspan=8 align="left">Octet 1</th>' +
        `<th colspan=8 align="right">Octet 16</th></tr>${rows.join('')}</table>`;
}

function bitTable(octets) {
    const bits = octet => octet === '--' ? '-'.repeat(8) : parseInt(octet, 16).toString(2).padStart(8, '0');
    const rows = rowsOf(octets, 4, '--').map((row, number) =>
        '<tr class="caption_row">' +
        row.map((octet, i) => `<th colspan=8>Octet ${number * 4 + i + 1} - ${octet}</th>`).join('') +
        `</tr><tr class="data_row"><td>${row.flatMap(octet => [...bits(octet)]).join('</td><td>')}</td></tr>`);
    return `<table class="bin_table">${rows.join('')}</table>`;
}

function itemHtml(item) {
    const octets = item.octets.toUpperCase().match(/../g) ?? [];
    return `<details class="item"><summary><b>${item.type.id}</b> ${item.type.name}</summary><div>${detail(item)}` +
        `<h4>Octets</h4>${hexTable(octets)}${bitTable(octets)}</div></details>`;
}

function recordHtml({line, items}) {
    const rows = items.map((item, i) =>
        `<tr${i % 2 ? ' class="even_row"' : ''}><td>${item.type.id}</td><td>${item.type.name}</td>` +
        `<td>${item.octets.length / 2}</td><td>${item.summary}</td></tr>`);
    return `<h3>${line}</h3><table class="detail_table"><tr><th>Dataitem</th><th>Name</th><th>Size</th>` +
        `<th>Summary</th></tr>${rows.join('')}</table>${items.map(itemHtml).join('')}`;
}

const closed = new WeakMap(); // what is in blocks that have not been opened

async function openSection(section) {
    const packed = section.dataset.packed;
    delete section.dataset.packed;
    const inside = document.createElement('div');
    for (const block of readSection(await unpack(packed))) {
        const element = document.createElement('details');
        element.className = 'block';
        element.innerHTML = `<summary>${block.line}</summary>`;
        closed.set(element, block);
        inside.append(element);
    }
    section.append(inside);
}

function openBlock(element) {
    const block = closed.get(element);
    closed.delete(element);
    const inside = document.createElement('div');
    inside.innerHTML = block.records.map(recordHtml).join('') +
        (block.fault ? `<p class="fault">${block.fault}</p>` : '');
    for (const link of inside.querySelectorAll('a')) link.rel = 'noopener';
    element.append(inside);
}

document.addEventListener('toggle', event => {
    const element = event.target;
    if (element.dataset.packed !== undefined) openSection(element);
    if (closed.has(element)) openBlock(element);
}, true);
document.addEventListener('DOMContentLoaded', () => {
    const first = document.querySelector('.section');
    if (first) first.open = true;
});
)js";

} // namespace

std::string page_head() {
    return std::string(kStart) + "<style>" + kStyle + "</style>\n<script>" + kScript +
           "</script>\n</head>\n<body>\n<noscript>What is inside the blocks is shown by a script of this page, which "
           "has to be allowed to run.</noscript>\n<main>\n";
}

} // namespace astdump
