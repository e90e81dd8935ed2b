// The page in Chromium, as people use it: node --test page_test.mjs, with the page in AST_VIEWER_PAGE or where it is
// built. Nothing may be reported on the console.

import assert from 'node:assert/strict';
import {mkdtempSync, readFileSync, rmSync, writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {tmpdir} from 'node:os';
import {dirname, join} from 'node:path';
import {after, before, test} from 'node:test';
import {fileURLToPath} from 'node:url';
import {chromium} from 'playwright-core';
import {carrying, fileMark, packed, partOf} from './carry.mjs';

const root = join(dirname(fileURLToPath(import.meta.url)), '..', '..');
const viewer = process.env.AST_VIEWER_PAGE ?? join(root, 'build', 'viewer', 'viewer.html');
const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
const sample = name => readFileSync(join(root, 'samples', name));

const HOSTILE = '"><img src=x onerror=hacked()><script>hacked()<\u2215script>';
const DAMAGED = Buffer.from('300006c0190c', 'hex'); // a record that breaks off

let browser, page, directory;
const complaints = [];

before(async () => {
    directory = mkdtempSync(join(tmpdir(), 'viewer-'));
    browser = await chromium.launch({
        executablePath: process.env.AST_CHROMIUM ?? '/usr/bin/chromium',
        args: ['--no-sandbox', '--disable-gpu']
    });
    page = await open(viewer);
});

after(async () => {
    await browser?.close();
    rmSync(directory, {recursive: true, force: true});
});

async function open(file) {
    const opened = await browser.newPage({viewport: {width: 1600, height: 900}});
    opened.setDefaultTimeout(8000);
    opened.on('console', message => complaints.push(message.text()));
    opened.on('pageerror', error => complaints.push(String(error)));
    opened.on('request', request => /^(file|blob|data):/.test(request.url()) || complaints.push(request.url()));
    await opened.goto(`file://${file}`);
    return opened;
}

const isReady = of => of.waitForFunction(() => document.documentElement.dataset.ready === 'true');

async function choose(...files) {
    await page.setInputFiles(
        '.files',
        files.map(([name, buffer]) => ({name, buffer, mimeType: ''}))
    );
    await isReady(page);
}

const texts = (selector, of = page) => of.locator(selector).allTextContents();
const shown = selector => page.locator(selector).filter({visible: true});
const recording = (ask, argument) =>
    page.evaluate(
        `((recording, argument) => (${ask})(recording, argument))(viewer.recording, ${JSON.stringify(argument)})`
    );

async function axeFindings() {
    // The page lets no script run but its own, so that this one goes around its policy.
    const session = await page.context().newCDPSession(page);
    await session.send('Runtime.evaluate', {expression: axe});
    const {result} = await session.send('Runtime.evaluate', {
        expression: `axe.run().then(({violations}) => JSON.stringify(violations.map(({id, nodes}) => [id, nodes.map(n => n.html)])))`,
        awaitPromise: true
    });
    return JSON.parse(result.value);
}

test('an empty page asks for recordings', async () => {
    assert.deepEqual(await texts('.invitation'), ['Drop recordings here']);
    assert.equal(await shown('.plan').count(), 0);
    assert.deepEqual(await axeFindings(), []);
});

test('what is chosen is shown, down to its bits', async () => {
    await choose([`${HOSTILE}.ast`, Buffer.concat([sample('radar.ast'), DAMAGED])]);
    assert.equal(await page.title(), `${HOSTILE}.ast`);
    assert.equal(await shown('.block').count(), 7);
    assert.equal((await texts('.block .fault')).filter(Boolean).join(), 'damaged');
    assert.match((await texts('.summary'))[0], /12:00:00 to 12:00:02 UTC$/); // of whole and of truncated times
    assert.deepEqual(await axeFindings(), []);
    for (let block = 0; block < 7; ++block) {
        await page.locator(`[data-block="${block}"] .line`).click();
        await page.locator(`[data-block="${block}"] .record h4`).first().waitFor();
        for (const summary of await page.locator(`[data-block="${block}"] .item > summary`).all())
            await summary.click();
        await page.waitForFunction(
            block =>
                [...document.querySelectorAll(`[data-block="${block}"] .item`)].every(
                    item => item.lastElementChild.tagName !== 'SUMMARY'
                ),
            block
        );
        const of = selector => texts(`[data-block="${block}"] ${selector}`);
        assert.equal((await of('.hex_table')).length, (await of('.item summary b')).length);
        if (block === 1) {
            assert.ok((await of('.line .names')).join().includes('DLH4AB 3C4A12 2345 #420'));
            assert.deepEqual((await of('.line .time')).join(), '12:00:01.500');
            assert.ok((await of('td')).includes('MODE-S ROLL CALL'));
            assert.ok((await of('tr')).includes('3SAMAmplitude of (M)SSR Reply11-186 LSB=DBM (published: -70 dBm)'));
            assert.ok((await of('h5')).includes('Subfield #3 - Amplitude of (M)SSR Reply'));
            assert.ok((await of('th')).includes('Octet 1 - C4'));
            assert.ok((await of('pre'))[0].includes('"category":48,'));
        }
        const links = await page
            .locator(`[data-block="${block}"] a`)
            .evaluateAll(all => all.map(({href, rel}) => [href, rel]));
        // 9320676 and 2656393 in units of 180 / 2^25 degrees.
        if (block === 4)
            assert.ok(links.some(([href]) => href === 'https://www.google.com/maps/place/50.000002,14.250003'));
        assert.ok(links.every(([, rel]) => rel === 'noopener'));
        if (block === 6) assert.match((await of('p.fault')).join(), /^Octet 6 of the block: I048\/140 /);
        await page.locator(`[data-block="${block}"] .line`).click();
    }
    assert.match((await texts('.numbers p')).join(), /damaged|Lost/i);
    // Of several files, each report says of which it is.
    await choose(['whole.ast', sample('radar.ast')], ['cut.ast', sample('radar.ast').subarray(0, 40)]);
    assert.match((await texts('.reports li')).join(), /^cut\.ast: /);
});

test('a radar is drawn, and gives what is asked of it', async () => {
    await page.evaluate(octets => {
        const transfer = new DataTransfer();
        transfer.items.add(new File([Uint8Array.from(atob(octets), c => c.charCodeAt(0))], 'radar.pcap'));
        document.body.dispatchEvent(new DragEvent('drop', {dataTransfer: transfer, bubbles: true, cancelable: true}));
    }, sample('radar.pcap').toString('base64'));
    await page.waitForFunction(() => document.title === 'radar.pcap');
    await isReady(page);
    assert.match((await texts('.summary'))[0], /^425 records · categories 034, 048 · 1 data source · /);
    assert.equal(await recording(({targets}) => targets.count), 177);
    assert.deepEqual(await texts('.totals tr:last-child > *'), ['all', '374', '425', '2,933', '11,072', '0']);
    assert.deepEqual(await axeFindings(), []);
    const rows = await page.locator('.top > *, .controls > *').evaluateAll(all =>
        all
            .map(element => element.getBoundingClientRect())
            .filter(({height}) => height > 0)
            .map(({top, height}) => Math.round((top + height / 2) / 20))
    );
    assert.equal(new Set(rows).size, 1, 'the top is one row');
    const clock = await page
        .locator('.clock > *')
        .evaluateAll(all =>
            all
                .map(element => element.getBoundingClientRect())
                .map(({top, height}) => Math.round((top + height / 2) / 20))
        );
    assert.equal(new Set(clock).size, 1, 'the clock is one row');
});

test('a click on a target opens its record', async () => {
    const [x, y] = await recording(({plan, plane, targets}) => {
        const {left, top} = plan.canvas.getBoundingClientRect();
        const row = targets.row[targets.count - 1];
        const [right, down] = plan.view.toScreen(plane.x[row], plane.y[row]);
        return [left + right, top + down];
    });
    await page.mouse.click(x, y);
    await page.locator('.record.chosen h4').waitFor();
    assert.ok(await page.locator('.record.chosen h4').isVisible());
    await page.locator('.record.chosen .show').click();
    assert.ok(
        await recording(({plan, plane}) => plan.view.isInside(plane.x[plan.scene.chosen], plane.y[plan.scene.chosen]))
    );
});

test('the search lists aircraft, and goes to them', async () => {
    const search = page.locator('.search input');
    const asked = async text => {
        await search.fill(text);
        await page.waitForFunction(text => viewer.recording.search.input.value === text, text);
        await page.waitForTimeout(30);
        return texts('.search li b');
    };
    const callsigns = await recording(({records}) => records.texts.filter(Boolean).map(text => text.trim()));
    const start = callsigns[0].slice(0, 3);
    const expected = callsigns.filter(callsign => callsign.startsWith(start)).length;
    assert.equal((await asked(`${start.toLowerCase()}*`)).length, expected);
    assert.equal((await asked(`*${start.slice(1)}`)).length, 0);
    const emergency = await asked('7700');
    assert.equal(emergency.length, 1);
    assert.match((await texts('.search output'))[0], /^1 target, \d+ records$/);
    await search.press('Enter');
    assert.equal(await shown('.search ul').count(), 0, 'the list closes');
    await page.locator('.record.chosen').waitFor();
    assert.equal(await recording(({records, plan}) => records.code[plan.scene.chosen]), 0o7700);
    assert.ok(await recording(({records, plan, clock}) => records.time[plan.scene.chosen] <= clock.now));
    await search.fill('');
});

test('a filter is that of the tool, and its mistakes are marked', async () => {
    const filter = page.locator('.filter input');
    await filter.fill('category=48 and flx>100');
    await page.locator('.mistake mark').waitFor();
    assert.deepEqual(await texts('.mistake mark'), ['flx']);
    await filter.fill('squawk=7700');
    await page.waitForFunction(() => viewer.recording.plan.scene.chosenRows);
    const rows = await recording(({records}) => records.code.reduce((sum, code) => sum + (code === 0o7700), 0));
    assert.equal((await texts('.filter output'))[0], `${rows} records`);
    assert.equal((await recording(({list}) => list.window.heights.count)) > 0, true);
    assert.ok((await texts('.block .names')).every(line => line.includes('7700')));
    await filter.fill('');
    await page.waitForFunction(() => !viewer.recording.plan.scene.chosenRows);
    await page.selectOption('.chooser .category', '48');
    assert.deepEqual(await texts('.chooser .blocks'), ['134 of 374 blocks']);
    assert.ok((await texts('.block .category')).every(category => category === '048'));
    await page.selectOption('.chooser .category', '');
});

test('the clock chooses what is seen, and plays', async () => {
    await page.selectOption('.clock .span', '5');
    await page.locator('.clock input[type=range]').evaluate(slider => {
        slider.value = Number(slider.min) + 10;
        slider.dispatchEvent(new Event('input'));
    });
    const [from, to] = await recording(({plan, targets, records}) =>
        [plan.scene.begin, plan.scene.end - 1].map(point => records.time[targets.row[point]] - records.time[0])
    );
    assert.ok(from >= 5 && to <= 10 && to > from, `${from} to ${to}`);
    await page.locator('.play').click();
    await page.waitForFunction(() => viewer.recording.clock.now > viewer.recording.clock.first + 11);
    await page.locator('.play').click();
    assert.equal(await page.locator('.play').getAttribute('aria-label'), 'Play');
    await page.selectOption('.clock .span', 'Infinity');
    await page.locator('canvas').press('n');
    assert.match((await texts('.readout'))[0], /FL\d/);
});

test('what is seen can be coloured, foretold, linked and kept', async () => {
    await page.selectOption('.legend .by', 'height');
    const band = await recording(
        ({records, tints}) =>
            tints.names[tints.of(records.level.findIndex((_, row) => records.flightLevel(row) === 350))]
    );
    assert.equal(band, 'FL300 to 400');
    assert.ok((await texts('.tints span')).includes('FL300 to 400'));
    await page.selectOption('.legend .minutes', '5');
    assert.equal(await recording(({plan}) => plan.scene.minutes), 5);
    assert.match((await texts('.profile .plots p')).join(), /Height FL .*Speed kt /);
    const download = async name => {
        const [file] = await Promise.all([page.waitForEvent('download'), page.locator(`.files-of .${name}`).click()]);
        return readFileSync(await file.path(), 'latin1');
    };
    const rows = await recording(({plan}) => plan.shownRows().length);
    const csv = (await download('csv')).trimEnd().split('\n');
    assert.equal(csv.length, rows + 1);
    assert.match(csv.join('\n'), /\n12:00:\d\d\.\d{3},48,025\/012,[A-Z0-9]+,[0-9A-F]{6},[0-7]{4},/);
    assert.ok((await download('png')).startsWith('\x89PNG'));
    await page.locator('.files-of .link').click();
    const {hash} = new URL(page.url());
    assert.match(hash, /scale=.*row=\d+/);
});

test('ranges are measured, heights chosen, and own lines drawn', async () => {
    await choose(['tracks.pcap', sample('tracks.pcap')]);
    const [left, top, scale] = await recording(({plan}) => {
        const {left, top} = plan.canvas.getBoundingClientRect();
        return [...plan.view.toScreen(0, 0).map((at, i) => at + [left, top][i]), plan.view.scale];
    });
    await page.locator('[data-key=r]').click();
    await page.mouse.move(left, top);
    await page.mouse.down();
    await page.mouse.move(left + 100, top);
    await page.mouse.up();
    // From the centre to the east, where ranges and bearings are true.
    assert.equal((await texts('.readout'))[0], `${(100 / scale).toFixed(2)} NM 090°`);
    await page.locator('canvas').press('Escape');
    const all = await recording(({plan}) => plan.shownRows().length);
    await page.locator('.lowest').fill('300');
    const high = await recording(({plan, records}) => Array.from(plan.shownRows(), row => records.flightLevel(row)));
    assert.ok(high.length > 0 && high.length < all && high.every(level => level >= 300));
    await page.locator('.lowest').fill('');
    const picture = () => recording(({plan}) => (plan.draw(), plan.canvas.toDataURL()));
    const before = await picture();
    const line = {
        type: 'Feature',
        geometry: {
            type: 'LineString',
            coordinates: [
                [14, 49],
                [15, 51]
            ]
        }
    };
    const asFile = (name, text) => ({name, buffer: Buffer.from(text), mimeType: ''});
    await page.setInputFiles('.files', [asFile('sector.geojson', JSON.stringify(line))]);
    await page.waitForFunction(() => viewer.recording.ground.paths.own);
    assert.notEqual(await picture(), before);
    await page.setInputFiles('.files', [asFile('broken.geojson', '{')]);
    await page.waitForFunction(() => !document.querySelector('.trouble').hidden);
    assert.match((await texts('.trouble'))[0], /^broken\.geojson: /);
});

test('a station without a place is given one', async () => {
    await choose(['radar.pcap', sample('radar.pcap')]);
    await page.locator('.placing input').fill('48.25, 200');
    await page.locator('.placing button').click();
    assert.equal(await page.locator('.placing input').getAttribute('aria-invalid'), 'true');
    await page.locator('.placing input').fill('48.25, -11.5');
    await page.locator('.placing button').click();
    await page.waitForFunction(() => viewer.recording?.plane.centre.isKnown);
    assert.match((await texts('.note'))[0], /^Centre: 025\/012, 48\.2500° N 11\.5000° W\./);
    // The filter of the module knows it, too.
    await page.locator('.filter input').fill('within 400nm of 48.25,-11.5');
    await page.waitForFunction(() => document.querySelector('.filter output').textContent === '177 records');
    await page.locator('.filter input').fill('');
});

test('a station is dragged to its place', async () => {
    const elsewhere = Buffer.from(sample('radar.pcap'));
    await choose(['tracks.pcap', sample('tracks.pcap')], ['radar.pcap', elsewhere]);
    const marker = await page.locator('.homeless span').boundingBox();
    const [left, top] = await recording(({plan, plane}) => {
        const {left, top} = plan.canvas.getBoundingClientRect();
        const [right, down] = plan.view.toScreen(...plane.project(50, 14));
        return [left + right, top + down];
    });
    await page.mouse.move(marker.x + 5, marker.y + 5);
    await page.mouse.down();
    await page.mouse.move(left, top, {steps: 3});
    await page.mouse.up();
    await page.waitForFunction(() => viewer.recording?.plane.stations.size > 0);
    const [latitude, longitude] = await recording(({plane}) => [...plane.stations.values()][0].place);
    assert.ok(Math.abs(latitude - 50) < 0.05 && Math.abs(longitude - 14) < 0.05, `${latitude} ${longitude}`);
});

test('weather and radar video are drawn', async () => {
    await choose(['weather.ast', sample('weather.ast')]);
    // Whether a layer puts anything on the plan, seen by switching it off.
    const drawn = await recording(({plan, layers}) => {
        const picture = () => {
            plan.drawing.draw(plan.view, plan.scene, []);
            return plan.canvas.toDataURL();
        };
        const whole = picture();
        return layers.list.map(layer => {
            layer.visible = false;
            const without = picture();
            layer.visible = true;
            return [layer.name.slice(0, 3), without !== whole];
        });
    });
    assert.deepEqual(drawn, [
        ['008', true],
        ['240', true]
    ]);
});

test('a page with a recording in it shows it', async () => {
    const BLOCKS = [...blocksOf(sample('radar.ast'))];
    const routes = [{version: 4, from: ['10.0.0.1', 8600], to: ['239.1.2.3', 8601]}];
    const datagrams = BLOCKS.map((octets, i) => ({
        time: 1393332227000000000n + BigInt(i) * 1000000n,
        route: 0,
        octets
    }));
    const file = join(directory, 'carried.html');
    const about = {
        title: HOSTILE,
        files: ['a.pcap'],
        sites: [{sac: 25, sic: 12, latitude: 48, longitude: 11, known: 'given'}],
        reports: [{kind: 'damaged', file: 'a.pcap', text: `a.pcap: ${HOSTILE}`}]
    };
    writeFileSync(file, carrying(readFileSync(viewer, 'utf8'), packed([fileMark, partOf(routes, datagrams)]), about));
    const carried = await open(`${file}#row=3&where=category%3D48`);
    await isReady(carried);
    await carried.waitForFunction(() => document.querySelectorAll('.block').length === 1);
    assert.deepEqual(await texts('.filter output', carried), ['2 records']);
    await carried.locator('.filter input').fill('');
    await carried.waitForFunction(() => document.querySelectorAll('.block').length === 6);
    assert.match((await texts('.block .rest', carried))[0], /10\.0\.0\.1:8600/);
    assert.match((await texts('.note', carried))[0], /025\/012, 48\.0000° N 11\.0000° E/);
    assert.deepEqual(await texts('.reports li', carried), [`a.pcap: ${HOSTILE}`]);
    await carried.close();
});

function* blocksOf(octets) {
    for (let at = 0; at < octets.length; at += octets.readUInt16BE(at + 1))
        yield octets.subarray(at, at + octets.readUInt16BE(at + 1));
}

test('long lists are drawn as far as they are seen, and reading can be cancelled', async () => {
    const COPIES = 30000; // taller than an element can be
    const long = join(directory, 'long.ast');
    writeFileSync(long, Buffer.concat(Array(COPIES).fill(sample('radar.ast'))));
    await page.setInputFiles('.files', long);
    await page.locator('.cancel').click();
    await page.locator('.invitation').waitFor();
    await page.setInputFiles('.files', long);
    await page.waitForFunction(() => document.title === 'long.ast');
    await isReady(page);
    assert.equal(await recording(({records}) => records.blockCount), 6 * COPIES);
    const last = 6 * COPIES - 1;
    await page.locator('.list').evaluate(list => (list.scrollTop = list.scrollHeight));
    await page.locator(`[data-block="${last}"]`).waitFor();
    assert.ok((await page.locator('.block').count()) < 60);
    await page.locator(`[data-block="${last}"] .line`).click();
    await page.locator('.record h4').first().waitFor();
    await recording(({list, records}) => list.go(records.blocks.row[100001]));
    await page.locator('[data-block="100001"] .record h4').first().waitFor();
    await page.locator('.list').hover();
    await page.mouse.wheel(0, -300);
    await page.locator('[data-block="99998"]').waitFor();
});

test('hostile octets and names run nothing', async () => {
    let state = 12345;
    const random = () => (state = (Math.imul(state, 1103515245) + 12345) >>> 0) / 2 ** 32;
    const files = ['radar.ast', 'categories.ast', 'radar.pcap'].map((name, i) => {
        const octets = Buffer.from(sample(name));
        for (let n = 0; n < octets.length / 100; ++n) octets[Math.floor(random() * octets.length)] = random() * 256;
        const script = Buffer.from('<img src=x onerror=hacked()>');
        script.copy(octets, Math.floor(octets.length / 2));
        return [`${i}${HOSTILE}`, octets];
    });
    await page.evaluate(() => (window.hacked = () => (document.title = 'hacked')));
    await choose(...files);
    await page.locator('.block .line').evaluateAll(lines => lines.forEach(line => line.click()));
    await page.locator('.record h4').first().waitFor();
    await page.locator('.search input').fill('<img');
    await page.locator('.filter input').fill('callsign="<img src=x onerror=hacked()>"x');
    await page.locator('.mistake').waitFor();
    assert.notEqual(await page.title(), 'hacked');
    assert.equal(await page.locator('img, .view script').count(), 0);
});

test('narrow and dark, it is as readable', async () => {
    await page.emulateMedia({colorScheme: 'dark'});
    await page.setViewportSize({width: 390, height: 800});
    await choose(['radar.pcap', sample('radar.pcap')]);
    assert.deepEqual(await axeFindings(), []);
    assert.ok(
        await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth),
        'nothing is wider than the screen'
    );
});

test('nothing was reported on the console', () => assert.deepEqual(complaints, []));
