// What runs beside the page: reads the recording, and answers what the page asks about it. Asked by messages
// {id, name, values}, or {pieces} of the recording that stands in the page, it answers by {id, value} or {id, error}, and
// tells of its progress.

import {decompress} from 'fzstd';
import {carriedFilesOf} from './carried.js';
import {octetsOfBase85} from '../digits.js';
import {loadViewer} from './library.js';
import {Reader} from './reader.js';

const TELL_MS = 100;
const FILTERED_ROWS = 50000; // at a time

let viewer, recordCount, ready;
let feed = () => {};
const waiting = [];

// The pieces that the page sends, in their order, until one that is empty.
async function* piecesSent() {
    for (;;) {
        while (waiting.length === 0) await new Promise(resolve => (feed = resolve));
        const piece = waiting.shift();
        if (piece === '') return;
        yield piece;
    }
}

async function open({module, files, names, options}) {
    const chosen = files ?? (await carriedFilesOf(piecesSent(), names));
    const loaded = await loadViewer(decompress(octetsOfBase85(module)), chosen);
    viewer = loaded.viewer;
    const error = viewer.open(loaded.paths, options);
    if (error) throw new Error(error.text);
    const reader = new Reader(viewer);
    let told = 0;
    while (reader.step()) {
        if (performance.now() - told < TELL_MS) continue;
        told = performance.now();
        postMessage({progress: reader.state()});
    }
    postMessage({progress: {...reader.state(), phase: 'arranging'}});
    const recording = reader.finish(chosen.map(({name}) => name));
    recordCount = recording.records.count;
    return recording;
}

// Which rows meet an expression: marks, or the mistake in it.
function filter(expression) {
    const mistake = viewer.filter(expression);
    if (mistake) return {mistake};
    const marks = new Uint8Array(recordCount);
    for (let at = 0, next; at < recordCount && (next = viewer.marks(FILTERED_ROWS)).length > 0; at += next.length)
        marks.set(next, at);
    return {marks};
}

const ASKED_OF_MODULE = ['block', 'record', 'item', 'faultItem', 'json', 'answers', 'setSite'];
const ANSWERS = {
    open,
    filter,
    ...Object.fromEntries(ASKED_OF_MODULE.map(name => [name, (...values) => viewer[name](...values)]))
};

// The buffers of typed arrays go over to the page without being copied.
function buffersIn(value, found = new Set()) {
    if (ArrayBuffer.isView(value)) {
        if (value.length > 1000) found.add(value.buffer);
    } else if (value && typeof value === 'object') {
        for (const member of Object.values(value)) buffersIn(member, found);
    }
    return found;
}

addEventListener('message', async ({data}) => {
    if ('piece' in data) {
        waiting.push(data.piece);
        feed();
        return;
    }
    const {id, name, values} = data;
    try {
        if (name !== 'open') await ready;
        const answer = ANSWERS[name](...values);
        if (name === 'open') ready = answer;
        const value = await answer;
        postMessage({id, value}, [...buffersIn(value)]);
    } catch (error) {
        postMessage({id, error: error?.message ?? String(error)});
    }
});
