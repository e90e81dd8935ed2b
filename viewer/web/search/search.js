// The search: a list of the aircraft that are found, which goes when one of them is chosen.

import {make} from '../dom.js';
import {countText, numberText, sourceText} from '../format.js';
import {Identities, findRows, nearestRow} from './find.js';

const MOST_RESULTS = 200;
const MANY_ROWS = 20000;
const PATIENCE_MS = 150;

export class Search {
    // Calls onFound with the marks of the rows that are found, null for all, and onChoose with the row that is gone to,
    // and whether it is by a step. now() is the time of the clock.
    constructor(form, model, {onFound, onChoose, now}) {
        Object.assign(this, {form, records: model.records, onFound, onChoose, now, at: -1, found: null});
        this.identities = new Identities(model);
        const find = selector => form.querySelector(selector);
        Object.assign(this, {
            input: find('input'),
            count: find('output'),
            list: find('ul'),
            back: find('.back'),
            on: find('.on')
        });
        this.input.addEventListener('input', () => {
            clearTimeout(this.timer);
            this.timer = setTimeout(() => this.find(), this.records.count > MANY_ROWS ? PATIENCE_MS : 0);
        });
        this.input.addEventListener('keydown', event => this.press(event));
        this.input.addEventListener('focus', () => this.at < 0 && this.open(true));
        this.input.addEventListener('click', () => this.open(true));
        form.addEventListener('submit', event => {
            event.preventDefault();
            this.step(1);
        });
        this.back.addEventListener('click', () => this.step(-1));
        this.list.addEventListener('mousedown', event => event.preventDefault()); // keeps the keys with the search
        this.list.addEventListener('click', event => {
            const option = event.target.closest('li');
            if (option) this.choose(Number(option.dataset.at));
        });
        form.addEventListener('focusout', event => form.contains(event.relatedTarget) || this.open(false));
    }

    get results() {
        return this.found?.aircraft ?? [];
    }

    open(isOpen) {
        this.list.hidden = !isOpen || this.results.length === 0;
        this.input.setAttribute('aria-expanded', !this.list.hidden);
        if (this.list.hidden) this.input.removeAttribute('aria-activedescendant');
    }

    press(event) {
        const actions = {
            Escape: () => {
                if (!this.list.hidden) return this.open(false);
                this.input.value = '';
                this.find();
            },
            ArrowDown: () => this.point(1),
            ArrowUp: () => this.point(-1)
        };
        if (!(event.key in actions)) return;
        event.preventDefault();
        actions[event.key]();
    }

    find() {
        this.found = findRows(this.records, this.identities, this.input.value);
        this.at = this.pointed = -1;
        this.onFound(this.found?.marks ?? null);
        this.back.disabled = this.on.disabled = this.results.length === 0;
        this.list.replaceChildren(...this.results.slice(0, MOST_RESULTS).map((one, at) => this.option(one, at)));
        this.open(true);
        this.tell();
    }

    option({first, last, count}, at) {
        const {records} = this;
        const from = records.timeText(first, 0),
            to = records.timeText(last, 0);
        const times = from === to ? from : `${from} to ${to}`;
        const source = sourceText(records.sources[records.source[last]]);
        return make(
            'li',
            {id: `found-${at}`, role: 'option', 'data-at': at, 'aria-selected': false},
            make('b', {}, records.names(last).join(' · ')),
            make('span', {}, [times, records.levelText(last)].filter(Boolean).join(' · ')),
            make('small', {}, `${countText(count, 'record')} · ${source}`)
        );
    }

    // Moves the mark in the list, which Enter chooses.
    point(step) {
        if (this.list.hidden) return this.open(true);
        const {length} = this.list.children;
        this.select((this.pointed + step + length + (this.pointed < 0 && step < 0)) % length);
    }

    select(at) {
        this.pointed = at;
        this.list.querySelector('[aria-selected=true]')?.setAttribute('aria-selected', false);
        const option = this.list.children[at];
        if (!option) return;
        option.setAttribute('aria-selected', true);
        option.scrollIntoView({block: 'nearest'});
        this.input.setAttribute('aria-activedescendant', option.id);
    }

    step(step) {
        const {length} = this.results;
        if (length === 0) return;
        if (!this.list.hidden && this.pointed >= 0 && this.pointed !== this.at) return this.choose(this.pointed);
        this.choose((this.at + step + length + (this.at < 0 && step < 0)) % length, true);
    }

    // Goes to an aircraft, at the time of the clock if it is found then; the list uncovers it.
    choose(at, isStep = false) {
        this.at = at;
        this.select(at);
        this.open(false);
        const row = nearestRow(this.records, this.identities, this.found, this.results[at], this.now());
        this.onChoose(row, isStep);
        this.tell();
    }

    tell() {
        const {length} = this.results;
        const place = this.at < 0 ? '' : `${numberText(this.at + 1)} of `;
        const records = this.found ? countText(this.found.count, 'record') : '';
        if (!this.found) this.count.textContent = '';
        else
            this.count.textContent =
                length === 0 ? 'nothing found' : `${place}${countText(length, 'target')}, ${records}`;
    }
}
