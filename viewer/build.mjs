// Builds the page: node viewer/build.mjs [MODULE [PAGE]]. One file, which loads nothing: its scripts and the module stand
// in it, packed, and its policy names the scripts by their SHA-256.

import {execFileSync} from 'node:child_process';
import {createHash} from 'node:crypto';
import {mkdirSync, readFileSync, writeFileSync} from 'node:fs';
import {dirname, join} from 'node:path';
import {fileURLToPath} from 'node:url';
import {constants, deflateRawSync} from 'node:zlib';
import {build} from 'esbuild';
import {base85} from './base85.mjs';
import {coastOctets} from './coast.mjs';

const here = dirname(fileURLToPath(import.meta.url));
const output = join(here, '..', 'build', 'viewer');
const [module = join(output, 'viewer.wasm'), page = join(output, 'viewer.html')] = process.argv.slice(2);

const web = name => join(here, 'web', name);
const read = name => readFileSync(web(name), 'utf8');
const compress = octets => deflateRawSync(octets, {level: constants.Z_BEST_COMPRESSION, memLevel: 9});
const pack = octets => base85(compress(octets));
// The module is most of the page, and zstd, which the worker knows anyway, makes it a fifth smaller.
const packTightly = file => base85(execFileSync('zstd', ['--ultra', '-22', '--quiet', '--stdout', file]));
const hashOf = script => `'sha256-${createHash('sha256').update(script).digest('base64')}'`;

async function bundle(name) {
    const {outputFiles} = await build({
        entryPoints: [web(name)],
        bundle: true,
        minify: true,
        write: false,
        format: 'iife',
        target: 'chrome110',
        charset: 'utf8',
        legalComments: 'none'
    });
    return outputFiles[0].text;
}

async function style() {
    const {outputFiles} = await build({entryPoints: [web('page.css')], minify: true, write: false});
    return outputFiles[0].text;
}

const [scripts, worker] = await Promise.all([bundle('main.js'), bundle('worker/main.js')]);
const boot = read('boot.js');
const parts = {
    hashes: `${hashOf(boot)} ${hashOf(scripts)}`,
    style: await style(),
    module: packTightly(module),
    coast: pack(coastOctets()),
    worker: pack(worker),
    scripts: compress(scripts).toString('base64'),
    boot
};
mkdirSync(dirname(page), {recursive: true});
const text = read('index.html').replace(/@(\w+)@/g, (_, name) => parts[name]);
writeFileSync(page, text);
console.log(
    `${page}: ${text.length} octets, of them ${parts.module.length} the module, ` +
        `${parts.coast.length} coasts, ` +
        `${parts.worker.length + parts.scripts.length} scripts`
);
