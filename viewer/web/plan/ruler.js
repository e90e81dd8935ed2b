// Range and bearing between two points of the plan.

import {digits} from '../format.js';
import {RADIAN, course} from '../model/stations.js';

export class Ruler {
    // isOn: whether dragging measures
    constructor(plane) {
        Object.assign(this, {plane, isOn: false, from: null, to: null});
    }

    begin(point) {
        this.from = this.to = point;
    }

    clear() {
        this.from = this.to = null;
    }

    // Range in NM and bearing in degrees: on Earth, or on the plane where it lies nowhere.
    measure() {
        const [from, to] = [this.from, this.to].map(point => this.plane.placeOf(...point));
        if (from) return course(from, to);
        const east = this.to[0] - this.from[0],
            north = this.to[1] - this.from[1];
        return {range: Math.hypot(east, north), bearing: (Math.atan2(east, north) / RADIAN + 360) % 360};
    }

    text() {
        const {range, bearing} = this.measure();
        return `${range.toFixed(2)} NM ${digits(Math.round(bearing) % 360, 3)}°`;
    }

    draw(context, view, colours, write) {
        if (!this.from) return;
        const [from, to] = [this.from, this.to].map(point => view.toScreen(...point));
        context.strokeStyle = colours.chosen;
        context.lineWidth = 1.5;
        context.setLineDash([6, 3]);
        context.beginPath();
        context.moveTo(...from);
        context.lineTo(...to);
        context.stroke();
        context.setLineDash([]);
        context.font = '600 12px system-ui, sans-serif';
        context.textAlign = 'center';
        context.textBaseline = 'bottom';
        write(this.text(), (from[0] + to[0]) / 2, (from[1] + to[1]) / 2 - 4, colours.label, colours.halo);
    }
}
