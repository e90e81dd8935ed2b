// Takes the pictures of docs/: node viewer/screenshots.mjs ASTDUMP. Pages of the samples, in Chromium.

import {execFileSync} from 'node:child_process';
import {mkdtempSync, rmSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {dirname, join} from 'node:path';
import {fileURLToPath} from 'node:url';
import {chromium} from 'playwright-core';

const root = join(dirname(fileURLToPath(import.meta.url)), '..');
const [astdump, output = join(root, 'docs')] = process.argv.slice(2);
const directory = mkdtempSync(join(tmpdir(), 'viewer-'));

const SPLIT = ['--site', '25/12=49.8,15.5,500'];
const PICTURES = [
    {name: 'viewer-plan', sample: 'radar.pcap', size: [1600, 900], find: 'KLM5318', options: SPLIT},
    {name: 'viewer-record', sample: 'adsb.pcap', size: [1600, 900], find: '7700', opened: 3},
    {name: 'viewer-dark', sample: 'tracks.pcap', size: [1600, 900], dark: true},
    {name: 'viewer-narrow', sample: 'weather.ast', size: [420, 860]}
];

const browser = await chromium.launch({executablePath: '/usr/bin/chromium', args: ['--no-sandbox', '--disable-gpu']});
for (const {name, sample, size, dark, find, opened, options = []} of PICTURES) {
    const file = join(directory, `${name}.html`);
    execFileSync(astdump, ['--html', file, ...options, join(root, 'samples', sample)], {stdio: 'ignore'});
    const page = await browser.newPage({
        viewport: {width: size[0], height: size[1]},
        colorScheme: dark ? 'dark' : 'light'
    });
    await page.goto(`file://${file}`);
    await page.waitForFunction(() => document.documentElement.dataset.ready === 'true');
    if (find) {
        await page.fill('.search input', find);
        await page.waitForTimeout(500);
        await page.keyboard.press('Enter');
    }
    for (let i = 0; i < (opened ?? 0); ++i) await page.locator('.item summary, .item > button').nth(i).click();
    await page.waitForTimeout(500);
    await page.screenshot({path: join(output, `${name}.png`)});
    await page.close();
}
await browser.close();
rmSync(directory, {recursive: true});
