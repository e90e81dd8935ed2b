// The records of a recording in columns: a row is a record.

import {FEET_PER_LEVEL, NO_CODE, NO_NUMBER, NOTHING, TIME, valueOf} from './columns.js';
import {lastAtMost} from './arrays.js';
import {DAY_S, addressText, clockText, codeText, levelText, trackText} from '../format.js';

const FIRST_YEAR_S = 365 * DAY_S;

export class Records {
    // columns  an array each, as ROW_COLUMNS names them
    // blocks   an array each, as BLOCK_COLUMNS names them
    // sources  {category, sac, sic} each
    // sites    where sources stand, as the module tells
    // texts    callsigns, from 1
    constructor({columns, blocks, sources, sites, texts, files}) {
        Object.assign(this, columns, {blocks, sources, sites, texts, files});
        this.count = this.time.length;
        this.blockCount = blocks.row.length;
        this.fillTimes();
    }

    // Times that run on, for all rows: one that is known modulo a day or 512 s is the one next to the last, and a record
    // without one has that of the record before it.
    fillTimes() {
        const cycles = {[TIME.ofDay]: DAY_S, [TIME.truncated]: 512};
        const {time, timeKind} = this;
        const known = kind => kind !== TIME.none && kind !== TIME.truncated;
        let first = timeKind.findIndex(kind => kind === TIME.dated || kind === TIME.received);
        this.isDated = first >= 0 && time[first] >= FIRST_YEAR_S; // else a recorder knows no date
        if (first < 0) first = timeKind.findIndex(known);
        let last = first < 0 ? NaN : time[first];
        for (let row = 0; row < this.count; ++row) {
            const cycle = cycles[timeKind[row]];
            if (timeKind[row] === TIME.none) time[row] = last;
            else if (cycle && !isNaN(last)) time[row] += cycle * Math.round((last - time[row]) / cycle);
            last = time[row];
        }
        this.hasTimes = !isNaN(last);
        if (!this.hasTimes) time.fill(0);
    }

    blockOf(row) {
        const {row: rows} = this.blocks;
        return lastAtMost(this.blockCount, block => rows[block], row);
    }

    // The rows of a block: the first, and the one behind the last.
    rowsOf(block) {
        const {row} = this.blocks;
        return [row[block], block + 1 < this.blockCount ? row[block + 1] : this.count];
    }

    // What a row is known by: callsign, address, code and track.
    names(row) {
        const names = [];
        if (this.callsign[row]) names.push(this.texts[this.callsign[row]]);
        if (this.address[row] !== NO_NUMBER) names.push(addressText(this.address[row]));
        if (this.code[row] !== NO_CODE) names.push(codeText(this.code[row]));
        if (this.track[row] !== NO_NUMBER) names.push(trackText(this.track[row]));
        return names;
    }

    timeText(row, fraction) {
        return this.timeKind[row] === TIME.none ? '' : clockText(this.time[row], fraction);
    }

    // NaN where nobody says how high.
    flightLevel(row) {
        const {level, height} = this;
        if (level[row] !== NOTHING) return valueOf('level', level[row]);
        return height[row] === NOTHING ? NaN : valueOf('height', height[row]) / FEET_PER_LEVEL;
    }

    levelText(row) {
        const {level, height} = this;
        if (level[row] !== NOTHING) return levelText(valueOf('level', level[row]));
        return height[row] === NOTHING ? '' : `${Math.round(valueOf('height', height[row]))} ft`;
    }
}
