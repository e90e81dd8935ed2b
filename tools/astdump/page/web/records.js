
// The records of all sections in columns, which the sections hold packed: typed arrays, for there may be hundreds of
// thousands of them.

const POSITION = {none: 0, wgs84: 1, polar: 2, cartesian: 3};
const SITE = {none: 0, workedOut: 1, learnt: 2, given: 3};
const TIME = {none: 0, own: 1, truncated: 2, received: 3};
const COLUMNS = ['source', 'time', 'kind', 'first', 'second', 'callsign', 'code', 'address', 'track', 'level'];

async function inflate(text) {
    const characters = atob(text);
    const octets = new Uint8Array(characters.length);
    for (let i = 0; i < octets.length; ++i) octets[i] = characters.charCodeAt(i);
    return new Response(new Response(octets).body.pipeThrough(new DecompressionStream('deflate'))).arrayBuffer();
}

// Words stand in four planes of octets, the low ones first.
function readColumns(buffer) {
    const octets = new Uint8Array(buffer);
    let place = 0;
    const take = count => {
        const words = new Uint32Array(count);
        for (let i = 0; i < count; ++i) {
            const at = place + i;
            words[i] = octets[at] | octets[at + count] << 8 | octets[at + 2 * count] << 16 |
                octets[at + 3 * count] << 24;
        }
        place += 4 * count;
        return words;
    };
    const [blocks, rows, sources, shapes] = take(4);
    const part = {rows, blocks: take(blocks)};
    for (const name of COLUMNS) part[name] = take(rows);
    part.sources = take(sources);
    part.sites = [take(sources), take(sources), take(sources)];
    part.shapes = take(shapes);
    part.texts = new TextDecoder().decode(octets.subarray(place)).split('\n').slice(0, -1);
    return part;
}

class Records {
    static async read(sections) {
        const parts = [];
        for (const section of sections) {
            parts.push(readColumns(await inflate(section.dataset.plan)));
            delete section.dataset.plan;
        }
        return new Records(parts);
    }

    constructor(parts) {
        this.count = parts.reduce((sum, part) => sum + part.rows, 0);
        this.sections = [];       // the first row of each
        this.blocks = [];         // by section, the first row of each block, and the end
        this.sources = [];        // words of category and SAC/SIC
        this.sites = new Map();   // the places of sources by SAC/SIC, and how they are known
        this.texts = [''];        // callsigns
        this.shapes = [];         // words of a section, and the row that theirs are counted from
        this.source = new Uint16Array(this.count);
        this.time = new Float64Array(this.count);
        this.timeKind = new Uint8Array(this.count);
        this.kind = new Uint8Array(this.count);
        this.first = new Int32Array(this.count);
        this.second = new Int32Array(this.count);
        for (const name of ['callsign', 'code', 'address', 'track', 'level']) this[name] = new Uint32Array(this.count);
        const known = {sources: new Map(), texts: new Map()};
        for (const part of parts) this.add(part, known);
        this.fillTimes();
    }

    add(part, known) {
        const start = this.sections.length === 0 ? 0 : this.blocks.at(-1).at(-1);
        this.sections.push(start);
        const blocks = new Uint32Array(part.blocks.length + 1);
        blocks[0] = start;
        part.blocks.forEach((rows, i) => { blocks[i + 1] = blocks[i] + rows; });
        this.blocks.push(blocks);
        const number = (kind, value) => {
            if (!known[kind].has(value)) known[kind].set(value, this[kind].push(value) - 1);
            return known[kind].get(value);
        };
        const sources = Array.from(part.sources, word => number('sources', word));
        this.addSites(part);
        const texts = [0, ...part.texts.map(text => number('texts', text))];
        for (let i = 0; i < part.rows; ++i) {
            this.source[start + i] = sources[part.source[i]];
            this.callsign[start + i] = texts[part.callsign[i]];
            this.timeKind[start + i] = part.time[i] >>> 24;
            this.time[start + i] = (part.time[i] & 0xFFFFFF) / 128;
        }
        for (const name of ['kind', 'first', 'second', 'code', 'address', 'track', 'level'])
            this[name].set(part[name], start);
        if (part.shapes.length > 0) this.shapes.push({start, words: part.shapes});
    }

    // What is known better, or later, takes the place of what is there.
    addSites({sources, sites: [known, latitudes, longitudes]}) {
        const degree = 1e7;
        sources.forEach((word, i) => {
            const how = known[i] >>> 24;
            if (how === SITE.none || this.sites.get(word & 0xFFFF)?.known > how) return;
            const place = [(latitudes[i] | 0) / degree, (longitudes[i] | 0) / degree];
            this.sites.set(word & 0xFFFF, {place, known: how, errorM: known[i] & 0xFFFFFF});
        });
    }

    // Times that run on over midnight, for all rows: a truncated time is the one next to the last whole one, or to the
    // first that follows, and a record without one has that of the record before it.
    fillTimes() {
        const day = 86400, cycle = 512;
        let first = NaN;
        let last = this.time.find((_, row) => this.timeKind[row] === TIME.own) ?? NaN;
        for (let row = 0; row < this.count; ++row) {
            let time = this.time[row];
            const kind = this.timeKind[row];
            if (kind === TIME.none) {
                time = last;
            } else if (kind === TIME.truncated) {
                if (!isNaN(last)) time += cycle * Math.round((last - time) / cycle);
            } else {
                if (isNaN(first)) first = time;
                if (time < first - day / 2) time += day;
                if (time > first + day / 2) time -= day;
            }
            this.time[row] = last = time;
        }
        this.hasTimes = !isNaN(last);
        if (!this.hasTimes) this.time.fill(0);
    }

    // Where a row stands: its section, the block in it, and the record in that, all from 0.
    locate(row) {
        const section = lastAtMost(this.sections, row);
        const blocks = this.blocks[section];
        const block = lastAtMost(blocks, row);
        return {section, block, record: row - blocks[block]};
    }

    rowsOf(section, block) {
        const blocks = this.blocks[section];
        return [blocks[block], blocks[block + 1]];
    }

    // What a row is known by: callsign, address, code and track.
    names(row) {
        const names = [];
        if (this.callsign[row]) names.push(this.texts[this.callsign[row]]);
        if (this.address[row]) names.push(addressText(this.address[row]));
        if (this.code[row]) names.push(codeText(this.code[row]));
        if (this.track[row]) names.push(trackText(this.track[row]));
        return names;
    }

    timeText(row, fraction) {
        return this.timeKind[row] === TIME.none ? '' : clockText(this.time[row], fraction);
    }
}

// The last place of an ascending array whose value is not more, of equals the last.
function lastAtMost(array, value) {
    let low = 0, high = array.length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if (array[middle] <= value)
            low = middle + 1;
        else
            high = middle;
    }
    return low - 1;
}
