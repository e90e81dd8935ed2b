// Files that the user has chosen, for WASI: read in slices when the module asks for them, never whole.

import {Fd, Inode, wasi} from '@bjorn3/browser_wasi_shim';

const SLICE_OCTETS = 1 << 20;

class OpenBlob extends Fd {
    constructor(blob) {
        super();
        Object.assign(this, {blob, place: 0n, begin: 0, slice: new Uint8Array(0)});
        this.reader = new FileReaderSync();
    }

    fd_fdstat_get() {
        const stat = new wasi.Fdstat(wasi.FILETYPE_REGULAR_FILE, 0);
        stat.fs_rights_base = BigInt(wasi.RIGHTS_FD_READ | wasi.RIGHTS_FD_SEEK | wasi.RIGHTS_FD_TELL);
        return {ret: wasi.ERRNO_SUCCESS, fdstat: stat};
    }

    fd_filestat_get() {
        return {ret: wasi.ERRNO_SUCCESS, filestat: statOf(this.blob, 0n)};
    }

    // Of the slice that is at hand, which a new one replaces.
    read(size, place) {
        if (place < this.begin || place >= this.begin + this.slice.length) {
            const end = Math.min(this.blob.size, place + Math.max(size, SLICE_OCTETS));
            this.slice = new Uint8Array(this.reader.readAsArrayBuffer(this.blob.slice(place, end)));
            this.begin = place;
        }
        const at = place - this.begin;
        return this.slice.slice(at, at + size);
    }

    fd_pread(size, place) {
        try {
            return {ret: wasi.ERRNO_SUCCESS, data: this.read(size, Number(place))};
        } catch {
            return {ret: wasi.ERRNO_IO, data: new Uint8Array(0)}; // changed or gone since it was chosen
        }
    }

    fd_read(size) {
        const outcome = this.fd_pread(size, this.place);
        this.place += BigInt(outcome.data.length);
        return outcome;
    }

    fd_seek(offset, whence) {
        const from = {[wasi.WHENCE_SET]: 0n, [wasi.WHENCE_CUR]: this.place, [wasi.WHENCE_END]: BigInt(this.blob.size)};
        const place = (from[whence] ?? 0n) + offset;
        if (place < 0n) return {ret: wasi.ERRNO_INVAL, offset: this.place};
        this.place = place;
        return {ret: wasi.ERRNO_SUCCESS, offset: place};
    }

    fd_tell() {
        return {ret: wasi.ERRNO_SUCCESS, offset: this.place};
    }
}

const statOf = (blob, ino) => new wasi.Filestat(ino, wasi.FILETYPE_REGULAR_FILE, BigInt(blob.size));

export class BlobFile extends Inode {
    constructor(blob) {
        super();
        this.blob = blob;
    }

    path_open() {
        return {ret: wasi.ERRNO_SUCCESS, fd_obj: new OpenBlob(this.blob)};
    }

    stat() {
        return statOf(this.blob, this.ino);
    }
}
