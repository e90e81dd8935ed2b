// Coasts and borders of Natural Earth at 1:50 million, as the page keeps them: for each line an LEB128 number, twice how
// many points there are, and one more of a border; then the points, each less the one before, in parts of 100 of a
// degree, east and north, as LEB128 numbers with the sign in the lowest bit. Points that are nearly on the line between
// others are left out.

import {readFileSync} from 'node:fs';
import {createRequire} from 'node:module';

const PARTS_PER_DEGREE = 100;
const TOLERANCE_DEG = 0.035;
const LEAST_POINTS = 3; // of an island; smaller ones are left out
const SMALLEST_DEG = 0.15;

// The arcs of the topology, in degrees, and in how many countries each is.
function readArcs() {
    const file = createRequire(import.meta.url).resolve('world-atlas/countries-50m.json');
    const {arcs, transform, objects} = JSON.parse(readFileSync(file, 'utf8'));
    const uses = new Uint8Array(arcs.length);
    const count = arc => (typeof arc === 'number' ? ++uses[arc < 0 ? ~arc : arc] : arc.forEach(count));
    for (const {arcs: of} of objects.countries.geometries) count(of ?? []);
    return arcs.map((arc, i) => {
        let x = 0,
            y = 0;
        const points = arc.map(([east, north]) => {
            x += east;
            y += north;
            return [x * transform.scale[0] + transform.translate[0], y * transform.scale[1] + transform.translate[1]];
        });
        return {points, isBorder: uses[i] > 1};
    });
}

// The points without those that are near the line between what stays of their neighbours (Douglas and Peucker).
function simplify(points) {
    const stays = new Uint8Array(points.length);
    const keep = (first, last) => {
        const [x0, y0] = points[first],
            [x1, y1] = points[last];
        const shrink = Math.cos((y0 * Math.PI) / 180);
        const length = Math.hypot((x1 - x0) * shrink, y1 - y0);
        let far = -1,
            most = TOLERANCE_DEG;
        for (let i = first + 1; i < last; ++i) {
            const x = (points[i][0] - x0) * shrink,
                y = points[i][1] - y0;
            const distance =
                length === 0 ? Math.hypot(x, y) : Math.abs(x * (y1 - y0) - y * (x1 - x0) * shrink) / length;
            if (distance <= most) continue;
            far = i;
            most = distance;
        }
        if (far < 0) return;
        stays[far] = 1;
        keep(first, far);
        keep(far, last);
    };
    stays[0] = stays[points.length - 1] = 1;
    keep(0, points.length - 1);
    return points.filter((_, i) => stays[i]);
}

function isSmall(points) {
    const [first, last] = [points[0], points.at(-1)];
    const isClosed = first[0] === last[0] && first[1] === last[1];
    const span = axis => Math.max(...points.map(p => p[axis])) - Math.min(...points.map(p => p[axis]));
    return isClosed && (points.length <= LEAST_POINTS || Math.max(span(0), span(1)) < SMALLEST_DEG);
}

export function coastOctets() {
    const octets = [];
    const put = number => {
        for (; number > 127; number >>>= 7) octets.push((number & 127) | 128);
        octets.push(number);
    };
    const putSigned = number => put(number < 0 ? -2 * number - 1 : 2 * number);
    for (const {points, isBorder} of readArcs()) {
        const simple = simplify(points);
        if (isSmall(simple)) continue;
        put(2 * simple.length + Number(isBorder));
        let before = [0, 0];
        for (const point of simple) {
            const at = point.map(degrees => Math.round(degrees * PARTS_PER_DEGREE));
            putSigned(at[0] - before[0]);
            putSigned(at[1] - before[1]);
            before = at;
        }
    }
    return Uint8Array.from(octets);
}
