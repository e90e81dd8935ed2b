// Unpacks gzip and zstd for the module, piece by piece: the imports "unpack" of viewer.h. What is said of damaged data
// is what the tool says.

import {Inflate} from 'fflate';
import {Decompress} from 'fzstd';

const GZIP = 1;

const CRC = Uint32Array.from({length: 256}, (_, octet) => {
    let crc = octet;
    for (let bit = 0; bit < 8; ++bit) crc = crc & 1 ? (crc >>> 1) ^ 0xedb88320 : crc >>> 1;
    return crc;
});

// Octets that have come and are not taken yet.
class Queue {
    #octets = new Uint8Array(0);

    get length() {
        return this.#octets.length;
    }
    add(octets) {
        const all = new Uint8Array(this.length + octets.length);
        all.set(this.#octets);
        all.set(octets, this.length);
        this.#octets = all;
    }
    peek() {
        return this.#octets;
    }
    take(count) {
        const taken = this.#octets.subarray(0, count);
        this.#octets = this.#octets.subarray(count);
        return taken;
    }
}

// What is plain, and not given yet.
class Plain {
    #pieces = [];

    add(octets) {
        if (octets.length !== 0) this.#pieces.push(octets);
    }
    get isEmpty() {
        return this.#pieces.length === 0;
    }
    give(room) {
        let given = 0;
        while (given < room.length && !this.isEmpty) {
            const piece = this.#pieces[0].subarray(0, room.length - given);
            room.set(piece, given);
            given += piece.length;
            if (piece.length === this.#pieces[0].length) this.#pieces.shift();
            else this.#pieces[0] = this.#pieces[0].subarray(piece.length);
        }
        return given;
    }
}

const INFLATE_ERRORS = ['unexpected end', 'invalid block type', 'invalid literal/length code', 'invalid distance code'];

// The length of a gzip header; 0 where there is not enough of it.
function headerLength(octets) {
    const [NAMED, COMMENTED, EXTRA, CHECKED] = [8, 16, 4, 2];
    if (octets.length < 10) return 0;
    if (octets[0] !== 0x1f || octets[1] !== 0x8b) throw new Error('incorrect header check');
    if (octets[2] !== 8) throw new Error('unknown compression method');
    const flags = octets[3];
    if (flags & 0xe0) throw new Error('unknown header flags set');
    let length = 10;
    if (flags & EXTRA) length += 2 + (octets[10] | (octets[11] << 8));
    for (const flag of [NAMED, COMMENTED])
        if (flags & flag) {
            const end = octets.indexOf(0, length);
            if (end < 0) return 0;
            length = end + 1;
        }
    if (flags & CHECKED) length += 2;
    return length > octets.length ? 0 : length;
}

// Members one behind the other, and zeros behind the last one.
class Gzip {
    isWhole = false;
    #plain;
    #packed = new Queue();
    #inflate = null; // of the member at hand
    #isInflated = false; // its check follows
    #crc = 0;
    #size = 0;

    constructor(plain) {
        this.#plain = plain;
    }

    push(octets) {
        this.#packed.add(octets);
        while (this.#step());
    }

    #step() {
        if (this.#isInflated) return this.#check();
        if (this.#inflate) return this.#unpack();
        return this.#begin();
    }

    #begin() {
        if (this.isWhole) {
            const zeros = this.#packed.peek().findIndex(octet => octet !== 0);
            this.#packed.take(zeros < 0 ? this.#packed.length : zeros);
            if (this.#packed.length === 0) return false;
        }
        if (this.#packed.length > 0) this.isWhole = false;
        const length = headerLength(this.#packed.peek());
        if (length === 0) return false;
        this.#packed.take(length);
        this.#crc = -1;
        this.#size = 0;
        this.#inflate = new Inflate(octets => this.#take(octets));
        return true;
    }

    #take(octets) {
        let crc = this.#crc;
        for (const octet of octets) crc = CRC[(crc ^ octet) & 0xff] ^ (crc >>> 8);
        this.#crc = crc;
        this.#size = (this.#size + octets.length) >>> 0;
        this.#plain.add(octets);
    }

    // What an unpacker throws, it throws before it gives what stands in front of the fault: halves find that.
    #push(octets) {
        const {p, o} = this.#inflate;
        const s = {...this.#inflate.s};
        try {
            this.#inflate.push(octets, false);
        } catch (error) {
            Object.assign(this.#inflate, {p, o, s});
            if (octets.length <= 1) throw new Error(INFLATE_ERRORS[error.code] ?? error.message);
            const half = octets.length >> 1;
            this.#push(octets.subarray(0, half));
            this.#push(octets.subarray(half));
        }
    }

    // The members of an unpacker that tell where deflated data end are those that its own reader of gzip goes by.
    #unpack() {
        if (this.#packed.length === 0) return false;
        this.#push(this.#packed.take(this.#packed.length).slice());
        const {s, p} = this.#inflate;
        if (!s.f || s.l) return false;
        const rest = p.subarray(s.p > 0 ? 1 : 0);
        this.#packed.add(rest);
        this.#isInflated = true;
        return true;
    }

    #check() {
        const CHECK_OCTETS = 8;
        if (this.#packed.length < CHECK_OCTETS) return false;
        const octets = this.#packed.take(CHECK_OCTETS);
        const view = new DataView(octets.buffer, octets.byteOffset, CHECK_OCTETS);
        this.#isInflated = false;
        this.#inflate = null;
        if (view.getUint32(0, true) !== ~this.#crc >>> 0) throw new Error('incorrect data check');
        if (view.getUint32(4, true) !== this.#size) throw new Error('incorrect length check');
        this.isWhole = true;
        return true;
    }
}

// The library knows at the end alone whether that may be there, and is of no more use then.
class Zstd {
    #unpacker;
    #isWhole;

    constructor(plain) {
        this.#unpacker = new Decompress(octets => plain.add(octets));
    }

    push(octets) {
        try {
            this.#unpacker.push(octets, false);
        } catch {
            throw new Error('Data corruption detected');
        }
    }

    get isWhole() {
        if (this.#isWhole === undefined)
            try {
                this.#unpacker.push(new Uint8Array(0), true);
                this.#isWhole = true;
            } catch {
                this.#isWhole = false;
            }
        return this.#isWhole;
    }
}

/** `memory` gives the module's buffer, which is another one when it has grown. */
export class Unpacking {
    #memory;
    #streams = new Map();
    #next = 1;

    constructor(memory) {
        this.#memory = memory;
    }

    imports = {
        begin: kind => {
            const plain = new Plain();
            this.#streams.set(this.#next, {
                plain,
                stream: kind === GZIP ? new Gzip(plain) : new Zstd(plain),
                error: null
            });
            return this.#next++;
        },
        step: (handle, packed, packedOctets, plain, plainOctets, taken, given) => {
            const unpacked = this.#streams.get(handle);
            const view = new DataView(this.#memory());
            const set = (at, number) => view.setUint32(at, number, true);
            set(taken, 0);
            set(given, 0);
            if (unpacked.plain.isEmpty && !unpacked.error && packedOctets !== 0) {
                try {
                    unpacked.stream.push(new Uint8Array(this.#memory(), packed, packedOctets).slice());
                } catch (error) {
                    unpacked.error = new TextEncoder().encode(error.message);
                }
                set(taken, packedOctets);
            }
            const octets = unpacked.plain.give(new Uint8Array(this.#memory(), plain, plainOctets));
            set(given, octets);
            return octets === 0 && unpacked.error ? unpacked.error.length : 0;
        },
        message: (handle, room, octets) =>
            new Uint8Array(this.#memory(), room, octets).set(this.#streams.get(handle).error.subarray(0, octets)),
        whole: handle => (this.#streams.get(handle).stream.isWhole ? 1 : 0),
        end: handle => this.#streams.delete(handle)
    };
}
