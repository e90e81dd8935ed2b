// Whether engines that others wrote find in tables what the JSON of the same recordings says.
// usage: tables_test.mjs ASTDUMP SIMULATE_RADAR TREE; with AST_RECORDINGS set, the recordings there, too

import { DuckDBInstance } from '@duckdb/node-api';
import { tableFromIPC } from 'apache-arrow';
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { basename, join } from 'node:path';
import polars from 'nodejs-polars';

const [tool, simulate, tree] = process.argv.slice(2);
const work = mkdtempSync(join(tmpdir(), 'tables-'));
const file = (name) => join(work, name);
const sample = (name) => join(tree, 'samples', name);
const database = await (await DuckDBInstance.create(':memory:')).connect();

// What the tool writes to standard output; damage in what it reads is no failure.
function astdump(...options) {
    try {
        return execFileSync(tool, options, { maxBuffer: 2 ** 30, stdio: ['ignore', 'pipe', 'pipe'] });
    } catch (failure) {
        assert.equal(failure.status, 1, String(failure.stderr));
        return failure.stdout;
    }
}

async function ask(sql) {
    return (await database.runAndReadAll(sql)).getRowObjectsJson();
}

function records(path, ...options) {
    const lines = astdump('--json', ...options, path).toString().trim().split('\n');
    return lines.filter((line) => line).map((line) => JSON.parse(line)).filter((record) => !record.error);
}

// ---- All fields of a category ----

// What JSON leaves out is null in a table, and so is what holds nothing else.
function withoutNulls(value) {
    if (Array.isArray(value)) return value.length === 0 ? null : value.map(withoutNulls);
    if (value === null || typeof value !== 'object') return value;
    const members = Object.entries(value).map(([name, each]) => [name, withoutNulls(each)]);
    const left = members.filter(([, each]) => each !== null);
    return left.length === 0 ? null : Object.fromEntries(left);
}

// A number has as many decimals in JSON as tell it from others.
function isSameNumber(number, shown) {
    const decimals = (String(shown).split('.')[1] ?? '').length;
    return Math.abs(number - shown) <= 0.501 * 10 ** -Math.max(decimals, 1);
}

function compare(value, shown, path) {
    if (value !== null && typeof value === 'object' && typeof shown !== 'object')
        value = value[typeof shown === 'number' ? 'value' : 'octets']; // of what else holds others
    if (typeof value === 'number' && typeof shown === 'number' && isSameNumber(value, shown)) return;
    const isText = typeof value === 'string' && typeof shown === 'string';
    if (isText && value.length === 255 && shown.startsWith(value)) return; // the most that a table has
    if (value === null || shown === null || typeof value !== 'object' || typeof shown !== 'object')
        return assert.equal(value, shown, path);
    for (const name of new Set([...Object.keys(value), ...Object.keys(shown)]))
        compare(value[name] ?? null, shown[name] ?? null, `${path}/${name}`);
}

// Of a line of JSON, and of the columns in front of those of the items.
const besideItems = 'file block record received time source destination offset category profile ambiguous implausible octets RFS';

function itemsOf(record) {
    const items = Object.entries(record).filter(([name]) => !besideItems.split(' ').includes(name));
    return withoutNulls(Object.fromEntries(items)) ?? {};
}

async function hasAllFields(path) {
    const shown = new Map(); // by category
    for (const record of records(path)) {
        if (!shown.has(record.category)) shown.set(record.category, []);
        shown.get(record.category).push(record);
    }
    for (const [category, expected] of shown) {
        astdump('--category', String(category), '--columns', 'all', '--write', file('all.parquet'), path);
        const rows = await ask(`select to_json(t) as json from '${file('all.parquet')}' t`);
        assert.equal(rows.length, expected.length, `${path}, category ${category}`);
        rows.forEach(({ json }, i) => {
            const row = JSON.parse(json);
            assert.equal(row.block, expected[i].block);
            compare(itemsOf(row), itemsOf(expected[i]), `${basename(path)}, category ${category}, row ${i}: `);
        });
    }
}

// ---- The common quantities ----

// Of each column, how many values there are, and their sum, or, of texts, how many different ones.
async function figuresOf(table) {
    const figures = {};
    for (const { column_name: name, column_type: type } of await ask(`describe select * from ${table}`)) {
        const sum = type === 'DOUBLE' ? `sum("${name}")` : type === 'INTEGER' || type === 'BOOLEAN' ? `sum("${name}"::int)` : `count(distinct "${name}")`;
        const [{ count, of_all }] = await ask(`select count("${name}") as count, ${sum} as of_all from ${table}`);
        figures[name] = [Number(count), Number(of_all ?? 0)];
    }
    return figures;
}

function isNear(one, other, path) {
    assert.ok(Math.abs(one - other) <= 1e-9 * Math.max(1, Math.abs(one)), `${path}: ${one} and ${other}`);
}

function compareFigures(figures, name, column, values) {
    const there = values.filter((value) => value !== null);
    assert.equal(there.length, figures[column][0], `${name}, ${column}`);
    if (column === 'timestamp') return; // of which some have only milliseconds
    const isSummed = ['number', 'boolean'].includes(typeof there[0]);
    const ofAll = isSummed ? there.reduce((sum, value) => sum + Number(value), 0) : new Set(there.map(String)).size;
    isNear(ofAll, figures[column][1], `${name}, ${column}`);
}

async function isReadAlike(path) {
    for (const format of ['parquet', 'arrow', 'csv']) astdump('--write', file(`common.${format}`), path);
    const figures = await figuresOf(`'${file('common.parquet')}'`);
    const arrow = tableFromIPC(readFileSync(file('common.arrow')));
    const stream = tableFromIPC(astdump('--arrow', path));
    const frames = [polars.readParquet(file('common.parquet')), polars.readIPC(readFileSync(file('common.arrow')))];
    for (const column of Object.keys(figures)) {
        for (const table of [arrow, stream]) compareFigures(figures, 'apache-arrow', column, [...table.getChild(column)]);
        for (const frame of frames) compareFigures(figures, 'polars', column, frame.getColumn(column).toArray());
    }
    const [{ rows, levels }] = await ask(`select count(*) as rows, sum(fl) as levels from read_csv('${file('common.csv')}')`);
    assert.equal(Number(rows), arrow.numRows);
    isNear(levels ?? 0, figures.fl[1], 'CSV');
    return figures;
}

// Against what JSON says of plots: sums are of numbers that are rounded there.
async function isAsTheJsonSays() {
    const figures = await isReadAlike(sample('radar.pcap'));
    const all = records(sample('radar.pcap'));
    const said = (item, field) => all.map((record) => (field ? record[item]?.[field] : record[item]) ?? null).filter((value) => value !== null);
    assert.equal(figures.category[0], all.length);
    assert.equal(figures.squawk[1], new Set(said('I070', 'MODE3A')).size);
    assert.equal(figures.icao24[1], new Set(said('I220')).size);
    for (const [column, values] of [['range_nm', said('I040', 'RHO')], ['fl', said('I090', 'FL')], ['track_number', said('I161', 'TRN')]]) {
        assert.equal(figures[column][0], values.length, column);
        assert.ok(Math.abs(figures[column][1] - values.reduce((a, b) => a + b, 0)) <= 0.001 * values.length, column);
    }
}

// ---- What tables are like ----

// Groups of 100,000 rows, the same octets from any number of threads, and what lets readers pass over groups.
async function comesInGroups() {
    execFileSync(simulate, ['--seed', '25', '--aircraft', '200', '--size', '6M', '--output', file('large.pcap')]);
    for (const format of ['parquet', 'arrow', 'csv'])
        for (const jobs of ['1', '3']) astdump('--jobs', jobs, '--write', file(`${jobs}.${format}`), file('large.pcap'));
    for (const format of ['parquet', 'arrow', 'csv'])
        assert.ok(readFileSync(file(`1.${format}`)).equals(readFileSync(file(`3.${format}`))), format);
    const groups = await ask(`select distinct row_group_id as id, row_group_num_rows as rows from parquet_metadata('${file('1.parquet')}') order by id`);
    assert.ok(groups.length > 1);
    for (const { rows } of groups.slice(0, -1)) assert.equal(Number(rows), 100000);
    const chunks = await ask(`select path_in_schema as name, stats_min_value as least, stats_max_value as greatest, stats_null_count as nulls, row_group_id as id from parquet_metadata('${file('1.parquet')}')`);
    for (const { name, least, greatest, nulls, id } of chunks) {
        const range = `row_number > ${id * 100000} and row_number <= ${(Number(id) + 1) * 100000}`;
        const [of] = await ask(`select min("${name}")::varchar as least, max("${name}")::varchar as greatest, count(*) - count("${name}") as nulls from (select *, row_number() over () as row_number from '${file('1.parquet')}') where ${range}`);
        if (name === 'timestamp' || name === 'squawk' || name === 'fl' || name === 'track_number')
            assert.deepEqual([least, greatest, nulls], [of.least, of.greatest, of.nulls], `${name} of group ${id}`);
    }
    await isReadAlike(file('large.pcap'));
}

async function tellsUnits() {
    astdump('--columns', 'fl,I048/020/SIM', '--write', file('units.arrow'), '--write', file('units.parquet'), sample('radar.pcap'));
    const told = tableFromIPC(readFileSync(file('units.arrow'))).schema.fields.map((field) => Object.fromEntries(field.metadata));
    const codes = { 0: 'Actual target report', 1: 'Simulated target report' };
    assert.deepEqual(told, [{ unit: 'FL', title: 'Flight level' }, { codes: JSON.stringify(codes) }]);
    const [{ value }] = await ask(`select decode(value) as value from parquet_kv_metadata('${file('units.parquet')}') where key = 'columns'`);
    assert.deepEqual(JSON.parse(value), { fl: { title: 'Flight level', unit: 'FL' }, 'I048/020/SIM': { title: '', codes } });
}

// Blocks of category 048 that are whole, that end too early, and that have no LEN.
async function hasReports() {
    writeFileSync(file('damaged'), Buffer.from('3000060800533000080800530801300002', 'hex'));
    astdump('--columns', 'reports', '--write', file('reports.parquet'), file('damaged'));
    const rows = await ask(`select "offset", category, damaged, reason from '${file('reports.parquet')}'`);
    assert.deepEqual(rows, [
        { offset: '6', category: 48, damaged: true, reason: 'category 048: I048/070 runs past the end of the block' },
        { offset: '14', category: 48, damaged: true, reason: 'category 048: LEN is less than the block header' },
    ]);
}

// The question in the README, and its answer.
async function answersTheReadme() {
    const readme = readFileSync(join(tree, 'README.md'), 'utf8');
    const [, made, sql, answer] = readme.match(/--write (\w+\.parquet).*?```sql\n(.*?)```.*?```\n(.*?)```/s);
    astdump('--write', file(made), sample('adsb.pcap'));
    const rows = await ask(sql.replace(`'${made}'`, `'${file(made)}'`));
    const lines = [Object.keys(rows[0]), ...rows.map((row) => Object.values(row))].map((cells) => cells.join(' '));
    assert.deepEqual(answer.trim().split('\n').map((line) => line.trim().replace(/ +/g, ' ')), lines);
}

try {
    const recordings = process.env.AST_RECORDINGS;
    const shared = recordings ? readdirSync(recordings).filter((name) => name.startsWith('cat_')).map((name) => join(recordings, name)) : [];
    for (const path of ['radar.pcap', 'adsb.pcap', 'tracks.pcap', 'categories.ast', 'weather.ast'].map(sample)) await hasAllFields(path);
    for (const path of shared) await hasAllFields(path);
    for (const path of [sample('adsb.pcap'), sample('tracks.pcap'), ...shared]) await isReadAlike(path);
    await isAsTheJsonSays();
    await comesInGroups();
    await tellsUnits();
    await hasReports();
    await answersTheReadme();
} finally {
    rmSync(work, { recursive: true });
}
