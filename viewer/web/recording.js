// A recording that is shown: its plan, its clock, its search and its list, which know each other here.

import {Answers} from './client.js';
import {categoryText, clockText, countText, dateText} from './format.js';
import {BlockList} from './list/blocks.js';
import {extremes, revive} from './model/arrays.js';
import {Plane} from './model/plane.js';
import {Records} from './model/records.js';
import {Shapes} from './model/shapes.js';
import {Targets} from './model/targets.js';
import {stationKey} from './model/stations.js';
import {showNumbers} from './numbers.js';
import {Clock} from './plan/clock.js';
import {Ground} from './plan/ground.js';
import {Layers} from './plan/layers.js';
import {csvOf, geoJsonOf, nameAt, save} from './export.js';
import {readLink, writeLink} from './link.js';
import {Profile} from './plan/profile.js';
import {Plan} from './plan/plan.js';
import {Placing} from './plan/placing.js';
import {Ruler} from './plan/ruler.js';
import {Tints} from './plan/tints.js';
import {Filter} from './search/filter.js';
import {Search} from './search/search.js';

const WIDE = '(min-width: 1240px)';
const NARROW = '(max-width: 600px)';

// As the worker has sent it.
function modelOf({records, plane, targets, shapes}) {
    const model = {
        records: revive(Records, records),
        plane: revive(Plane, plane),
        targets: revive(Targets, targets),
        shapes: revive(Shapes, shapes)
    };
    return {...model, layers: new Layers(model.records, model.plane, model.shapes)};
}

export class RecordingView {
    // view, controls  the elements that it fills
    // coast      the lines of readCoast
    // onRebuilt  takes what lies otherwise when a station has been given a place
    constructor(view, controls, sent, {about, client, coast, onRebuilt}) {
        const model = modelOf(sent);
        Object.assign(this, model, {view, client, onRebuilt, ground: new Ground(model.plane, coast)});
        const find = selector => view.querySelector(selector);
        const answers = new Answers(client);
        document.body.classList.toggle('with-plan', this.hasPlan);
        if (this.hasPlan) this.showPlan(find('.plan'));
        this.list = new BlockList(find('.records'), model, answers, {
            onOpen: ([begin, end]) => this.opened(begin, end),
            onChoose: row => {
                this.choose(row);
                find('.plan').scrollIntoView({block: 'nearest'});
            }
        });
        this.search = new Search(controls.querySelector('.search'), model, {
            onFound: marks => this.plan?.showFound(marks),
            onChoose: (row, isStep) => {
                this.choose(row);
                // Where the list stands below the plan, stepping stays with the plan.
                this.list.go(row, isStep && !matchMedia(WIDE).matches);
            },
            now: () => this.clock?.now ?? Infinity
        });
        this.filter = new Filter(controls.querySelector('.filter'), client, marks => {
            this.marks = marks;
            this.showChosen();
            this.list.showOnly(marks);
        });
        if (this.hasPlan) this.offer(find('.plan'));
        showNumbers(find('.numbers'), sent, about, block => this.list.goBlock(block));
    }

    get hasPlan() {
        return this.layers.list.length > 0 || this.plane.places.size > 0;
    }

    showPlan(element) {
        const {records, plane, shapes, targets, layers, ground} = this;
        const tints = (this.tints = new Tints(records, layers));
        element.hidden = false;
        if (matchMedia(NARROW).matches) element.querySelector('.legend').open = false;
        this.plan = new Plan(element, {
            records,
            plane,
            shapes,
            targets,
            layers,
            ground,
            tints,
            ruler: new Ruler(plane)
        });
        this.profile = new Profile(element.querySelector('.profile'), this);
        this.plan.onChosen = row => this.profile.show(row);
        this.plan.onOpen = row => this.list.go(row);
        this.clock = new Clock(element.querySelector('.clock'), records, (from, to, fades) =>
            this.plan.showTimes(from, to, fades)
        );
        this.link(element, '.clock', this.plan.scene, ['labels', 'trails']);
        this.choices(element);
        new Placing(element, this.plan, site => this.place(site));
        this.link(element, '.switches', ground, ['showsCoast', 'showsGrid']);
        for (const box of element.querySelectorAll('.showsCoast, .showsGrid'))
            box.closest('label').hidden = !plane.centre.isKnown;
    }

    // A station stands where the user says.
    async place(site) {
        const {records, shapes, client} = this;
        await client.ask('setSite', site.sac, site.sic, site);
        const isOther = other => stationKey(other) !== stationKey(site);
        records.sites = [...records.sites.filter(isOther), {...site, known: 'given'}];
        const plane = new Plane(records);
        this.onRebuilt({records, plane, targets: new Targets(records, plane), shapes});
    }

    // Draws the rows that meet the filter and lie between the heights; those without a height only where none are given.
    showChosen() {
        if (!this.plan) return;
        const {records, marks} = this;
        const [lowest, highest] = ['.lowest', '.highest'].map(name => this.view.querySelector(name).value);
        if (lowest === '' && highest === '') return this.plan.showOnly(marks ?? null);
        const least = lowest === '' ? -Infinity : Number(lowest),
            most = highest === '' ? Infinity : Number(highest);
        const chosen = new Uint8Array(records.count);
        for (let row = 0; row < records.count; ++row) {
            const level = records.flightLevel(row);
            chosen[row] = (!marks || marks[row]) && level >= least && level <= most ? 1 : 0;
        }
        this.plan.showOnly(chosen);
    }

    // The link to what is seen, and its files.
    offer(element) {
        const rows = () => this.plan.shownRows();
        const files = {
            csv: () =>
                save(new Blob([csvOf(this, rows())], {type: 'text/csv'}), nameAt(this.records, this.plan, 'csv')),
            geojson: () => save(new Blob([geoJsonOf(this, rows())]), nameAt(this.records, this.plan, 'geojson')),
            png: () => this.plan.canvas.toBlob(blob => save(blob, nameAt(this.records, this.plan, 'png')))
        };
        for (const [name, write] of Object.entries(files))
            element.querySelector(`.files-of .${name}`).addEventListener('click', write);
        element.querySelector('.files-of .geojson').hidden = !this.plane.centre.isKnown;
        element.querySelector('.files-of .link').addEventListener('click', () => {
            history.replaceState(null, '', writeLink(this));
            navigator.clipboard?.writeText(location.href).catch(() => {});
        });
    }

    choices(element) {
        const tints = element.querySelector('.tints');
        element.querySelector('.by').addEventListener('change', event => {
            this.tints.choose(event.target.value);
            this.plan.dress();
            this.tints.show(tints);
        });
        for (const name of ['.lowest', '.highest'])
            element.querySelector(name).addEventListener('input', () => this.showChosen());
        element.querySelector('.minutes').addEventListener('change', event => {
            this.plan.scene.minutes = Number(event.target.value);
            this.plan.changed();
        });
    }

    // Boxes of the members of an object, by their classes.
    link(element, place, of, names) {
        for (const name of names)
            element.querySelector(`${place} .${name}`).addEventListener('change', event => {
                of[name] = event.target.checked;
                this.plan.changed();
            });
    }

    addGround(geoJson) {
        this.ground.add(geoJson);
        this.plan?.changed();
    }

    // Shows what a link says.
    follow(hash) {
        if (this.hasPlan) readLink(hash, this);
    }

    choose(row) {
        this.clock?.include(this.records.time[row]);
        this.plan?.choose(row);
    }

    // Of the records of a block, the first that has a position.
    opened(begin, end) {
        let row = begin;
        while (row + 1 < end && isNaN(this.plane.x[row])) ++row;
        if (row < end) this.choose(row);
    }

    dress() {
        this.plan?.dress();
        if (this.plan) this.tints.show(this.view.querySelector('.tints'));
    }

    end() {
        this.clock?.stop();
        this.plan?.end();
    }

    summary() {
        const {records} = this;
        if (records.count === 0) return records.blockCount === 0 ? 'No blocks' : 'No records';
        const categories = [...new Set(records.sources.map(({category}) => category))].sort(
            (one, other) => one - other
        );
        const sources = new Set(records.sources.map(stationKey).filter(key => key !== undefined));
        const parts = [
            countText(records.count, 'record'),
            `${categories.length === 1 ? 'category' : 'categories'} ${categories.map(categoryText).join(', ')}`,
            countText(sources.size, 'data source')
        ];
        if (records.hasTimes) parts.push(this.times());
        return parts.join(' · ');
    }

    times() {
        const {records} = this;
        const [first, last] = extremes(records.time);
        const texts = [first, last].map(time => clockText(time, 0));
        const date = records.isDated ? `${dateText(first)} ` : '';
        return `${date}${[...new Set(texts)].join(' to ')} UTC`;
    }
}

// The elements of a recording, from the templates of the page.
export function instantiate(name) {
    return document.getElementById(name).content.cloneNode(true);
}
