// The list of blocks, and of the records in those that are opened.

import {make} from '../dom.js';
import {categoryText, countText, numberText} from '../format.js';
import {BLOCK_STATES, TIME} from '../model/columns.js';
import {firstAtLeast} from '../model/arrays.js';
import {itemParts, table} from './parts.js';
import {ListWindow} from './window.js';

const NAMED_RECORDS = 4; // in the line of a block
const MOST_RECORDS = 200; // of an opened block, until more are asked for

export class BlockList {
    // onOpen is called with the rows of a block that is opened, onChoose with the row whose heading is pressed.
    constructor(section, {records, plane}, answers, {onOpen, onChoose}) {
        Object.assign(this, {section, records, plane, answers, onOpen, onChoose, opened: new Map(), marks: null});
        this.category = section.querySelector('.category');
        this.count = section.querySelector('.blocks');
        const usual = parseFloat(getComputedStyle(section).getPropertyValue('--line-height'));
        this.window = new ListWindow(section.querySelector('.list'), usual, place => this.entry(place));
        this.offer();
        this.category.addEventListener('change', () => this.choose());
        this.choose();
    }

    offer() {
        const counts = new Map();
        for (const category of this.records.blocks.category) counts.set(category, (counts.get(category) ?? 0) + 1);
        const options = [...counts]
            .sort(([one], [other]) => one - other)
            .map(([category, count]) =>
                make('option', {value: category}, `${categoryText(category)} (${numberText(count)})`)
            );
        this.category.replaceChildren(make('option', {value: ''}, 'all'), ...options);
        this.category.closest('label').hidden = options.length < 2;
    }

    // Only the blocks of rows that are marked; null for all.
    showOnly(marks) {
        this.marks = marks;
        this.choose();
    }

    // Which blocks are in the list, by their places; null for all.
    choose() {
        const {blocks, blockCount} = this.records;
        const category = this.category.value === '' ? null : Number(this.category.value);
        this.chosen = null;
        if (category !== null || this.marks) {
            const chosen = new Uint32Array(blockCount);
            let count = 0;
            for (let block = 0; block < blockCount; ++block)
                if ((category === null || blocks.category[block] === category) && this.isMarked(block))
                    chosen[count++] = block;
            this.chosen = chosen.slice(0, count);
        }
        const count = this.chosen?.length ?? blockCount;
        this.count.textContent =
            count === blockCount
                ? countText(count, 'block')
                : `${numberText(count)} of ${countText(blockCount, 'block')}`;
        this.window.reset(count);
    }

    isMarked(block) {
        if (!this.marks) return true;
        const [begin, end] = this.records.rowsOf(block);
        for (let row = begin; row < end; ++row) if (this.marks[row]) return true;
        return false;
    }

    blockAt(place) {
        return this.chosen ? this.chosen[place] : place;
    }

    placeOf(block) {
        if (!this.chosen) return block;
        const place = firstAtLeast(this.chosen.length, at => this.chosen[at], block);
        return this.chosen[place] === block ? place : -1;
    }

    // ---- entries ----

    entry(place) {
        const block = this.blockAt(place);
        const element = make('article', {
            class: 'block',
            'data-block': block,
            'aria-posinset': place + 1,
            'aria-setsize': this.window.heights.count,
            'aria-labelledby': `block-${block}`
        });
        const isOpen = this.opened.has(block);
        const line = make('button', {type: 'button', class: 'line', id: `block-${block}`, 'aria-expanded': isOpen});
        line.append(...this.lineOf(block));
        line.addEventListener('click', () => this.toggle(block));
        element.append(make('h3', {}, line));
        if (isOpen) element.append(this.opened.get(block));
        this.answers.ask('block', block).then(
            told => told && this.complete(line, told),
            () => {}
        );
        return element;
    }

    // What is known without asking: category, state, time and names.
    lineOf(block) {
        const {records} = this;
        const [begin, end] = records.rowsOf(block);
        const named = Math.min(end, begin + NAMED_RECORDS);
        const names = [];
        for (let row = begin; row < named; ++row) names.push(records.names(row).join(' '));
        const more = end > named ? [`+ ${numberText(end - named)}`] : [];
        const hasOwnTime = begin < end && records.timeKind[begin] !== TIME.received;
        const state = records.blocks.state[block];
        return [
            make('span', {class: 'number'}, `#${numberText(block + 1)}`),
            make('span', {class: 'category'}, categoryText(records.blocks.category[block])),
            make('span', {class: 'time', title: 'Time of day, UTC'}, hasOwnTime ? records.timeText(begin) : ''),
            make('span', {class: 'names'}, [...names.filter(Boolean), ...more].join(' · ')),
            make('span', {class: 'fault'}, state === 0 ? '' : (BLOCK_STATES[state] ?? 'damaged')),
            make('span', {class: 'rest'}, ' ')
        ];
    }

    complete(line, {number, file, records, octets, profile, time, source, destination}) {
        if (number !== undefined) line.querySelector('.number').textContent = `#${numberText(number)}`;
        const counts = `${countText(records ?? 0, 'record')}, ${countText(octets, 'octet')}`;
        const isKnown = source && !/^(0\.0\.0\.0|\[?::\]?):0$/.test(source);
        const route = isKnown ? (destination ? `${source} → ${destination}` : source) : '';
        // Recorders that know no date begin with the first of all.
        const received = time?.replace(/^1970-01-01 /, '');
        const pieces = [this.records.files.length > 1 ? file : '', counts, profile, received, route].filter(Boolean);
        line.querySelector('.rest').replaceChildren(...pieces.map(text => make('span', {}, text)));
    }

    // ---- opening ----

    toggle(block) {
        const isOpen = this.opened.delete(block);
        if (!isOpen) this.open(block);
        this.redraw(block);
        if (!isOpen) this.onOpen(this.records.rowsOf(block));
    }

    redraw(block) {
        const place = this.placeOf(block);
        const hadFocus = this.window.drawn.get(place)?.contains(document.activeElement);
        this.window.redraw(place);
        if (hadFocus) this.window.drawn.get(place)?.querySelector('.line').focus({preventScroll: true});
    }

    open(block, upTo = 0) {
        const inside = make('div', {class: 'inside'});
        this.opened.set(block, inside);
        const [begin, end] = this.records.rowsOf(block);
        this.fill(inside, begin, Math.min(end, Math.max(begin + MOST_RECORDS, upTo)), end);
        this.addFault(inside, block).catch(({message}) => inside.append(make('p', {class: 'fault'}, message)));
        return inside;
    }

    fill(inside, begin, until, end) {
        for (let row = begin; row < until; ++row) if (!this.marks || this.marks[row]) inside.append(this.record(row));
        if (until === end) return;
        const more = make('button', {type: 'button', class: 'more'}, `Show ${numberText(end - until)} more records`);
        more.addEventListener('click', () => {
            more.remove();
            this.fill(inside, until, Math.min(end, until + MOST_RECORDS), end);
        });
        inside.append(more);
    }

    record(row) {
        const element = make('section', {class: 'record', 'data-row': row});
        element.filled = this.answers.ask('record', row).then(
            told => told && this.fillRecord(element, row, told),
            error => element.append(make('p', {class: 'fault'}, error.message))
        );
        return element;
    }

    fillRecord(element, row, {record, octets, profile, implausible, items}) {
        const notes = [countText(octets, 'octet'), profile, implausible ? 'implausible' : ''].filter(Boolean);
        const heading = make('h4', {tabindex: -1}, `Record ${record} `, make('small', {}, notes.join(', ')));
        if (!isNaN(this.plane.x[row])) {
            const button = make('button', {type: 'button', class: 'show'}, 'Show on the plan');
            button.addEventListener('click', () => this.onChoose(row));
            heading.append(' ', button);
        }
        element.append(heading, ...this.itemsOf(items, at => this.answers.ask('item', row, at)));
        const json = make('details', {class: 'item'}, make('summary', {}, 'JSON'));
        whenOpened(json, () => this.answers.ask('json', row).then(text => make('pre', {}, text.trimEnd())));
        element.append(json);
        element.classList.toggle('chosen', row === this.chosenRow);
    }

    itemsOf(items, ask) {
        const rows = items.map(({id, name, octets, summary}) => [id, name, `${octets.length / 2}`, summary ?? '']);
        const overview = table(['Dataitem', 'Name', 'Size', 'Summary'], rows, {class: 'detail_table items'});
        return [overview, ...items.map((item, at) => this.item(item, () => ask(at)))];
    }

    item({id, name}, ask) {
        const element = make('details', {class: 'item'}, make('summary', {}, make('b', {}, id), ` ${name}`));
        whenOpened(element, () => ask().then(told => make('div', {}, ...itemParts(told))));
        return element;
    }

    // The record that breaks off, as far as it goes.
    async addFault(inside, block) {
        if (this.records.blocks.state[block] === 0) return;
        const {fault} = (await this.answers.ask('block', block)) ?? {};
        if (!fault) return;
        const broken = make(
            'section',
            {class: 'record'},
            make('h4', {}, 'What follows ', make('small', {}, fault.kind))
        );
        if (fault.items?.length > 0)
            broken.append(...this.itemsOf(fault.items, at => this.answers.ask('faultItem', block, at)));
        broken.append(make('p', {class: 'fault'}, `Octet ${numberText(fault.octets)} of the block: ${fault.reason}`));
        inside.append(broken);
    }

    // Opens a block, and brings it into sight.
    goBlock(block) {
        if (this.placeOf(block) < 0) this.category.value = '';
        this.choose();
        if (this.placeOf(block) < 0) return;
        if (!this.opened.has(block)) this.open(block);
        this.window.go(this.placeOf(block));
        this.redraw(block);
    }

    // Opens the block of a record, and brings the record into sight unless the reader is to stay elsewhere.
    async go(row, stays = false) {
        const block = this.records.blockOf(row);
        if (this.placeOf(block) < 0) {
            this.category.value = '';
            this.choose();
        }
        const place = this.placeOf(block);
        if (place < 0) return;
        if (!this.opened.has(block)) this.open(block, row + 1);
        this.chosenRow = row;
        const top = this.section.querySelector('.record.chosen');
        top?.classList.remove('chosen');
        const element = this.opened.get(block).querySelector(`[data-row="${row}"]`);
        element?.classList.add('chosen');
        if (stays) return this.redraw(block);
        this.window.go(place);
        this.redraw(block);
        await element?.filled;
        const within = (element?.offsetTop ?? 0) - 8;
        if (within > 0) this.window.go(place, within);
    }
}

// Fills an element when it is opened first.
function whenOpened(element, ask) {
    element.addEventListener(
        'toggle',
        async () => {
            try {
                element.append(await ask());
            } catch (error) {
                element.append(make('p', {class: 'fault'}, error.message));
            }
        },
        {once: true}
    );
}
