// The target that is chosen: what it is, and its height and speed over time.

import {make} from '../dom.js';
import {clockText, numberText} from '../format.js';
import {valueOf} from '../model/columns.js';
import {extremes} from '../model/arrays.js';

const WIDTH = 240;
const HEIGHT = 64;
const MOST_POINTS = 400;

const svg = (tag, attributes, ...inside) => {
    const element = document.createElementNS('http://www.w3.org/2000/svg', tag);
    for (const [name, value] of Object.entries(attributes)) element.setAttribute(name, value);
    element.append(...inside);
    return element;
};

export class Profile {
    constructor(element, {records, targets}) {
        Object.assign(this, {element, records, targets});
        element.querySelector('.close').addEventListener('click', () => (element.hidden = true));
    }

    // Of a row; nothing of one whose target has but one position.
    show(row) {
        const {records, targets, element} = this;
        const target = targets.of[row];
        const rows = target === 0 ? [] : targets.trackOf(target);
        element.hidden = rows.length < 2;
        if (element.hidden) return;
        const step = Math.ceil(rows.length / MOST_POINTS);
        const seen = Array.from(rows).filter((_, i) => i % step === 0);
        const times = [records.time[rows[0]], records.time[rows.at(-1)]];
        element.querySelector('.what').textContent = records.names(row).join(' · ');
        element.querySelector('.when').textContent =
            `${times.map(time => clockText(time, 0)).join(' to ')}, ${numberText(rows.length)} positions`;
        element
            .querySelector('.plots')
            .replaceChildren(
                ...this.plot('Height', 'FL', seen, times, row => records.flightLevel(row), 'height'),
                ...this.plot('Speed', 'kt', seen, times, row => valueOf('speed', records.speed[row]), 'speed')
            );
    }

    plot(title, unit, rows, [first, last], of, name) {
        const values = rows.map(of);
        const known = values.filter(value => !isNaN(value));
        if (known.length < 2) return [];
        const [least, most] = extremes(known);
        const margin = 2;
        let isDrawn = false;
        const path = rows.map((row, i) => {
            if (isNaN(values[i])) {
                isDrawn = false;
                return '';
            }
            const x = ((this.records.time[row] - first) / (last - first || 1)) * WIDTH;
            const y =
                margin + (most === least ? 0.5 : 1 - (values[i] - least) / (most - least)) * (HEIGHT - 2 * margin);
            const move = isDrawn ? 'L' : 'M';
            isDrawn = true;
            return `${move}${x.toFixed(1)} ${y.toFixed(1)}`;
        });
        const text = [least, most].map(value => numberText(Math.round(value)));
        const range = `${unit} ${text[0] === text[1] ? text[0] : text.join(' to ')}`;
        const drawn = svg(
            'svg',
            {viewBox: `0 0 ${WIDTH} ${HEIGHT}`, role: 'img', 'aria-label': `${title} over time, ${range}`, class: name},
            svg('path', {d: path.join('')})
        );
        return [make('p', {}, make('b', {}, title), ` ${range}`), drawn];
    }
}
