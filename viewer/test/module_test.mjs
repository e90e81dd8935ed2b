// The module says what the tool says: AST_VIEWER_MODULE, AST_TOOL and AST_SAMPLES are their places; AST_RECORDINGS is
// that of further recordings, where there are any.

import assert from 'node:assert/strict';
import {spawnSync} from 'node:child_process';
import {mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {after, test} from 'node:test';
import {gzipSync} from 'node:zlib';

import {loadViewer, readAll} from './module.mjs';

const {AST_VIEWER_MODULE, AST_TOOL, AST_SAMPLES, AST_RECORDINGS} = process.env;
const made = mkdtempSync(join(tmpdir(), 'viewer-'));
after(() => rmSync(made, {recursive: true}));

const SAMPLE = join(AST_SAMPLES, 'radar.pcap');
const HALF = 0.5;
const cut = octets => octets.subarray(0, octets.length * HALF);
const flipped = (octets, place) => {
    const copy = Uint8Array.from(octets);
    copy[place] ^= 0x55;
    return copy;
};
const zstd = path => spawnSync('zstd', ['-q', '-c', path]).stdout;

function files(folder) {
    return folder
        ? readdirSync(folder, {withFileTypes: true})
              .filter(f => f.isFile())
              .map(f => join(folder, f.name))
        : [];
}

function make(name, octets) {
    const path = join(made, name);
    writeFileSync(path, octets);
    return path;
}

async function open(path, options) {
    const folder = join(path, '..');
    const viewer = await loadViewer(AST_VIEWER_MODULE, {'/in': folder});
    const error = viewer.open([`/in/${path.slice(folder.length + 1)}`], options);
    return {viewer, error};
}

async function read(path, options) {
    const {viewer, error} = await open(path, options);
    assert.equal(error, null);
    const found = {viewer, rows: 0, blocks: 0, reports: []};
    readAll(viewer, () => {
        found.rows += viewer.column('block').length;
        found.blocks += viewer.column('blockRow').length;
        found.reports.push(...viewer.reports());
    });
    return found;
}

function tool(...args) {
    const {stdout, stderr} = spawnSync(AST_TOOL, args, {encoding: 'utf8', maxBuffer: 2 ** 30});
    return {lines: stdout.split('\n').filter(Boolean), stderr};
}

const count = (length, make) => Array.from({length}, (_, i) => make(i));
// Octets that are no block the module reports, and hands out no line for.
const isOfBlock = line => !/"error":/.test(line) || /"block":/.test(line);

async function compare(path) {
    const {viewer, rows, blocks, reports} = await read(path);
    const {lines, stderr} = tool('--json', path);
    const ofBlocks = count(blocks, viewer.blockJson).join('').split('\n').filter(Boolean);
    const ofRows = count(rows, viewer.json).map(line => line.slice(0, -1));
    assert.deepEqual(ofBlocks.filter(isOfBlock), lines.filter(isOfBlock));
    assert.deepEqual(
        ofRows,
        lines.filter(line => !/"error":/.test(line))
    );
    // The tool tells alike ones together.
    for (const {kind, text, cause} of reports)
        if (kind !== 'note') assert.ok(stderr.includes(text) || stderr.includes(cause), text);
    assert.equal(
        reports.some(({kind}) => kind !== 'not ASTERIX'),
        stderr.includes(path)
    );
}

for (const path of [...files(AST_SAMPLES), ...files(AST_RECORDINGS)])
    test(`reads ${path} as the tool does`, () => compare(path));

test('unpacks as the tool does', async () => {
    const plain = readFileSync(SAMPLE);
    const packed = gzipSync(plain);
    const last = packed.length - 1;
    const inputs = {
        'a.pcap.gz': packed,
        'members.pcap.gz': Buffer.concat([
            gzipSync(plain.subarray(0, 1000)),
            gzipSync(plain.subarray(1000)),
            Buffer.alloc(9)
        ]),
        'cut.pcap.gz': cut(packed),
        'check.pcap.gz': flipped(packed, last - 6),
        'length.pcap.gz': flipped(packed, last),
        'b.pcap.zst': zstd(SAMPLE),
        'cut.pcap.zst': cut(zstd(SAMPLE))
    };
    for (const [name, octets] of Object.entries(inputs)) if (octets.length !== 0) await compare(make(name, octets));
});

test('filters as the tool does', async () => {
    const {viewer, rows} = await read(SAMPLE);
    for (const expression of ['', 'fl > 300', 'callsign = A* or squawk = 7700', 'I048/040/RHO < 50', 'latitude > 0']) {
        assert.equal(viewer.filter(expression), null);
        const marks = [];
        for (let next; (next = viewer.marks(100)).length !== 0;) marks.push(...next);
        assert.equal(marks.length, rows);
        const {lines} = tool('--json', ...(expression ? ['--where', expression] : []), SAMPLE);
        assert.deepEqual(
            count(rows, viewer.json)
                .filter((_, row) => marks[row] === 1)
                .map(line => line.slice(0, -1)),
            lines.filter(line => !/"error":/.test(line)),
            expression
        );
    }
    const {position, length, text} = viewer.filter('fl > 1 and sqawk = 7700');
    assert.deepEqual([position, length], ['fl > 1 and '.length, 'sqawk'.length]);
    assert.match(text, /did you mean squawk/);
});

test('tells what is inside records, and nothing of what there is not', async () => {
    const {viewer, rows, blocks} = await read(SAMPLE);
    for (let row = 0; row < rows; ++row) {
        const record = viewer.record(row);
        const block = viewer.block(record.block);
        assert.ok(row >= block.first_row && row < block.first_row + block.records);
        assert.equal(record.items.reduce((sum, item) => sum + item.octets.length / 2, 0) < record.octets, true);
        record.items.forEach(({id, octets}, place) => {
            const item = viewer.item(row, place);
            assert.deepEqual([item.id, item.octets], [id, octets]);
            assert.ok(item.detail.length !== 0);
        });
        assert.equal(viewer.item(row, record.items.length), null);
    }
    for (const row of [rows, 2 ** 32 - 1]) {
        assert.equal(viewer.record(row), null);
        assert.equal(viewer.item(row, 0), null);
        assert.equal(viewer.json(row), null);
        assert.equal(viewer.answers(row), null);
    }
    assert.equal(viewer.block(blocks), null);
    assert.equal(viewer.faultItem(0, 0), null);
    const {records, blocks: counted} = viewer.totals();
    assert.deepEqual([records, counted], [rows, blocks]);
});

test('gives sources places', async () => {
    const {viewer} = await read(SAMPLE);
    const {sac, sic} = viewer.sources().find(source => source.sac !== undefined);
    assert.equal(viewer.setSite(sac, sic, {latitude: 91, longitude: 0}), false);
    assert.equal(viewer.setSite(sac, sic, {latitude: 48.5, longitude: 11.25, height_m: 500}), true);
    const place = viewer.sites().find(site => site.sac === sac && site.sic === sic);
    assert.deepEqual([place.known, place.latitude, place.longitude, place.height_m], ['given', 48.5, 11.25, 500]);
    assert.equal(viewer.setSite(sac, sic, null), true);
});

test('refuses what makes no sense, and goes on', async () => {
    const viewer = await loadViewer(AST_VIEWER_MODULE, {'/in': AST_SAMPLES});
    assert.equal(viewer.state(), null);
    assert.equal(viewer.record(0), null);
    assert.equal(viewer.read(1), 0);
    const NOT_FOUND = 2;
    assert.deepEqual(viewer.open(['/in/none.pcap']), {code: NOT_FOUND, text: 'none.pcap: No such file or directory'});
    for (const options of [{framing: 'x'}, {categories: 'x'}, {sites: 'x'}, {framing: 3}, []])
        assert.equal(viewer.open(['/in/radar.pcap'], options).code, 1, JSON.stringify(options));
    assert.equal(viewer.open([]).code, 1);
    assert.notEqual(viewer.open(['udp://127.0.0.1:1']), null);
    assert.equal(viewer.state(), null);
    assert.equal(viewer.open(['/in/radar.pcap', '/in/adsb.pcap']), null);
    readAll(viewer);
    assert.equal(viewer.state().phase, 'ended');
});
