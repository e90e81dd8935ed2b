// The module over directories of this machine.

import {readFile} from 'node:fs/promises';
import {WASI} from 'node:wasi';

import {Viewer} from '../module/module.mjs';

/** `folders` are the directories of the machine by those of the module. */
export async function loadViewer(path, folders) {
    const wasi = new WASI({version: 'preview1', preopens: folders});
    return Viewer.load(await readFile(path), wasi.wasiImport, instance => wasi.initialize(instance));
}

/** Reads to the end; what `take` is called for. */
export function readAll(viewer, take = () => {}, octets = 1 << 20) {
    for (;;) {
        const blocks = viewer.read(octets);
        take(viewer);
        if (blocks === 0) return;
    }
}
