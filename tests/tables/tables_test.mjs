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
const besideItems = ['file', 'block', 'record', 'received', 'time', 'source', 'destination', 'offset', 'category',
    'profile', 'ambiguous', 'implausible', 'octets', 'RFS'];

function itemsOf(record) {
    const items = Object.entries(record).filter(([name]) => !besideItems.includes(name));
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

// Of all values of a column, which number there is: a sum, or of texts how many different ones.
const figureOfType = {
    DOUBLE: (name) => `sum("${name}")`,
    INTEGER: (name) => `sum("${name}")`,
    BOOLEAN: (name) => `sum("${name}"::int)`,
    VARCHAR: (name) => `count(distinct "${name}")`,
    'TIMESTAMP WITH TIME ZONE': () => '0', // of which some readers have only milliseconds
};

// How many values each column has, and their figure.
async function figuresOf(path) {
    const figures = {};
    for (const { column_name: name, column_type: type } of await ask(`describe select * from '${path}'`)) {
        const figure = figureOfType[type](name);
        const [row] = await ask(`select count("${name}") as count, ${figure} as figure from '${path}'`);
        figures[name] = { type, count: Number(row.count), figure: Number(row.figure ?? 0) };
    }
    return figures;
}

function isNear(one, other, what) {
    assert.ok(Math.abs(one - other) <= 1e-9 * Math.max(1, Math.abs(one)), `${what}: ${one} and ${other}`);
}

const sum = (values) => values.reduce((all, value) => all + Number(value), 0);

function compareFigures(figures, reader, name, values) {
    const { type, count, figure } = figures[name];
    const there = values.filter((value) => value !== null);
    assert.equal(there.length, count, `${reader}, ${name}`);
    if (type.startsWith('TIMESTAMP')) return;
    isNear(type === 'VARCHAR' ? new Set(there.map(String)).size : sum(there), figure, `${reader}, ${name}`);
}

async function isReadAlike(path) {
    for (const format of ['parquet', 'arrow', 'csv']) astdump('--write', file(`common.${format}`), path);
    const figures = await figuresOf(file('common.parquet'));
    const arrow = readFileSync(file('common.arrow'));
    const tables = [tableFromIPC(arrow), tableFromIPC(astdump('--arrow', path))];
    const frames = [polars.readParquet(file('common.parquet')), polars.readIPC(arrow)];
    for (const name of Object.keys(figures)) {
        for (const table of tables) compareFigures(figures, 'apache-arrow', name, [...table.getChild(name)]);
        for (const frame of frames) compareFigures(figures, 'polars', name, frame.getColumn(name).toArray());
    }
    const [csv] = await ask(`select count(*) as rows, sum(fl) as levels from read_csv('${file('common.csv')}')`);
    assert.equal(Number(csv.rows), tables[0].numRows);
    isNear(csv.levels ?? 0, figures.fl.figure, 'CSV');
    return figures;
}

// Against what JSON says of plots: sums are of numbers that are rounded there.
async function isAsTheJsonSays() {
    const figures = await isReadAlike(sample('radar.pcap'));
    const all = records(sample('radar.pcap'));
    const said = (value) => all.map(value).filter((each) => each !== undefined);
    assert.equal(figures.category.count, all.length);
    assert.equal(figures.squawk.figure, new Set(said((record) => record.I070?.MODE3A)).size);
    assert.equal(figures.icao24.figure, new Set(said((record) => record.I220)).size);
    const numbers = {
        range_nm: said((record) => record.I040?.RHO),
        fl: said((record) => record.I090?.FL),
        track_number: said((record) => record.I161?.TRN),
    };
    for (const [name, values] of Object.entries(numbers)) {
        assert.equal(figures[name].count, values.length, name);
        assert.ok(Math.abs(figures[name].figure - sum(values)) <= 0.001 * values.length, name);
    }
}

// ---- What tables are like ----

const groupRows = 100000;

// The same octets from any number of threads, and what lets readers pass over groups.
async function comesInGroups() {
    const recording = file('large.pcap');
    execFileSync(simulate, ['--seed', '25', '--aircraft', '200', '--size', '6M', '--output', recording]);
    for (const format of ['parquet', 'arrow', 'csv']) {
        for (const jobs of [1, 3]) astdump('--jobs', String(jobs), '--write', file(`${jobs}.${format}`), recording);
        assert.ok(readFileSync(file(`1.${format}`)).equals(readFileSync(file(`3.${format}`))), format);
    }
    const chunks = await ask(`select row_group_id::int as id, row_group_num_rows::int as rows, path_in_schema as name,
        stats_min_value as least, stats_max_value as greatest, stats_null_count::int as nulls
        from parquet_metadata('${file('1.parquet')}')`);
    const last = Math.max(...chunks.map(({ id }) => id));
    assert.ok(last > 0);
    for (const { id, rows, name, least, greatest, nulls } of chunks) {
        assert.ok(rows === groupRows || id === last);
        if (!['timestamp', 'squawk', 'fl', 'track_number', 'spi'].includes(name)) continue;
        const [found] = await ask(`select min("${name}")::varchar as least, max("${name}")::varchar as greatest,
            (count(*) - count("${name}"))::int as nulls
            from read_parquet('${file('1.parquet')}', file_row_number = true)
            where file_row_number // ${groupRows} = ${id}`);
        assert.deepEqual({ least, greatest, nulls }, found, `${name} of group ${id}`);
    }
    await isReadAlike(recording);
}

// A folder is one table, with columns that its folders tell.
async function isPartitioned() {
    for (const path of captures) astdump('--partition', '--write', file(`archive/${basename(path)}.parquet`), path);
    const rows = await ask(`select date::varchar as date, category::int as category, count(*)::int as count
        from read_parquet('${file('archive')}/**/*.parquet', hive_partitioning = true) group by all order by all`);
    const shown = captures.flatMap((path) => records(path)).map((record) => record.category);
    assert.deepEqual(rows, [...new Set(shown)].sort((a, b) => a - b).map((category) => (
        { date: '2024-06-01', category, count: shown.filter((each) => each === category).length })));
}

async function tellsUnits() {
    const paths = [file('units.arrow'), file('units.parquet')];
    const columns = ['--columns', 'fl,I048/020/SIM'];
    astdump(...columns, ...paths.flatMap((path) => ['--write', path]), sample('radar.pcap'));
    const codes = { 0: 'Actual target report', 1: 'Simulated target report' };
    const { fields } = tableFromIPC(readFileSync(paths[0])).schema;
    assert.deepEqual(fields.map((field) => Object.fromEntries(field.metadata)),
        [{ unit: 'FL', title: 'Flight level' }, { codes: JSON.stringify(codes) }]);
    const [pair] = await ask(`select decode(value) as value from parquet_kv_metadata('${paths[1]}')
        where key = 'columns'`);
    assert.deepEqual(JSON.parse(pair.value),
        { fl: { title: 'Flight level', unit: 'FL' }, 'I048/020/SIM': { title: '', codes } });
}

// Blocks of category 048 that are whole, that end too early, and that have no LEN.
async function hasReports() {
    writeFileSync(file('damaged'), Buffer.from('3000060800533000080800530801300002', 'hex'));
    const reports = file('reports.parquet');
    astdump('--columns', 'reports', '--write', reports, file('damaged'));
    const rows = await ask(`select "offset"::int as place, category, damaged, reason from '${reports}'`);
    assert.deepEqual(rows.map((row) => Object.values(row)), [
        [6, 48, true, 'category 048: I048/070 runs past the end of the block'],
        [14, 48, true, 'category 048: LEN is less than the block header'],
    ]);
}

// The question on the page about the libraries, and its answer.
async function answersTheLibrariesPage() {
    const page = readFileSync(join(tree, 'docs/libraries.md'), 'utf8');
    const [, made, sql, answer] = page.match(/--write (\w+\.parquet).*?```sql\n(.*?)```.*?```\n(.*?)```/s);
    astdump('--write', file(made), sample('adsb.pcap'));
    const rows = await ask(sql.replace(`'${made}'`, `'${file(made)}'`));
    const lines = [Object.keys(rows[0]), ...rows.map(Object.values)].map((cells) => cells.join(' '));
    assert.deepEqual(answer.trim().split('\n').map((line) => line.replace(/ +/g, ' ')), lines);
}

const captures = ['radar.pcap', 'adsb.pcap', 'tracks.pcap'].map(sample);
const recordings = process.env.AST_RECORDINGS;
const real = recordings ? readdirSync(recordings).filter((name) => name.startsWith('cat_')) : [];
const others = real.map((name) => join(recordings, name));

try {
    const written = ['categories.ast', 'weather.ast'].map(sample);
    for (const path of [...captures, ...written, ...others]) await hasAllFields(path);
    for (const path of [...captures.slice(1), ...others]) await isReadAlike(path);
    await isAsTheJsonSays();
    await comesInGroups();
    await isPartitioned();
    await tellsUnits();
    await hasReports();
    await answersTheLibrariesPage();
} finally {
    rmSync(work, { recursive: true });
}
