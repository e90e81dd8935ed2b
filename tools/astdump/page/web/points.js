
// The positions in the order of their times, and which of them are of one target.

const GAP_S = 90;               // after which a track number may be that of another target
const FASTEST_NM_PER_S = 0.5;
const SHARED_CODES = [0, 0o1000, 0o2000, 0o7000, 0o7777]; // of many targets at a time

class Points {
    constructor(records, plane) {
        const rows = new Uint32Array(records.count);
        let count = 0;
        for (let row = 0; row < records.count; ++row)
            if (!isNaN(plane.x[row])) rows[count++] = row;
        this.count = count;
        this.row = rows.slice(0, count);
        if (!isAscending(this.row, records.time))
            this.row.sort((one, other) => records.time[one] - records.time[other] || one - other);
        this.time = Float64Array.from(this.row, row => records.time[row]);
        this.x = Float32Array.from(this.row, row => plane.x[row]);
        this.y = Float32Array.from(this.row, row => plane.y[row]);
        this.source = Uint16Array.from(this.row, row => records.source[row]);
        this.place = new Int32Array(records.count).fill(-1); // of a row among the points
        this.row.forEach((row, i) => { this.place[row] = i; });
        this.link(records);
    }

    // The point before and behind each of the same target; -1 for none. Points that name no target stand alone.
    link(records) {
        this.previous = new Int32Array(this.count).fill(-1);
        this.next = new Int32Array(this.count).fill(-1);
        this.target = new Uint32Array(this.count); // the targets are numbered from 1
        const last = new Map(), tracks = new Map();
        let targets = 0;
        for (let i = 0; i < this.count; ++i) {
            const code = codeName(records, this.row[i]);
            const name = targetName(records, this.row[i], tracks) || code;
            if (name === 0) continue;
            const before = last.get(name) ?? this.plotBefore(last, code, i);
            last.set(name, i);
            this.target[i] = before === undefined ? ++targets : this.target[before];
            if (before === undefined) continue;
            this.next[before] = i;
            if (this.isNear(before, i)) this.previous[i] = before;
        }
    }

    // The last plot that named nothing but its code, if it may be of the target that is named now.
    plotBefore(last, code, i) {
        const plot = last.get(code);
        if (plot === undefined || !this.isNear(plot, i)) return undefined;
        last.delete(code);
        return plot;
    }

    isNear(before, i) {
        const gap = this.time[i] - this.time[before];
        const distance = Math.hypot(this.x[i] - this.x[before], this.y[i] - this.y[before]);
        return gap <= GAP_S && distance <= FASTEST_NM_PER_S * Math.max(gap, 2);
    }

    // The first point that is not before a time.
    from(time) { return lastBefore(this.time, time) + 1; }

    // The first point that is after it.
    after(time) { return lastAtMost(this.time, time) + 1; }
}

const nameIn = (records, row, kind, value) => (4 * (records.source[row] + 1) + kind) * 2 ** 25 + value;

// A number for the target of a row, among those of its source: its address, or its track number, which stands for the
// address that it had last; else its callsign. 0 for none.
function targetName(records, row, tracks) {
    const track = records.track[row] && nameIn(records, row, 0, records.track[row]);
    if (records.address[row]) {
        const target = nameIn(records, row, 1, records.address[row]);
        if (track) tracks.set(track, target);
        return target;
    }
    if (track) return tracks.get(track) ?? track;
    return records.callsign[row] && nameIn(records, row, 2, records.callsign[row]);
}

function codeName(records, row) {
    const code = records.code[row];
    return code && !SHARED_CODES.includes(code - 1) ? nameIn(records, row, 3, code) : 0;
}

function isAscending(rows, values) {
    for (let i = 1; i < rows.length; ++i)
        if (values[rows[i]] < values[rows[i - 1]]) return false;
    return true;
}

// The last place of an ascending array whose value is less.
function lastBefore(array, value) {
    let low = 0, high = array.length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if (array[middle] < value)
            low = middle + 1;
        else
            high = middle;
    }
    return low - 1;
}
