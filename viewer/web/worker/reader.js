// Reads a recording through the module into what the page shows of it.

import {BLOCK_COLUMNS, Pieces, ROW_COLUMNS, keep} from '../model/columns.js';
import {Plane} from '../model/plane.js';
import {Records} from '../model/records.js';
import {Shapes} from '../model/shapes.js';
import {Targets} from '../model/targets.js';

const STEP_OCTETS = 4 << 20;
const MOST_REPORTS = 10000; // nobody reads more one by one

const piecesOf = columns =>
    Object.fromEntries(Object.entries(columns).map(([name, {type}]) => [name, new Pieces(type)]));
const takeAll = pieces => Object.fromEntries(Object.entries(pieces).map(([name, column]) => [name, column.take()]));

export class Reader {
    constructor(viewer) {
        Object.assign(this, {viewer, texts: [''], reports: [], reportCount: 0});
        this.rows = piecesOf(ROW_COLUMNS);
        this.blocks = piecesOf(BLOCK_COLUMNS);
        this.shapes = new Pieces(Uint32Array);
    }

    // Reads on; false at the end.
    step() {
        const blocks = this.viewer.read(STEP_OCTETS);
        if (blocks > 0) this.takeColumns();
        this.takeReports();
        return blocks > 0 || this.state().phase === 'reading';
    }

    takeColumns() {
        const {viewer} = this;
        for (const [columns, pieces] of [
            [ROW_COLUMNS, this.rows],
            [BLOCK_COLUMNS, this.blocks]
        ])
            for (const [name, column] of Object.entries(columns))
                pieces[name].add(keep(column, viewer.column(column.from)));
        this.shapes.add(viewer.column('shapes'));
        for (const text of viewer.texts()) this.texts.push(text);
    }

    takeReports() {
        const reports = this.viewer.reports() ?? [];
        const room = Math.max(0, MOST_REPORTS - this.reports.length);
        this.reports.push(...reports.slice(0, room));
        this.reportCount += reports.length;
    }

    state() {
        return this.viewer.state() ?? {};
    }

    // All of it, and what can be told of it at once; numbers and texts, no objects of classes.
    finish(files) {
        const {viewer} = this;
        const records = new Records({
            columns: takeAll(this.rows),
            blocks: takeAll(this.blocks),
            sources: viewer.sources() ?? [],
            sites: viewer.sites() ?? [],
            texts: this.texts,
            files
        });
        return {
            ...modelOf(records, this.shapes.take()),
            totals: viewer.totals(),
            reports: this.reports,
            reportCount: this.reportCount,
            state: this.state()
        };
    }
}

function modelOf(records, words) {
    const plane = new Plane(records);
    const targets = new Targets(records, plane);
    const shapes = new Shapes({...records, shapes: words});
    return {records, plane, targets, shapes};
}
