// What the colours of positions say: their layer, category, kind or height. Heights ascend in lightness, and the colours
// of the others can be told apart by those who see few; what has no height is grey.

import {make} from '../dom.js';
import {categoryText} from '../format.js';

const TINTS = 8;
const BANDS = [50, 100, 200, 300, 400]; // flight levels between which they lie
const KINDS = {1: 'plot', 2: 'track', 3: 'report'};

export class Tints {
    constructor(records, layers) {
        Object.assign(this, {records, layers});
        this.categories = [...new Set(records.sources.map(({category}) => category))].sort((one, other) => one - other);
        this.choose('source');
    }

    // by  source, category, kind or height
    choose(by) {
        const {records, layers, categories} = this;
        const kinds = Object.keys(KINDS).map(Number);
        const place = records.sources.map(({category}) => categories.indexOf(category));
        const ways = {
            source: {of: row => layers.ofSource[records.source[row]], names: []},
            category: {of: row => place[records.source[row]], names: categories.map(categoryText)},
            kind: {
                of: row => Math.max(0, kinds.indexOf(records.type[row]) + 1),
                names: ['other', ...Object.values(KINDS)]
            },
            height: {of: row => bandOf(records.flightLevel(row)), names: [...bandNames(), 'no height']}
        };
        Object.assign(this, {by, ...ways[by]});
    }

    // Takes over the colours of the style.
    dress(style) {
        const colour = name => style.getPropertyValue(`--${name}`).trim();
        const colours = {
            source: () => this.layers.list.map(layer => layer.colour),
            category: i => colour(`tint-${i % TINTS}`),
            kind: i => colour(`tint-${i % TINTS}`),
            height: i => colour(i > BANDS.length ? 'muted' : `height-${i}`)
        };
        this.colours = this.by === 'source' ? colours.source() : this.names.map((_, i) => colours[this.by](i));
        this.words = this.colours.map(text => {
            const [red, green, blue] = [1, 3, 5].map(at => parseInt(text.slice(at, at + 2), 16));
            return (blue << 16) | (green << 8) | red;
        });
    }

    // What they mean, but for layers, which have it beside their switches.
    show(element) {
        element.replaceChildren(
            ...this.names.map((name, i) => {
                const swatch = make('i', {'aria-hidden': 'true'});
                swatch.style.background = this.colours[i];
                return make('span', {}, swatch, name);
            })
        );
        element.hidden = this.names.length === 0;
    }
}

function bandOf(level) {
    if (isNaN(level)) return BANDS.length + 1;
    const band = BANDS.findIndex(limit => level < limit);
    return band < 0 ? BANDS.length : band;
}

function bandNames() {
    const between = BANDS.slice(1).map((limit, i) => `FL${BANDS[i]} to ${limit}`);
    return [`below FL${BANDS[0]}`, ...between, `FL${BANDS.at(-1)} and above`];
}
