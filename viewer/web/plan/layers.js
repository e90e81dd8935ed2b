// What can be switched on and off on the plan: the positions of a category and data source, its weather, its video.

import {make} from '../dom.js';
import {numberText, sourceText} from '../format.js';

const LAYER_COLOURS = 12;
export const INTENSITIES = 8; // of precipitation
const WEATHER = 8;

export class Layers {
    // The place of a source's layer, by its number; -1 for none.
    constructor(records, plane, shapes) {
        this.list = [];
        this.ofSource = new Int16Array(records.sources.length).fill(-1);
        const counts = new Uint32Array(records.sources.length);
        for (let row = 0; row < records.count; ++row) if (!isNaN(plane.x[row])) ++counts[records.source[row]];
        const drawn = records.sources.map((of, source) => ({of, source, count: counts[source]}));
        for (const shape of [...shapes.weather, ...shapes.video]) drawn[shape.source].count += shape.count;
        drawn.sort((one, other) => rankOf(one.of) - rankOf(other.of));
        for (const {of, source, count} of drawn) {
            if (count === 0) continue;
            this.ofSource[source] = this.list.length;
            this.list.push({
                name: sourceText(of),
                isWeather: of.category === WEATHER,
                count,
                visible: true,
                colour: '',
                rgb: [0, 0, 0]
            });
        }
    }

    isVisible(source) {
        return this.ofSource[source] >= 0 && this.list[this.ofSource[source]].visible;
    }

    // Takes over the colours of the style.
    dress(style) {
        this.list.forEach((layer, i) => {
            layer.colour = style.getPropertyValue(`--layer-${i % LAYER_COLOURS}`).trim();
            layer.rgb = [1, 3, 5].map(at => parseInt(layer.colour.slice(at, at + 2), 16));
            const shades = Array.from({length: INTENSITIES}, (_, i) => `var(--rain-${i})`).join(', ');
            layer.swatch?.style.setProperty(
                'background',
                layer.isWeather ? `linear-gradient(to right, ${shades})` : layer.colour
            );
        });
    }

    // Puts a switch for each layer into an element, and calls back when one is moved.
    show(element, changed) {
        element.replaceChildren();
        for (const layer of this.list) {
            layer.swatch = make('i', {'aria-hidden': 'true', class: layer.isWeather ? 'shades' : ''});
            const box = make('input', {type: 'checkbox'});
            box.checked = true;
            box.addEventListener('change', () => {
                layer.visible = box.checked;
                changed();
            });
            layer.box = box;
            element.append(
                make(
                    'label',
                    {},
                    box,
                    layer.swatch,
                    make('span', {}, layer.name),
                    make('small', {}, numberText(layer.count))
                )
            );
        }
        if (this.list.length < 3) return;
        const all = make('button', {type: 'button'}, 'All / none');
        all.addEventListener('click', () => {
            const visible = !this.list.every(layer => layer.visible);
            for (const layer of this.list) layer.box.checked = layer.visible = visible;
            changed();
        });
        element.append(all);
    }
}

const rankOf = ({category, sac = 0, sic = 0}) => (category * 256 + sac) * 256 + sic;
