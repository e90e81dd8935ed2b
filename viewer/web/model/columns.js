// The columns of rows and blocks: what the module calls them, and how they are kept. Rates and levels come as floats,
// and are kept in units that fit 16 bits: there may be millions of rows.

export const POSITION = {none: 0, wgs84: 1, polar: 2, cartesian: 3};
export const TIME = {none: 0, dated: 1, ofDay: 2, truncated: 3, received: 4, since: 5};
export const FLAG = {spi: 1, emergency: 2, onGround: 4, simulated: 8, test: 16, coasted: 32, ended: 64, system: 512};
export const BLOCK_STATES = ['whole', 'damaged', 'not supported', 'other traffic'];

export const NO_CODE = 0xffff;
export const NO_NUMBER = 0xffffffff; // neither an address nor a track number
export const NOTHING = -32768; // of what is kept in 16 bits

export const FEET_PER_LEVEL = 100;
const PARTS_PER_LEVEL = 4;
const FEET_PER_STEP = 25;
const STEPS_PER_KNOT = 4;
const STEPS_PER_DEGREE = 64;
const FPM_PER_STEP = 6.25;

const small = steps => ({type: Int16Array, steps});

export const ROW_COLUMNS = {
    source: {from: 'source', type: Uint16Array},
    time: {from: 'time', type: Float64Array},
    timeKind: {from: 'timeKind', type: Uint8Array},
    kind: {from: 'positionKind', type: Uint8Array},
    first: {from: 'first', type: Int32Array},
    second: {from: 'second', type: Int32Array},
    level: {from: 'level', ...small(PARTS_PER_LEVEL)},
    height: {from: 'height', ...small(1 / FEET_PER_STEP)},
    callsign: {from: 'callsign', type: Uint32Array},
    code: {from: 'code', type: Uint16Array},
    address: {from: 'address', type: Uint32Array},
    track: {from: 'track', type: Uint32Array},
    speed: {from: 'speed', ...small(STEPS_PER_KNOT)},
    angle: {from: 'angle', ...small(STEPS_PER_DEGREE)},
    rate: {from: 'rate', ...small(1 / FPM_PER_STEP)},
    type: {from: 'type', type: Uint8Array},
    flags: {from: 'flags', type: Uint16Array}
};

export const BLOCK_COLUMNS = {
    row: {from: 'blockRow', type: Uint32Array},
    state: {from: 'blockState', type: Uint8Array},
    category: {from: 'blockCategory', type: Uint8Array},
    file: {from: 'blockFile', type: Uint16Array},
    octets: {from: 'blockOctets', type: Uint16Array}
};

// As it is kept: floats in steps of their column.
export function keep({type, steps}, values) {
    if (!steps) return values;
    const most = 32767;
    return type.from(values, value =>
        isNaN(value) ? NOTHING : Math.max(-most, Math.min(most, Math.round(value * steps)))
    );
}

// A value in the unit of its column; NaN for none.
export const valueOf = (name, kept) => (kept === NOTHING ? NaN : kept / ROW_COLUMNS[name].steps);

// Pieces of a column that becomes one array when all have come.
export class Pieces {
    constructor(type) {
        Object.assign(this, {type, pieces: [], length: 0});
    }

    add(piece) {
        this.pieces.push(piece);
        this.length += piece.length;
    }

    take() {
        const whole = new this.type(this.length);
        let at = 0;
        for (const piece of this.pieces) {
            whole.set(piece, at);
            at += piece.length;
        }
        this.pieces = [];
        return whole;
    }
}
