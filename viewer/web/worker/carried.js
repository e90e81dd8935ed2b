// The recording that stands in the page itself.
//
// The element "recording" holds one stream of deflate without a wrapping, as digits (digits.js). Unpacked, it is a row of
// parts, so that it can be written as a recording is read. Little-endian, a part is
//
//     "PART", u32 how many datagrams D, u32 how many routes R, u32 0
//     R routes     u8 version of IP (0: none), u8 what it was read from, where several were merged, 255 else, u16 port of
//                  the sender, u16 of the receiver, u16 0, 16 octets of the sender's address, 16 of the receiver's, of
//                  IPv4 the first four
//     D times      i64 ns since 1970, each less the one before, the first less 0, in 64 bits; -2^63 stands for a time not
//                  known
//     D routes     u16
//     D sizes      u32
//     the octets of the datagrams, one behind the other
//
// and in front of the parts of each file stand "FILE" and twelve octets of 0.
//
// Files of pcapng are made of it, one for each file of the recording, for the module to read like any other. What has
// neither times nor routes becomes a file of nothing but blocks, as it was.

import {Digits} from '../digits.js';

const PART_HEAD = 16;
const ROUTE_OCTETS = 40;
const UNKNOWN_TIME = -(2n ** 63n);

const MAGIC = {PART: 0x54524150, FILE: 0x454c4946};

// Gives octets of a stream as they are asked for.
class Source {
    constructor(chunks) {
        this.chunks = chunks[Symbol.asyncIterator]();
        this.pieces = [];
        this.octets = 0;
    }

    // Whether so many octets are there, when what is needed has been waited for.
    async has(octets) {
        while (this.octets < octets) {
            const {done, value} = await this.chunks.next();
            if (done) return false;
            this.pieces.push(value);
            this.octets += value.length;
        }
        return true;
    }

    async take(octets) {
        if (!(await this.has(octets))) throw new Error('The recording in this page breaks off.');
        const whole = new Uint8Array(octets);
        let at = 0;
        while (at < octets) {
            const piece = this.pieces[0].subarray(0, octets - at);
            whole.set(piece, at);
            at += piece.length;
            if (piece.length === this.pieces[0].length) this.pieces.shift();
            else this.pieces[0] = this.pieces[0].subarray(piece.length);
        }
        this.octets -= octets;
        return whole;
    }
}

// ---- pcapng ----

const RAW_IP = 101;
const UDP = 17;
const SECTION = 0x0a0d0d0a;
const INTERFACE = 1;
const SIMPLE_PACKET = 3; // which has no time
const PACKET = 6;
const RESOLUTION_OPTION = 9;
const NANOSECONDS = 9;
const HOPS = 64;

function blockOf(type, body) {
    const padded = Math.ceil(body.length / 4) * 4;
    const block = new Uint8Array(12 + padded);
    const view = new DataView(block.buffer);
    view.setUint32(0, type, true);
    view.setUint32(4, block.length, true);
    block.set(body, 8);
    view.setUint32(8 + padded, block.length, true);
    return block;
}

function heading() {
    const section = new Uint8Array([0x4d, 0x3c, 0x2b, 0x1a, 1, 0, 0, 0, ...new Array(8).fill(0xff)]);
    const packets = new Uint8Array([
        RAW_IP,
        0,
        0,
        0,
        0,
        0,
        0,
        0,
        RESOLUTION_OPTION,
        0,
        1,
        0,
        NANOSECONDS,
        0,
        0,
        0,
        0,
        0,
        0,
        0
    ]);
    return [blockOf(SECTION, section), blockOf(INTERFACE, packets)];
}

// The header of IP and UDP that such a route has. Checksums of 0 are not looked at.
function headersOf({version, ports, addresses}, octets) {
    const is6 = version === 6;
    const size = is6 ? 40 : 20;
    const headers = new Uint8Array(size + 8);
    const view = new DataView(headers.buffer);
    if (is6) {
        view.setUint8(0, 0x60);
        view.setUint16(4, octets + 8);
        view.setUint8(6, UDP);
        view.setUint8(7, HOPS);
        headers.set(addresses, 8);
    } else {
        view.setUint8(0, 0x45);
        view.setUint16(2, octets + size + 8);
        view.setUint8(8, HOPS);
        view.setUint8(9, UDP);
        headers.set(addresses.subarray(0, 4), 12);
        headers.set(addresses.subarray(16, 20), 16);
    }
    view.setUint16(size, ports[0]);
    view.setUint16(size + 2, ports[1]);
    view.setUint16(size + 4, octets + 8);
    return headers;
}

function packetOf(time, route, octets) {
    const headers = headersOf(route, octets.length);
    const length = headers.length + octets.length;
    const before = time === UNKNOWN_TIME ? 4 : 20;
    const body = new Uint8Array(before + length);
    const view = new DataView(body.buffer);
    if (time !== UNKNOWN_TIME) {
        view.setUint32(4, Number(BigInt.asUintN(64, time) >> 32n), true);
        view.setUint32(8, Number(BigInt.asUintN(32, time)), true);
        view.setUint32(12, length, true);
    }
    view.setUint32(before - 4, length, true);
    body.set(headers, before);
    body.set(octets, before + headers.length);
    return blockOf(time === UNKNOWN_TIME ? SIMPLE_PACKET : PACKET, body);
}

// ---- parts ----

function readRoute(octets) {
    const view = new DataView(octets.buffer, octets.byteOffset);
    return {
        version: octets[0],
        ports: [view.getUint16(2, true), view.getUint16(4, true)],
        addresses: octets.subarray(8, ROUTE_OCTETS)
    };
}

function readTimes(octets) {
    const view = new DataView(octets.buffer);
    let last = 0n;
    return Array.from({length: octets.length / 8}, (_, i) => {
        last = BigInt.asIntN(64, last + view.getBigInt64(8 * i, true));
        return last;
    });
}

async function* datagramsOf(source, datagrams, routes) {
    const columns = await source.take(ROUTE_OCTETS * routes + (8 + 2 + 4) * datagrams);
    const known = Array.from({length: routes}, (_, i) => readRoute(columns.subarray(ROUTE_OCTETS * i)));
    let at = ROUTE_OCTETS * routes;
    const times = readTimes(columns.slice(at, (at += 8 * datagrams)));
    const view = new DataView(columns.buffer, at);
    for (let i = 0; i < datagrams; ++i) {
        const route = known[view.getUint16(2 * i, true)];
        if (!route) throw new Error('The recording in this page is damaged.');
        const octets = await source.take(view.getUint32(2 * datagrams + 4 * i, true));
        yield {time: times[i], route, octets};
    }
}

// The files of a recording, of the names that they have, made of the chunks of its unpacked stream.
export async function carriedFiles(chunks, names) {
    const GROUP_OCTETS = 1 << 20; // pieces of so many are put together
    const files = [];
    const fileAt = (place, isBare) =>
        (files[2 * place + Number(isBare)] ??= {parts: isBare ? [] : heading(), group: [], octets: 0});
    const close = file => {
        file.parts.push(new Blob(file.group));
        Object.assign(file, {group: [], octets: 0});
    };
    const source = new Source(chunks);
    let atHand = -1;
    while (await source.has(PART_HEAD)) {
        const head = new DataView((await source.take(PART_HEAD)).buffer);
        const magic = head.getUint32(0, true);
        if (magic === MAGIC.FILE) {
            ++atHand;
            continue;
        }
        if (magic !== MAGIC.PART || atHand < 0) throw new Error('The recording in this page is damaged.');
        const datagrams = head.getUint32(4, true),
            routes = head.getUint32(8, true);
        for await (const {time, route, octets} of datagramsOf(source, datagrams, routes)) {
            const isBare = time === UNKNOWN_TIME && route.version === 0;
            const file = fileAt(atHand, isBare);
            const packet = isBare ? octets : packetOf(time, route, octets);
            file.group.push(packet);
            file.octets += packet.length;
            if (file.octets >= GROUP_OCTETS) close(file);
        }
    }
    return Array.from(files, (file, place) => {
        if (!file) return null;
        close(file);
        return new File(file.parts, names[place >> 1] ?? `recording ${(place >> 1) + 1}`);
    }).filter(Boolean);
}

// The same, of the digits that stand in the page, piece by piece.
export async function carriedFilesOf(pieces, names) {
    const digits = new Digits();
    const packed = new ReadableStream({
        async pull(controller) {
            const {done, value} = await pieces.next();
            controller.enqueue(done ? digits.end() : digits.take(value));
            if (done) controller.close();
        }
    });
    const plain = packed.pipeThrough(new DecompressionStream('deflate-raw'));
    return carriedFiles(plain, names);
}
