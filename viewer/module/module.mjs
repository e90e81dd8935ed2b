// Loads the module and calls it: viewer.h says what its functions mean.

import {Unpacking} from './unpacking.mjs';

const TYPES = {
    u8: Uint8Array,
    u16: Uint16Array,
    u32: Uint32Array,
    i32: Int32Array,
    f32: Float32Array,
    f64: Float64Array
};

/** The columns of viewer.h by name: their number and the type of their elements. */
export const COLUMNS = {
    block: [0, 'u32'],
    source: [1, 'u16'],
    time: [2, 'f64'],
    timeKind: [3, 'u8'],
    positionKind: [4, 'u8'],
    first: [5, 'i32'],
    second: [6, 'i32'],
    level: [7, 'f32'],
    height: [8, 'f32'],
    callsign: [9, 'u32'],
    code: [10, 'u16'],
    address: [11, 'u32'],
    track: [12, 'u32'],
    speed: [13, 'f32'],
    angle: [14, 'f32'],
    rate: [15, 'f32'],
    type: [16, 'u8'],
    flags: [17, 'u16'],
    blockRow: [20, 'u32'],
    blockState: [21, 'u8'],
    blockCategory: [22, 'u8'],
    blockFile: [23, 'u16'],
    blockOctets: [24, 'u16'],
    shapes: [30, 'u32']
};

export class Viewer {
    #exports;
    #encoder = new TextEncoder();
    #decoder = new TextDecoder();

    /** `wasi` has the functions of wasi_snapshot_preview1, and `start(instance)` initialises a reactor. */
    static async load(octets, wasi, start) {
        const viewer = new Viewer();
        const unpacking = new Unpacking(() => viewer.#exports.memory.buffer);
        const {instance} = await WebAssembly.instantiate(octets, {
            wasi_snapshot_preview1: wasi,
            unpack: unpacking.imports
        });
        viewer.#exports = instance.exports;
        start(instance);
        return viewer;
    }

    /** Null, or why they cannot be opened. */
    open(paths, options = {}) {
        return this.#json('viewer_open', ...this.#place([paths.join('\n'), JSON.stringify(options)]));
    }
    close() {
        this.#exports.viewer_close();
    }

    /** How many blocks came; 0 at the end. */
    read(octets) {
        return this.#exports.viewer_read(octets);
    }

    /** A column of what came last, copied. */
    column(name) {
        const [number, type] = COLUMNS[name];
        const begin = this.#exports.viewer_column(number);
        return new TYPES[type](
            this.#exports.memory.buffer,
            begin,
            this.#exports.viewer_column_elements(number)
        ).slice();
    }
    /** New callsigns. */
    texts() {
        return (this.#text('viewer_texts') ?? '').split('\n').slice(0, -1);
    }

    state = () => this.#json('viewer_state');
    sources = () => this.#json('viewer_sources');
    reports = () => this.#json('viewer_reports');
    totals = () => this.#json('viewer_totals');
    sites = () => this.#json('viewer_sites');
    block = block => this.#json('viewer_block', block);
    record = row => this.#json('viewer_record', row);
    item = (row, item) => this.#json('viewer_item', row, item);
    faultItem = (block, item) => this.#json('viewer_fault_item', block, item);
    answers = row => this.#json('viewer_answers', row);
    /** Lines as --json writes them; null where there are none. */
    json = row => this.#text('viewer_json', row);
    blockJson = block => this.#text('viewer_block_json', block);

    /** Null, or what is wrong with the expression. */
    filter(expression) {
        return this.#json('viewer_filter', ...this.#place([expression]));
    }
    /** A mark for each of the next rows, none at the end of what has been read. */
    marks(rows) {
        const count = this.#exports.viewer_filter_read(rows);
        return new Uint8Array(this.#exports.memory.buffer, this.#exports.viewer_marks(), count).slice();
    }
    filterAsksPosition() {
        return this.#exports.viewer_filter_asks_position() === 1;
    }

    /** A place of null takes a given one back. */
    setSite(sac, sic, place) {
        const {latitude, longitude, height_m = 0} = place ?? {latitude: NaN, longitude: NaN};
        return this.#exports.viewer_set_site(sac, sic, latitude, longitude, height_m) === 1;
    }

    // Texts stand one behind the other, each with a zero.
    #place(texts) {
        const encoded = texts.map(text => this.#encoder.encode(`${text}\0`));
        const size = encoded.reduce((sum, octets) => sum + octets.length, 0);
        const room = this.#exports.viewer_room(size);
        let next = room;
        return encoded.map(octets => {
            const begin = next;
            new Uint8Array(this.#exports.memory.buffer, begin, octets.length).set(octets);
            next += octets.length;
            return begin;
        });
    }

    #text(name, ...args) {
        const begin = this.#exports[name](...args);
        if (begin === 0) return null;
        return this.#decoder.decode(
            new Uint8Array(this.#exports.memory.buffer, begin, this.#exports.viewer_text_octets())
        );
    }
    #json(name, ...args) {
        const text = this.#text(name, ...args);
        return text === null ? null : JSON.parse(text);
    }
}
