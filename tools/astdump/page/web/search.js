
// Looks for callsigns, addresses, codes and track numbers.

const MOST_RESULTS = 200;

// Whether each row has all the words, and which have. A word is a part of a callsign, the start of an address, a code,
// or a track number.
function findRows(records, text) {
    const words = text.toUpperCase().split(/\s+/).filter(Boolean);
    if (words.length === 0) return null;
    const tests = words.map(word => testFor(records, word));
    const marks = new Uint8Array(records.count);
    const rows = [];
    for (let row = 0; row < records.count; ++row) {
        if (!tests.every(test => test(row))) continue;
        marks[row] = 1;
        rows.push(row);
    }
    return {marks, rows};
}

function testFor(records, word) {
    const callsigns = new Set();
    records.texts.forEach((text, i) => i > 0 && text.toUpperCase().includes(word) && callsigns.add(i));
    const isHex = /^[0-9A-F]{2,6}$/.test(word);
    const least = isHex ? parseInt(word.padEnd(6, '0'), 16) + 1 : 0;
    const most = isHex ? parseInt(word.padEnd(6, 'F'), 16) + 1 : -1;
    const code = /^[0-7]{4}$/.test(word) ? parseInt(word, 8) + 1 : -1;
    const track = /^#?\d{1,5}$/.test(word) ? parseInt(word.replace('#', ''), 10) + 1 : -1;
    return row => callsigns.has(records.callsign[row]) || records.code[row] === code || records.track[row] === track ||
        (records.address[row] >= least && records.address[row] <= most && least > 0);
}

class Search {
    // Calls onFound with the marks of the rows that are found, null for all, and onChoose with the row that is gone to,
    // and whether it is by a step.
    constructor(form, records, onFound, onChoose) {
        Object.assign(this, {records, onFound, onChoose, rows: [], at: -1});
        const find = selector => form.querySelector(selector);
        Object.assign(this, {input: find('input'), count: find('output'), list: find('ol'), back: find('.back'),
                             on: find('.on')});
        this.input.addEventListener('input', () => {
            clearTimeout(this.timer);
            this.timer = setTimeout(() => this.find(), records.count > 20000 ? 150 : 0);
        });
        this.input.addEventListener('keydown', event => event.key === 'Escape' && this.clear());
        form.addEventListener('submit', event => {
            event.preventDefault();
            this.step(1);
        });
        this.back.addEventListener('click', () => this.step(-1));
        this.list.addEventListener('click', event => {
            const button = event.target.closest('button');
            if (button) this.go(Number(button.dataset.at));
        });
        // The results cover what stands below them: they are only there as long as the keys are with the search.
        form.addEventListener('focusin', () => { this.list.hidden = this.rows.length === 0; });
        form.addEventListener('focusout', event => { this.list.hidden = !form.contains(event.relatedTarget); });
        this.find();
    }

    clear() {
        this.input.value = '';
        this.find();
    }

    find() {
        const found = findRows(this.records, this.input.value);
        this.rows = found?.rows ?? [];
        this.at = -1;
        this.onFound(found?.marks ?? null);
        this.back.disabled = this.on.disabled = this.rows.length === 0;
        this.list.hidden = this.rows.length === 0;
        this.list.replaceChildren(...this.rows.slice(0, MOST_RESULTS).map((row, at) => this.result(row, at)));
        this.tell(found);
    }

    result(row, at) {
        const {records} = this;
        const level = records.level[row] ? levelText(records.level[row]) : '';
        const button = make('button', {type: 'button', 'data-at': at}, make('b', {}, records.timeText(row, 1)),
                            make('span', {}, records.names(row).join(' · ')),
                            make('small', {}, [level, sourceText(records.sources[records.source[row]])].join(' ')));
        return make('li', {}, button);
    }

    step(step) {
        const {length} = this.rows;
        if (length > 0) this.go((this.at + step + length + (this.at < 0 && step < 0)) % length, true);
    }

    go(at, isStep = false) {
        this.at = at;
        this.onChoose(this.rows[at], isStep);
        this.list.querySelector('[aria-current]')?.removeAttribute('aria-current');
        const button = this.list.querySelector(`[data-at="${at}"]`);
        button?.setAttribute('aria-current', 'true');
        button?.scrollIntoView({block: 'nearest'});
        this.tell(true);
    }

    tell(found) {
        const {length} = this.rows;
        const place = this.at < 0 ? '' : `${(this.at + 1).toLocaleString('en')} of `;
        this.count.textContent = found ? place + (length === 0 ? 'nothing found' : countText(length, 'record')) : '';
    }
}
