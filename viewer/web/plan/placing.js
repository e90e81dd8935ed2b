// Gives places to stations that have none: typed in, or dragged to where they are.

import {make} from '../dom.js';
import {sacSicText} from '../format.js';
import {stationKey} from '../model/stations.js';

// Degrees north and east, as "48.35, 11.79"; null for what is none.
export function placeIn(text) {
    const [latitude, longitude, ...more] = text
        .split(/[\s,;]+/)
        .filter(Boolean)
        .map(Number);
    const isPlace = Math.abs(latitude) <= 90 && Math.abs(longitude) <= 180 && more.length === 0;
    return isPlace ? {latitude, longitude} : null;
}

export class Placing {
    // onPlace is called with {sac, sic, latitude, longitude}.
    constructor(element, plan, onPlace) {
        Object.assign(this, {plan, onPlace});
        const {plane, records} = plan;
        const homeless = new Map(
            records.sources
                .filter(source => plane.homeless.has(stationKey(source)) && stationKey(source) !== undefined)
                .map(source => [stationKey(source), source])
        );
        this.sources = [...homeless.values()];
        const form = element.querySelector('.placing');
        form.hidden = this.sources.length === 0;
        form.querySelector('select').replaceChildren(
            ...this.sources.map((source, i) => make('option', {value: i}, sacSicText(source)))
        );
        form.addEventListener('submit', event => {
            event.preventDefault();
            const place = placeIn(form.querySelector('input').value);
            form.querySelector('input').setAttribute('aria-invalid', !place);
            if (place) this.put(this.sources[Number(form.querySelector('select').value)], place);
        });
        if (plane.centre.isKnown)
            element.querySelector('.homeless').replaceChildren(...this.sources.map(source => this.marker(source)));
    }

    put({sac, sic}, place) {
        this.onPlace({sac, sic, ...place});
    }

    // What is dragged onto the plan. Keys have the form.
    marker(source) {
        const marker = make(
            'span',
            {title: 'Drag to where this station is', 'aria-hidden': 'true'},
            `▲ ${sacSicText(source)}`
        );
        const move = ({clientX, clientY}) => {
            const {left, top} = this.plan.canvas.getBoundingClientRect();
            marker.style.transform = `translate(${clientX - this.from[0]}px, ${clientY - this.from[1]}px)`;
            return this.plan.placeOn(clientX - left, clientY - top);
        };
        marker.addEventListener('pointerdown', event => {
            this.from = [event.clientX, event.clientY];
            marker.setPointerCapture(event.pointerId);
        });
        marker.addEventListener('pointermove', event => marker.hasPointerCapture(event.pointerId) && move(event));
        marker.addEventListener('pointerup', event => {
            const [latitude, longitude] = move(event);
            this.put(source, {latitude, longitude});
        });
        return marker;
    }
}
