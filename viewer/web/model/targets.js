// Which rows are of one target, and the positions in the order of their times.

import {NO_CODE, NO_NUMBER} from './columns.js';
import {firstAtLeast, lastAtMost} from './arrays.js';

const GAP_S = 90; // after which a track number may be that of another target
const FASTEST_NM_PER_S = 0.5;
const SHARED_CODES = [0, 0o1000, 0o2000, 0o7000, 0o7777]; // of many targets at a time
const NONE = -1;

export class Targets {
    // of     the target of each row, numbered from 1; 0 for rows that name none
    // row    the rows that have a position, in the order of their times: the points
    // previous, next  the point before and behind each of the same target
    constructor(records, plane) {
        const order = timeOrder(records);
        this.of = new Uint32Array(records.count);
        const count = plane.x.reduce((sum, x) => sum + (isNaN(x) ? 0 : 1), 0);
        this.row = new Uint32Array(count);
        this.previous = new Int32Array(count).fill(NONE);
        this.next = new Int32Array(count).fill(NONE);
        this.time = records.time;
        this.count = 0;
        this.link(records, plane, order);
    }

    link(records, plane, order) {
        const last = new Map(), // the last point of each target by its name, or of a row without a position, its row
            tracks = new Map();
        let targets = 0;
        for (let i = 0; i < records.count; ++i) {
            const row = order ? order[i] : i;
            const isPoint = !isNaN(plane.x[row]);
            const point = isPoint ? this.count++ : NONE;
            if (isPoint) this.row[point] = row;
            const code = codeName(records, row);
            const name = targetName(records, row, tracks) || code;
            if (name === 0) continue;
            const before = last.get(name) ?? this.plotBefore(plane, last, code, row);
            this.of[row] = before?.target ?? ++targets;
            const entry = {target: this.of[row], point: isPoint ? point : (before?.point ?? NONE)};
            last.set(name, entry);
            if (!isPoint || !before || before.point === NONE) continue;
            this.next[before.point] = point;
            if (this.isNear(plane, this.row[before.point], row)) this.previous[point] = before.point;
        }
        this.targets = targets;
    }

    // The last plot that named nothing but its code, if it may be of the target that is named now.
    plotBefore(plane, last, code, row) {
        const plot = last.get(code);
        if (!plot || plot.point === NONE || !this.isNear(plane, this.row[plot.point], row)) return undefined;
        last.delete(code);
        return plot;
    }

    isNear({x, y}, before, row) {
        const gap = this.time[row] - this.time[before];
        const distance = Math.hypot(x[row] - x[before], y[row] - y[before]);
        return gap <= GAP_S && distance <= FASTEST_NM_PER_S * Math.max(gap, 2);
    }

    // The rows of a target that have a position, in the order of their times; those of the last that was asked for stay.
    trackOf(target) {
        if (this.track?.target !== target) this.track = {target, rows: this.row.filter(row => this.of[row] === target)};
        return this.track.rows;
    }

    // The first point that is not before a time.
    from(time) {
        return firstAtLeast(this.count, point => this.time[this.row[point]], time);
    }

    // The first point that is after it.
    after(time) {
        return lastAtMost(this.count, point => this.time[this.row[point]], time) + 1;
    }
}

// The rows by their times; null where they are in that order.
function timeOrder({time, count}) {
    let row = 1;
    while (row < count && time[row - 1] <= time[row]) ++row;
    if (row >= count) return null;
    return Uint32Array.from(time.keys()).sort((one, other) => time[one] - time[other] || one - other);
}

const nameIn = (records, row, kind, value) => (4 * (records.source[row] + 1) + kind) * 2 ** 32 + value;

// A number for the target of a row, among those of its source: its address, or its track number, which stands for the
// address that it had last; else its callsign. 0 for none.
function targetName(records, row, tracks) {
    const track = records.track[row] !== NO_NUMBER && nameIn(records, row, 0, records.track[row]);
    if (records.address[row] !== NO_NUMBER) {
        const target = nameIn(records, row, 1, records.address[row]);
        if (track) tracks.set(track, target);
        return target;
    }
    if (track) return tracks.get(track) ?? track;
    return records.callsign[row] && nameIn(records, row, 2, records.callsign[row]);
}

function codeName(records, row) {
    const code = records.code[row];
    return code !== NO_CODE && !SHARED_CODES.includes(code) ? nameIn(records, row, 3, code) : 0;
}
