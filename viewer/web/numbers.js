// The numbers of a recording: totals by category, what is lost, and what was reported of it.

import {make} from './dom.js';
import {categoryText, countText, numberText} from './format.js';

const MOST_REPORTS = 500; // as elements
const COLUMNS = ['blocks', 'records', 'items', 'octets', 'damaged'];

function row(title, numbers) {
    return make(
        'tr',
        {},
        make('th', {scope: 'row'}, title),
        ...COLUMNS.map(name => make('td', {}, numberText(numbers[name] ?? 0)))
    );
}

function totalsTable(totals) {
    const titles = ['Category', ...COLUMNS].map(name =>
        make('th', {scope: 'col'}, name[0].toUpperCase() + name.slice(1))
    );
    return make(
        'table',
        {class: 'totals'},
        make('tr', {}, ...titles),
        ...totals.categories.map(category => row(categoryText(category.category), category)),
        row('all', totals)
    );
}

// "2 blocks damaged, 12 octets: ..."
function causeText({text, count, octets}) {
    const what = [count > 1 ? `${numberText(count)} times` : '', octets ? countText(octets, 'octet') : ''].filter(
        Boolean
    );
    return what.length > 0 ? `${text} (${what.join(', ')})` : text;
}

function causesOf(totals) {
    const byKind = Map.groupBy ? Map.groupBy(totals.causes ?? [], ({kind}) => kind) : new Map();
    return [...byKind].map(([kind, causes]) =>
        make(
            'p',
            {class: kind === 'damaged' || kind === 'lost' ? 'fault' : ''},
            `${kind[0].toUpperCase()}${kind.slice(1)}: ${causes.map(causeText).join('; ')}`
        )
    );
}

// onBlock is called with the number of the block that a report is about.
function reportsOf(reports, count, namesFiles, onBlock) {
    if (count === 0) return [];
    const lines = reports.slice(0, MOST_REPORTS).map(({file, text: words, block}) => {
        const text = namesFiles && file ? `${file}: ${words}` : words;
        if (block === undefined) return make('li', {}, text);
        const button = make('button', {type: 'button'}, text);
        button.addEventListener('click', () => onBlock(block));
        return make('li', {}, button);
    });
    if (count > lines.length) lines.push(make('li', {}, `and ${countText(count - lines.length, 'more report')}`));
    return [
        make('details', {class: 'reports'}, make('summary', {}, countText(count, 'report')), make('ol', {}, ...lines))
    ];
}

export function showNumbers(element, {records, totals, reports, reportCount}, about, onBlock) {
    const said = [
        ['Lost', about?.lost],
        ['Not supported', about?.not_supported],
        ['Not ASTERIX', about?.not_asterix]
    ]
        .filter(([, text]) => text)
        .map(([title, text]) => make('p', {class: title === 'Lost' ? 'fault' : ''}, `${title}: ${text}`));
    element.replaceChildren(
        totalsTable(totals),
        ...(about ? said : causesOf(totals)),
        ...reportsOf(reports, reportCount, records.files.length > 1, onBlock)
    );
}
