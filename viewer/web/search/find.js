// Which rows a search is about: callsigns, addresses, codes and track numbers.

import {NO_CODE, NO_NUMBER} from '../model/columns.js';

// A word is a part of a callsign, or with stars all of it, the start of an address, a code, or a track number.
function testFor(records, word) {
    const matches = callsignTest(word);
    const callsigns = new Uint8Array(records.texts.length);
    records.texts.forEach((text, i) => {
        callsigns[i] = i > 0 && matches(text.toUpperCase()) ? 1 : 0;
    });
    const isHex = /^[0-9A-F]{2,6}$/.test(word);
    const least = isHex ? parseInt(word.padEnd(6, '0'), 16) : 1;
    const most = isHex ? parseInt(word.padEnd(6, 'F'), 16) : 0;
    const code = /^[0-7]{4}$/.test(word) ? parseInt(word, 8) : NO_CODE + 1;
    const track = /^#?\d{1,5}$/.test(word) ? parseInt(word.replace('#', ''), 10) : NO_NUMBER + 1;
    const {callsign, code: codes, track: tracks, address} = records;
    return row =>
        callsigns[callsign[row]] === 1 ||
        codes[row] === code ||
        tracks[row] === track ||
        (address[row] >= least && address[row] <= most);
}

function callsignTest(word) {
    if (!word.includes('*')) return text => text.includes(word);
    const pattern = word
        .split('*')
        .map(part => part.replace(/[.*+?^${}()|[\]\\]/g, '\\$&'))
        .join('.*');
    const expression = new RegExp(`^${pattern}$`);
    return text => expression.test(text.trim());
}

// Numbers that stand for an aircraft whoever has seen it: by its address, else by its callsign, else by its target.
export class Identities {
    constructor({records, targets}) {
        const {address, callsign, count} = records;
        Object.assign(this, {records, of: targets.of});
        this.address = new Uint32Array(targets.targets + 1).fill(NO_NUMBER);
        this.callsign = new Uint32Array(targets.targets + 1);
        for (let row = 0; row < count; ++row) {
            const target = targets.of[row];
            if (target === 0) continue;
            if (address[row] !== NO_NUMBER) this.address[target] = address[row];
            if (callsign[row] !== 0) this.callsign[target] = callsign[row];
        }
    }

    // Rows that name nothing but a code that many share are one.
    key(row) {
        const kinds = 4;
        const target = this.of[row];
        if (target === 0) return this.records.code[row] * kinds;
        if (this.address[target] !== NO_NUMBER) return this.address[target] * kinds + 1;
        if (this.callsign[target] !== 0) return this.callsign[target] * kinds + 2;
        return target * kinds + 3;
    }
}

// Marks of the rows that have all the words, and the aircraft that they are of; null without a word.
export function findRows(records, identities, text) {
    const words = text.toUpperCase().split(/\s+/).filter(Boolean);
    if (words.length === 0) return null;
    const tests = words.map(word => testFor(records, word));
    const marks = new Uint8Array(records.count);
    const aircraft = new Map();
    let count = 0;
    for (let row = 0; row < records.count; ++row) {
        if (!tests.every(test => test(row))) continue;
        marks[row] = 1;
        ++count;
        const key = identities.key(row);
        const known = aircraft.get(key);
        if (known) {
            known.last = row;
            ++known.count;
        } else {
            aircraft.set(key, {key, first: row, last: row, count: 1});
        }
    }
    return {marks, count, aircraft: [...aircraft.values()]};
}

// Of the rows that were found of an aircraft, the one whose time is next to another.
export function nearestRow(records, identities, {marks}, {key, first, last}, time) {
    let nearest = first;
    for (let row = first; row <= last; ++row) {
        if (!marks[row] || identities.key(row) !== key) continue;
        if (Math.abs(records.time[row] - time) <= Math.abs(records.time[nearest] - time)) nearest = row;
    }
    return nearest;
}
