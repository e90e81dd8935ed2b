// Weather of category 008 and radar video of category 240.

const SHAPE = {picture: 0, scale: 1, polar: 2, directed: 3, pairs: 4, contour: 5, cells: 6};
const METRES_PER_NM = 1852;
const AZIMUTH = (2 * Math.PI) / 65536;
export const VIDEO_SECTORS = 4096; // of a turn

// How many values follow a shape of a kind, and where their number stands.
const SHAPE_LAYOUTS = [
    {members: 0},
    {members: 1},
    {members: 2, each: 3},
    {members: 3, each: 3},
    {members: 2, each: 4},
    {members: 4, each: 2},
    {members: 5, each: 1 / 4}
];

export class Shapes {
    constructor(records) {
        this.weather = []; // pictures, in their order
        this.video = []; // messages, in their order
        this.open = new Map(); // by source, the picture that is being sent
        this.read(records, records.shapes);
    }

    read(records, words) {
        for (let at = 0; at < words.length;) {
            const row = words[at],
                kind = words[at + 1];
            const {members, each = 0} = SHAPE_LAYOUTS[kind];
            const head = words.subarray(at + 2, at + 2 + members);
            const count = each === 0 ? 0 : Math.ceil(head.at(-1) * each);
            const values = words.subarray(at + 2 + members, at + 2 + members + count);
            at += 2 + members + count;
            const message = {row, source: records.source[row], time: records.time[row]};
            if (kind === SHAPE.cells) this.addVideo(message, head, values);
            else this.addWeather(message, kind, head, new Int32Array(values.buffer, values.byteOffset, values.length));
        }
    }

    addVideo(message, [start, end, firstCell, , count], values) {
        const length = new Float32Array(values.buffer, values.byteOffset - 8, 1)[0] / METRES_PER_NM;
        const cells = new Uint8Array(values.buffer, values.byteOffset, count);
        const sector = azimuth => Math.floor((azimuth * VIDEO_SECTORS) / 65536);
        const from = sector(start);
        const sectors = Math.max(1, (sector(end) - from + VIDEO_SECTORS) % VIDEO_SECTORS);
        this.video.push({...message, from, sectors, firstCell, length, cells, count: 1});
    }

    addWeather(message, kind, head, values) {
        let picture = this.open.get(message.source);
        if (!picture || kind === SHAPE.picture) {
            picture = {...message, factor: picture?.factor ?? 0, rays: [], contours: [], count: 0};
            this.open.set(message.source, picture);
            this.weather.push(picture);
        }
        if (kind === SHAPE.scale) picture.factor = head[0] | 0;
        if (values.length === 0) return;
        if (kind === SHAPE.contour) this.addContour(picture, head, values);
        else this.addRays(picture, kind, head, values);
    }

    // Vectors as lines from x, y to x, y in NM.
    addRays(picture, kind, [intensity, direction], values) {
        const unit = 2 ** (picture.factor - 6);
        const lines = [];
        const {each} = SHAPE_LAYOUTS[kind];
        for (let i = 0; i < values.length; i += each) {
            const [a, b, c, d] = values.subarray(i, i + each);
            if (kind === SHAPE.pairs) {
                lines.push(a * unit, b * unit, c * unit, d * unit);
            } else if (kind === SHAPE.directed) {
                const angle = (direction * Math.PI) / 8;
                lines.push(a * unit, b * unit, (a + c * Math.sin(angle)) * unit, (b + c * Math.cos(angle)) * unit);
            } else {
                const east = (Math.sin(c * AZIMUTH) * unit) / 2,
                    north = (Math.cos(c * AZIMUTH) * unit) / 2;
                lines.push(a * east, a * north, b * east, b * north);
            }
        }
        picture.rays.push({intensity, lines: new Float32Array(lines)});
        picture.count += values.length / each;
    }

    // A contour may come in several records: its first, those between, its last.
    addContour(picture, [intensity, part, serial], values) {
        const first = 2,
            single = 3;
        let contour = picture.contours.findLast(other => other.serial === serial);
        if (!contour || part === first || part === single) {
            contour = {serial, intensity, points: []};
            picture.contours.push(contour);
            ++picture.count;
        }
        const unit = 2 ** (picture.factor - 6);
        for (const value of values) contour.points.push(value * unit);
    }

    // The pictures to be seen at a time: the last that each source has begun.
    picturesAt(time) {
        const last = new Map();
        for (const picture of this.weather) {
            if (picture.time <= time || !last.has(picture.source)) last.set(picture.source, picture);
        }
        return [...last.values()];
    }

    // By source, the message that each sector of the turn shows, within a span of time.
    sweepsAt(from, to) {
        const sweeps = new Map();
        for (const message of this.video) {
            if (message.time < from || message.time > to) continue;
            let sweep = sweeps.get(message.source);
            if (!sweep) sweeps.set(message.source, (sweep = {sectors: new Array(VIDEO_SECTORS), range: 0}));
            for (let i = 0; i < message.sectors; ++i) sweep.sectors[(message.from + i) % VIDEO_SECTORS] = message;
            sweep.range = Math.max(sweep.range, (message.firstCell + message.cells.length) * message.length);
        }
        return sweeps;
    }

    // The corners of all that can be drawn, in NM around the source.
    *extent() {
        for (const {source, rays, contours} of this.weather) {
            for (const {lines} of rays)
                for (let i = 0; i < lines.length; i += 2) yield [source, lines[i], lines[i + 1]];
            for (const {points} of contours)
                for (let i = 0; i < points.length; i += 2) yield [source, points[i], points[i + 1]];
        }
        for (const {source, range} of this.reach()) {
            yield [source, -range, -range];
            yield [source, range, range];
        }
    }

    reach() {
        return this.video.map(({source, firstCell, cells, length}) => ({
            source,
            range: (firstCell + cells.length) * length
        }));
    }
}
