
// The list of blocks, by sections that stay packed until they are opened.

// The line of a block that is always shown; fields may be blank.
const BLOCK_FIELDS = ['number', 'category', 'fault', 'file', 'counts', 'profile', 'received', 'route'];

function blockLine(fields) {
    const [number, ...others] = fields;
    return [`#${number}`, ...others].map((field, i) => field && `<span class="${BLOCK_FIELDS[i]}">${field}</span>`).join('');
}

// The lines of a section by what they begin with. Items are numbered; records hold the items themselves.
function readSection(text) {
    const types = [], shapes = [], subfields = [], items = [], blocks = [];
    let next = 0, nextSubfield = 0;
    const take = {
        T: (id, name, names) => types.push({id, name, names: names?.split('\x01')}),
        S: pieces => shapes.push(pieces.split('\x01')),
        P: (size, summary, shape, changes) =>
            subfields.push({size: Number(size), summary, shape: shapes[shape], changes}),
        D: (type, octets, summary, shape, changes) =>
            items.push({type: types[type], octets, summary, shape: shapes[shape], changes}),
        C: (type, octets, summary, count, parts = '') => {
            const there = parts.split(',').filter(Boolean).map(part => part.split(':')).map(([place, number]) =>
                [place, subfields[number === '' ? nextSubfield++ : number]]);
            items.push({type: types[type], octets, summary, count: Number(count), subfields: new Map(there)});
        },
        B: (...fields) => blocks.push({line: blockLine(fields), records: []}),
        R: (number, note, numbers) => blocks.at(-1).records.push({
            line: `Record ${number} <small>${note}</small>`,
            items: numbers === '-' ? [] : numbers.split(',').map(number => items[number === '' ? next++ : number]),
        }),
        F: line => { blocks.at(-1).fault = line; },
    };
    for (const line of text.split('\n').slice(0, -1)) {
        const [kind, ...fields] = line.split('\t');
        take[kind](...fields);
    }
    return blocks;
}

const octetsOf = digits => digits.toUpperCase().match(/../g) ?? [];

const rowsOf = (cells, count, absent) =>
    Array.from({length: Math.ceil(cells.length / count)}, (_, row) =>
        Array.from({length: count}, (_, i) => cells[row * count + i] ?? absent));

function hexTable(octets) {
    const rows = rowsOf(octets, 16, '--').map(row => `<tr><td>${row.join('</td><td>')}</td></tr>`);
    return '<table class="hex_table"><tr><th colspan=8 align="left">Octet 1</th>' +
        `<th colspan=8 align="right">Octet 16</th></tr>${rows.join('')}</table>`;
}

function bitTable(octets) {
    const bits = octet => octet === '--' ? '-'.repeat(8) : parseInt(octet, 16).toString(2).padStart(8, '0');
    const rows = rowsOf(octets, 4, '--').map((row, number) =>
        '<tr class="caption_row">' +
        row.map((octet, i) => `<th colspan=8>Octet ${number * 4 + i + 1} - ${octet}</th>`).join('') +
        `</tr><tr class="data_row"><td>${row.flatMap(octet => [...bits(octet)]).join('</td><td>')}</td></tr>`);
    return `<table class="bin_table">${rows.join('')}</table>`;
}

// Texts stand at the odd places of a shape; one that begins with a mark is a table of bits.
function viewHtml({shape, changes}) {
    if (!shape) return '';
    const pieces = [...shape];
    for (const change of changes ? changes.split('\x01') : []) {
        const [place, text] = change.split('\x02');
        pieces[2 * place + 1] = text;
    }
    return pieces.map(piece => piece[0] === '\x03' ? bitTable(octetsOf(piece.slice(1))) : piece).join('');
}

// A number of two digits shows its first, and of one that is long three are shown.
function overviewHtml({type, count, subfields}) {
    const rows = Array.from({length: count}, (_, i) => {
        const subfield = subfields.get(`${i + 1}`);
        const cells = [`${i + 1}`.slice(0, 1), type.names[2 * i], type.names[2 * i + 1],
                       `${subfield?.size ?? 0}`.slice(0, 3), subfield ? 1 : 0, subfield?.summary ?? ''];
        return `<tr${i % 2 ? ' class="even_row"' : ''}><td>${cells.join('</td><td>')}</td></tr>`;
    });
    return '<h4>Primary Subfield</h4><table class="detail_table"><tr><th>Subfield</th><th>ID</th><th>Name</th>' +
        `<th>Size</th><th>Existing</th><th>Summary</th></tr>${rows.join('')}</table><br/>`;
}

// The subfields are the last octets of their item, one behind the other.
function compoundHtml(item) {
    const octets = octetsOf(item.octets);
    let at = octets.length - [...item.subfields.values()].reduce((sum, {size}) => sum + size, 0);
    const views = [...item.subfields].map(([place, subfield]) => {
        const own = octets.slice(at, at += subfield.size);
        return `<h4>Subfield #${place} - ${item.type.names[2 * place - 1]}</h4>${bitTable(own)}<p></p>` +
            viewHtml(subfield);
    });
    return overviewHtml(item) + views.join('');
}

function itemHtml(item) {
    const octets = octetsOf(item.octets);
    const view = item.subfields ? compoundHtml(item) : viewHtml(item);
    return `<details class="item"><summary><b>${item.type.id}</b> ${item.type.name}</summary><div>${view}` +
        `<h4>Octets</h4>${hexTable(octets)}${bitTable(octets)}</div></details>`;
}

function recordHtml({line, items}) {
    const rows = items.map((item, i) =>
        `<tr${i % 2 ? ' class="even_row"' : ''}><td>${item.type.id}</td><td>${item.type.name}</td>` +
        `<td>${item.octets.length / 2}</td><td>${item.summary}</td></tr>`);
    return `<h3>${line}</h3><table class="detail_table items"><tr><th>Dataitem</th><th>Name</th><th>Size</th>` +
        `<th>Summary</th></tr>${rows.join('')}</table>${items.map(itemHtml).join('')}`;
}

class List {
    // Calls onOpen with the first row of a block that is opened, and onChoose with the row whose heading is pressed.
    constructor(sections, onOpen, onChoose) {
        Object.assign(this, {sections, onOpen, onChoose});
        this.closed = new WeakMap(); // what is in blocks that have not been opened
        this.opened = new WeakMap(); // what becomes of sections that have been
        document.addEventListener('toggle', event => this.toggled(event.target), true);
    }

    // The records may come later than the first section is opened.
    show(records) {
        this.records = records;
        this.sections.forEach((section, number) => {
            for (const block of section.querySelectorAll('.block')) this.name(block, number);
        });
    }

    toggled(element) {
        if (element.classList.contains('section') && element.open) this.openSection(element);
        if (!element.classList.contains('block') || !element.open || element.dataset.isChosen) {
            delete element.dataset.isChosen;
            return;
        }
        this.openBlock(element);
        const rows = this.rowsOf(element);
        if (rows && rows[0] < rows[1]) this.onOpen(rows);
    }

    openSection(section) {
        if (!this.opened.has(section)) this.opened.set(section, this.unpack(section));
        return this.opened.get(section);
    }

    async unpack(section) {
        const packed = section.dataset.packed;
        delete section.dataset.packed;
        const number = this.sections.indexOf(section);
        const blocks = readSection(new TextDecoder().decode(await inflate(packed)));
        const inside = make('div');
        blocks.forEach((block, i) => {
            const element = make('details', {class: 'block', 'data-block': i});
            element.innerHTML = `<summary>${block.line}</summary>`;
            this.closed.set(element, block);
            this.name(element, number);
            inside.append(element);
        });
        section.append(inside);
    }

    // Puts times and names of the records into the line of a block.
    name(element, section) {
        element.dataset.section = section;
        const category = element.querySelector('.category');
        if (!this.records || element.querySelector('.names')) return;
        const most = 4;
        const [begin, end] = this.records.rowsOf(section, Number(element.dataset.block));
        const rows = Array.from({length: Math.min(end - begin, most)}, (_, i) => begin + i);
        const names = rows.map(row => this.records.names(row).join(' ')).filter(Boolean);
        if (end - begin > most) names.push(`+ ${end - begin - most}`);
        const time = begin < end && this.records.timeKind[begin] !== TIME.received ? this.records.timeText(begin) : '';
        const rest = make('span', {class: 'rest'});
        while (category.nextSibling) rest.append(category.nextSibling);
        category.after(make('span', {class: 'time', title: 'Time of day, UTC'}, time),
                       make('span', {class: 'names'}, names.join(' · ')), rest);
    }

    openBlock(element) {
        const block = this.closed.get(element);
        if (!block) return;
        this.closed.delete(element);
        const inside = make('div');
        inside.innerHTML = block.records.map(recordHtml).join('') +
            (block.fault ? `<p class="fault">${block.fault}</p>` : '');
        for (const link of inside.querySelectorAll('a')) link.rel = 'noopener';
        element.append(inside);
        const rows = this.rowsOf(element);
        [...inside.querySelectorAll('h3')].forEach((heading, i) => {
            heading.tabIndex = -1;
            if (rows && rows[0] + i < rows[1]) this.addButton(heading, rows[0] + i);
        });
    }

    addButton(heading, row) {
        if (this.records.kind[row] === POSITION.none) return;
        const button = make('button', {type: 'button', class: 'show'}, 'Show on the plan');
        button.addEventListener('click', () => this.onChoose(row));
        heading.append(' ', button);
    }

    rowsOf({dataset: {section, block}}) {
        return this.records?.rowsOf(Number(section), Number(block));
    }

    // Opens all around a record, and brings it into sight unless the reader is to stay elsewhere.
    async go(row, stays = false) {
        const {section, block, record} = this.records.locate(row);
        const outer = this.sections[section];
        await this.openSection(outer);
        outer.open = true;
        const element = outer.querySelector(`[data-block="${block}"]`);
        if (!element.open) {
            element.dataset.isChosen = 'true';
            element.open = true;
        }
        this.openBlock(element);
        const heading = element.querySelectorAll('h3')[record];
        document.querySelector('h3.chosen')?.classList.remove('chosen');
        heading.classList.add('chosen');
        if (!stays) heading.scrollIntoView({block: 'start', behavior: 'instant'});
    }
}
