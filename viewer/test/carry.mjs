// Recordings as they stand in a page: parts of datagrams, compressed, in digits.

import {deflateRawSync} from 'node:zlib';
import {base85} from '../base85.mjs';

export const UNKNOWN = -(2n ** 63n);

const octets = (count, fill) => {
    const buffer = Buffer.alloc(count);
    fill(buffer);
    return buffer;
};

const address = text => {
    const whole = Buffer.alloc(16);
    if (text.includes(':')) Buffer.from(text.replaceAll(':', ''), 'hex').copy(whole);
    else Buffer.from(text.split('.').map(Number)).copy(whole);
    return whole;
};

const routeOf = ({version = 0, from = ['0.0.0.0', 0], to = ['0.0.0.0', 0]}) =>
    Buffer.concat([
        octets(8, head => {
            head[0] = version;
            head[1] = 255;
            head.writeUInt16LE(from[1], 2);
            head.writeUInt16LE(to[1], 4);
        }),
        address(from[0]),
        address(to[0])
    ]);

// routes as above; datagrams {time in ns, route, octets}
export function partOf(routes, datagrams) {
    let last = 0n;
    const steps = datagrams.map(({time}) => {
        const step = BigInt.asIntN(64, time - last);
        last = time;
        return step;
    });
    const column = (size, write) =>
        octets(size * datagrams.length, buffer => datagrams.forEach((datagram, i) => write(buffer, datagram, i)));
    return Buffer.concat([
        octets(16, head => {
            head.write('PART');
            head.writeUInt32LE(datagrams.length, 4);
            head.writeUInt32LE(routes.length, 8);
        }),
        ...routes.map(routeOf),
        column(8, (buffer, _, i) => buffer.writeBigInt64LE(steps[i], 8 * i)),
        column(2, (buffer, {route}, i) => buffer.writeUInt16LE(route, 2 * i)),
        column(4, (buffer, datagram, i) => buffer.writeUInt32LE(datagram.octets.length, 4 * i)),
        ...datagrams.map(datagram => datagram.octets)
    ]);
}

// In front of the parts of a file.
export const fileMark = octets(16, head => head.write('FILE'));

export const packed = parts => base85(deflateRawSync(Buffer.concat(parts)));

// Puts a recording into the page.
export const carrying = (page, text, about) =>
    page
        .replace('id="recording">', () => `id="recording">${text}`)
        .replace('id="about">', () => `id="about">${JSON.stringify(about).replaceAll('<', '\\u003c')}`);
