// The page: opens what stands in it, what is dropped on it, and what is chosen.

import {Client} from './client.js';
import {octetsOfBase85} from './digits.js';
import {find} from './dom.js';
import {numberText, sizeText} from './format.js';
import {writeLink} from './link.js';
import {readCoast} from './plan/ground.js';
import {RecordingView, instantiate} from './recording.js';

const PIECE = 1 << 20; // characters that are sent to the worker at once

// Unpacked when it is needed first.
async function unpacked(id) {
    const octets = octetsOfBase85(document.getElementById(id).textContent);
    return new Response(new Response(octets).body.pipeThrough(new DecompressionStream('deflate-raw'))).arrayBuffer();
}

class Page {
    constructor() {
        this.start = find('.start');
        this.hash = location.hash;
        this.own = []; // GeoJSON that was dropped
        this.module = document.getElementById('module').textContent;
        this.coast = unpacked('coast').then(octets => readCoast(new Uint8Array(octets)));
        this.script = unpacked('worker').then(octets => new TextDecoder().decode(octets));
        this.listen();
        matchMedia('(prefers-color-scheme: dark)').addEventListener('change', () => this.recording?.dress());
    }

    listen() {
        const input = find('.files');
        for (const button of document.querySelectorAll('.choose'))
            button.addEventListener('click', () => input.click());
        input.addEventListener('change', () => {
            this.openFiles([...input.files]);
            input.value = '';
        });
        find('.cancel').addEventListener('click', () => this.cancel());
        for (const name of ['dragenter', 'dragover'])
            addEventListener(name, event => {
                event.preventDefault();
                document.body.classList.add('dropping');
            });
        addEventListener('dragleave', event => event.relatedTarget || document.body.classList.remove('dropping'));
        addEventListener('drop', event => {
            event.preventDefault();
            document.body.classList.remove('dropping');
            this.openFiles([...event.dataTransfer.files]);
        });
    }

    // ---- opening ----

    // Files of GeoJSON are drawn below what is shown, now or later.
    async openFiles(all) {
        const isGeoJson = ({name}) => /\.geojson$/i.test(name);
        await this.addGround(all.filter(isGeoJson));
        const files = all.filter(file => !isGeoJson(file));
        if (files.length === 0) return;
        const octets = files.reduce((sum, {size}) => sum + size, 0);
        const title = files.length === 1 ? files[0].name : `${files[0].name} and ${files.length - 1} more`;
        return this.open({title, octets, values: {files, options: {}}});
    }

    async addGround(files) {
        for (const file of files) {
            try {
                this.own.push(JSON.parse(await file.text()));
                this.recording?.addGround(this.own.at(-1));
            } catch (error) {
                this.say(`${file.name}: ${error.message}`);
            }
        }
    }

    // The recording that stands in the page; nothing where none does.
    openCarried() {
        const element = document.getElementById('recording');
        if (!element.firstChild) return;
        const about = JSON.parse(document.getElementById('about').textContent || '{}');
        const sites = (about.sites ?? [])
            .filter(({known}) => known !== 'worked out')
            .map(({sac, sic, latitude, longitude, height_m: height}) =>
                [`${sac}/${sic}=${latitude}`, longitude, height].filter(value => value !== undefined).join(',')
            );
        return this.open({
            title: about.title ?? 'Recording',
            about,
            values: {names: about.files ?? [], options: sites.length > 0 ? {sites: sites.join(';')} : {}},
            feed: client => {
                for (const node of element.childNodes)
                    for (let at = 0; at < node.length; at += PIECE) client.send(node.substringData(at, PIECE));
                client.send('');
                element.replaceChildren();
            }
        });
    }

    async open({title, octets, about, values, feed}) {
        this.close();
        this.tell({title, octets}, {});
        const opening = (this.opening = {});
        try {
            const script = await this.script;
            if (this.opening !== opening) return;
            const client = (this.client = new Client(script, progress => this.tell({title, octets}, progress)));
            const opened = client.ask('open', {module: this.module, ...values});
            feed?.(client);
            this.show(title, await opened, {about, client, coast: await this.coast});
        } catch (error) {
            if (this.opening === opening) this.fail(`${title}: ${error.message}`);
        }
    }

    close() {
        this.opening = null;
        this.client?.end();
        this.client = null;
        this.hide();
        find('.summary').textContent = '';
        document.body.classList.remove('with-plan', 'with-recording');
        delete document.documentElement.dataset.ready;
        this.start.hidden = false;
        this.part('.drop');
    }

    hide() {
        this.recording?.end();
        this.recording = null;
        find('.view')?.remove();
        find('.controls').replaceChildren();
    }

    cancel() {
        this.close();
        document.title = find('h1').textContent = 'ASTERIX viewer';
    }

    fail(text) {
        this.cancel();
        this.say(text);
        document.documentElement.dataset.ready = 'failed';
    }

    say(text) {
        find('.trouble').textContent = text;
        find('.trouble').hidden = false;
    }

    part(shown) {
        for (const name of ['.drop', '.loading']) find(name).hidden = name !== shown;
        find('.trouble').hidden = true;
    }

    tell({title, octets}, {phase, octets_read: read = 0, blocks = 0, rows = 0}) {
        if (find('.loading').hidden) this.part('.loading');
        find('.loading .what').textContent = `Reading ${title}`;
        const bar = find('.loading progress');
        if (octets && phase !== 'arranging') Object.assign(bar, {max: octets, value: Math.min(read, octets)});
        else bar.removeAttribute('value');
        const far = [
            octets ? `${sizeText(read)} of ${sizeText(octets)}` : '',
            `${numberText(blocks)} blocks`,
            `${numberText(rows)} records`
        ];
        find('.loading .far').textContent =
            phase === 'arranging' ? 'Putting it in order' : far.filter(Boolean).join(' · ');
    }

    // ---- showing ----

    // What lies otherwise now, with all that was chosen but the part of the plan.
    showAgain(title, sent, around) {
        const chosen = new URLSearchParams(writeLink(this.recording).slice(1));
        for (const name of ['x', 'y', 'scale']) chosen.delete(name);
        this.hash = `#${chosen}`;
        this.hide();
        this.show(title, sent, around);
    }

    show(title, sent, {about, ...around}) {
        const {error} = sent.state ?? {};
        document.title = title;
        find('h1').textContent = title;
        this.start.hidden = true;
        document.body.classList.add('with-recording');
        find('.controls').append(instantiate('controls-of-recording'));
        this.start.after(instantiate('view-of-recording'));
        const reports = about?.reports
            ? {reports: about.reports, reportCount: about.report_count ?? about.reports.length}
            : {};
        this.recording = new RecordingView(
            find('.view'),
            find('.controls'),
            {...sent, ...reports},
            {
                about,
                ...around,
                onRebuilt: rebuilt => this.showAgain(title, {...sent, ...rebuilt}, {about, ...around})
            }
        );
        find('.summary').textContent = [this.recording.summary(), error?.text].filter(Boolean).join(' · ');
        for (const geoJson of this.own) this.recording.addGround(geoJson);
        // Of a link, the first recording is meant.
        if (this.hash.length > 1) this.recording.follow(this.hash);
        this.hash = '';
        document.documentElement.dataset.ready = 'true';
    }
}

const page = new Page();
window.viewer = page;
page.openCarried();
