// The module over the files that the user has chosen.

import {ConsoleStdout, Directory, File, OpenFile, PreopenDirectory, WASI} from '@bjorn3/browser_wasi_shim';
import {Viewer} from '../../module/module.mjs';
import {BlobFile} from './files.js';

const ROOT = '/recording';

// A part of a path, one of a list of lines.
// eslint-disable-next-line no-control-regex
const nameOf = file => file.name.replace(/[/\x00-\x1f]/g, '?').replace(/^\.+$/, '?') || '?';

// The module, and the paths of the files in it. Each has a directory of its own: names may be alike.
export async function loadViewer(octets, files) {
    const directories = files.map((file, place) => [`${place}`, new Directory([[nameOf(file), new BlobFile(file)]])]);
    const silent = new ConsoleStdout(() => {});
    const preopened = new PreopenDirectory(ROOT, new Map(directories));
    const wasi = new WASI([], [], [new OpenFile(new File([])), silent, silent, preopened], {debug: false});
    const viewer = await Viewer.load(octets, wasi.wasiImport, instance => wasi.initialize(instance));
    return {viewer, paths: files.map((file, place) => `${ROOT}/${place}/${nameOf(file)}`)};
}
