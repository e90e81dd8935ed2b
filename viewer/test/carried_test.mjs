// The recording that stands in a page, as files of pcapng. Octets are worked by hand.

import assert from 'node:assert/strict';
import {test} from 'node:test';
import {carriedFiles, carriedFilesOf} from '../web/worker/carried.js';
import {UNKNOWN, fileMark, packed, partOf} from './carry.mjs';

const BLOCK = Buffer.from('220006c0190c', 'hex');
const ROUTES = [
    {version: 4, from: ['10.0.0.1', 8600], to: ['239.1.2.3', 8601]},
    {
        version: 6,
        from: ['fe80:0000:0000:0000:0000:0000:0000:0001', 1],
        to: ['ff02:0000:0000:0000:0000:0000:0000:0002', 2]
    }
];

const hex = async file => Buffer.from(await file.arrayBuffer()).toString('hex');
const HEAD =
    '0a0d0d0a1c0000004d3c2b1a01000000ffffffffffffffff1c000000' + // section
    '01000000' +
    '20000000' +
    '6500000000000000' +
    '0900010009000000' +
    '00000000' +
    '20000000'; // raw IP, ns

// 1.000000002 s, and 258 ns later.
const PARTS = [
    fileMark,
    partOf(ROUTES, [
        {time: 1000000002n, route: 0, octets: BLOCK},
        {time: 1000000260n, route: 1, octets: BLOCK},
        {time: UNKNOWN, route: 0, octets: BLOCK}
    ]),
    partOf(ROUTES.slice(0, 1), [{time: 5n, route: 0, octets: BLOCK.subarray(0, 3)}]),
    fileMark,
    partOf([{}], [{time: UNKNOWN, route: 0, octets: BLOCK}])
];

const PACKET_4 =
    '06000000' +
    '44000000' +
    '00000000' +
    '00000000' +
    '02ca9a3b' +
    '22000000' +
    '22000000' +
    '45000022' +
    '00000000' +
    '40110000' +
    '0a000001' +
    'ef010203' +
    '21982199' +
    '000e0000' +
    '220006c0190c' +
    '0000' +
    '44000000';
const PACKET_6 =
    '06000000' +
    '58000000' +
    '00000000' +
    '00000000' +
    '04cb9a3b' +
    '36000000' +
    '36000000' +
    '60000000' +
    '000e1140' +
    'fe800000000000000000000000000001' +
    'ff020000000000000000000000000002' +
    '00010002' +
    '000e0000' +
    '220006c0190c' +
    '0000' +
    '58000000';
const PACKET_LATER =
    '06000000' +
    '40000000' +
    '00000000' +
    '00000000' +
    '05000000' +
    '1f000000' +
    '1f000000' +
    '4500001f' +
    '00000000' +
    '40110000' +
    '0a000001' +
    'ef010203' +
    '21982199' +
    '000b0000' +
    '220006' +
    '00' +
    '40000000';
const PACKET_WITHOUT_TIME = '03000000' + '34000000' + '22000000' + PACKET_4.slice(56, 128) + '34000000';

async function* cut(octets, size) {
    for (let at = 0; at < octets.length; at += size) yield octets.subarray(at, at + size);
}

test('parts become files, wherever their octets are cut', async () => {
    const stream = Buffer.concat(PARTS);
    for (const size of [1, 7, 1000]) {
        const [one, other] = await carriedFiles(cut(stream, size), ['a.pcap', 'b.gps']);
        assert.deepEqual([one.name, other.name], ['a.pcap', 'b.gps']);
        assert.equal(await hex(one), HEAD + PACKET_4 + PACKET_6 + PACKET_WITHOUT_TIME + PACKET_LATER);
        assert.equal(await hex(other), BLOCK.toString('hex')); // neither time nor route
    }
});

// Five digits of 85 for four octets: 0x00000055 is 1 and 0, 0xffffffff is 82, 23, 54, 12, 0.
test('digits are unpacked', async () => {
    const {Digits} = await import('../web/digits.js');
    const read = (...pieces) => {
        const digits = new Digits();
        const octets = pieces.flatMap(piece => [...digits.take(piece)]);
        return Buffer.from([...octets, ...digits.end()]).toString('hex');
    };
    assert.equal(read('###', '$#', 'v:Z/#'), '00000055ffffffff');
    assert.equal(read('#$####$'), '00095eed00'); // 85³ is 0x95eed
});

test('what breaks off or is damaged is said to be', async () => {
    const stream = Buffer.concat(PARTS);
    await assert.rejects(carriedFiles(cut(stream.subarray(0, -1), 50), []), /breaks off/);
    await assert.rejects(carriedFiles(cut(Buffer.alloc(16), 50), []), /is damaged/);
    const lost = Buffer.concat([fileMark, partOf(ROUTES.slice(0, 1), [{time: 0n, route: 9, octets: BLOCK}])]);
    await assert.rejects(carriedFiles(cut(lost, 50), []), /is damaged/);
});

test('the digits of a page are unpacked piece by piece', async () => {
    const text = packed(PARTS);
    async function* pieces() {
        for (let at = 0; at < text.length; at += 7) yield text.slice(at, at + 7);
    }
    const files = await carriedFilesOf(pieces(), ['a.pcap']);
    assert.deepEqual(
        files.map(({name}) => name),
        ['a.pcap', 'recording 2']
    );
    assert.equal(await hex(files[0]), HEAD + PACKET_4 + PACKET_6 + PACKET_WITHOUT_TIME + PACKET_LATER);
});
