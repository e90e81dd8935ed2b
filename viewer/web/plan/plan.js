// The plan that people see and move: its canvas, what the pointer and the keys do, and the record that is chosen.

import {make} from '../dom.js';
import {digits, placeText, sourceText} from '../format.js';
import {RADIAN} from '../model/stations.js';
import {Drawing} from './drawing.js';
import {View, boundsOf} from './view.js';

const REACH_PX = 12; // how near to a position a click must be
const MOST_FITTED = 100000;

export class Plan {
    constructor(element, model) {
        Object.assign(this, model);
        this.element = element;
        this.canvas = element.querySelector('canvas');
        this.drawing = new Drawing(this.canvas, model);
        this.view = new View();
        this.scene = {
            from: -Infinity,
            to: Infinity,
            begin: 0,
            end: this.targets.count,
            labels: true,
            trails: true,
            fades: false,
            found: null,
            chosenRows: null,
            chosen: -1,
            minutes: 0
        };
        this.onOpen = this.onChosen = () => {};
        this.tip = element.querySelector('.tip');
        this.readout = element.querySelector('.readout');
        this.listen();
        this.layers.show(element.querySelector('.layers'), () => this.changed());
        this.dress();
        // A canvas that gets another size is empty, and observers are called after what was asked for before the frame.
        this.sizes = new ResizeObserver(() => {
            this.resize();
            this.draw();
        });
        this.sizes.observe(this.canvas.parentElement);
        this.resize();
        this.fit();
        element.querySelector('.note').textContent = this.plane.note();
    }

    end() {
        this.sizes.disconnect();
        cancelAnimationFrame(this.frame);
    }

    dress() {
        this.drawing.dress();
        this.changed();
    }

    resize() {
        const {clientWidth: width, clientHeight: height} = this.canvas.parentElement;
        if (width === 0 || (width === this.view.width && height === this.view.height)) return;
        this.view.resize(width, height);
        this.drawing.resize(width, height);
        this.changed();
    }

    // Draws before the next frame, however often it is asked for.
    changed() {
        this.frame ??= requestAnimationFrame(() => {
            this.frame = null;
            this.draw();
        });
    }

    draw() {
        this.drawing.draw(this.view, this.scene, this.covered());
    }

    // What stands on the canvas, and hides what is drawn there.
    covered() {
        const map = this.canvas.getBoundingClientRect();
        return [...this.element.querySelectorAll('.legend, .tools, .profile')].map(element => {
            const {left, top, width, height} = element.getBoundingClientRect();
            return {x: left - map.left, y: top - map.top, width, height};
        });
    }

    // How much room the legend takes, above or beside the rest, whichever is less.
    spare() {
        const [, legend] = this.covered();
        return legend.height / this.view.height < legend.width / this.view.width
            ? {above: legend.height}
            : {beside: legend.width};
    }

    fit() {
        const step = Math.max(1, Math.floor(this.targets.count / MOST_FITTED));
        const rows = this.targets.row.filter((_, i) => i % step === 0);
        const xs = Array.from(rows, row => this.plane.x[row]),
            ys = Array.from(rows, row => this.plane.y[row]);
        for (const [source, x, y] of this.shapes.extent()) {
            const [left, bottom] = this.drawing.stationOf(source);
            xs.push(left + x);
            ys.push(bottom + y);
        }
        for (const [x, y] of this.plane.places.values()) {
            xs.push(x);
            ys.push(y);
        }
        if (xs.length > 0) this.view.fit(boundsOf(xs, ys), this.spare());
        this.changed();
    }

    // Shows a span of time; trails that do not hold all of it fade.
    showTimes(from, to, fades) {
        Object.assign(this.scene, {from, to, fades, begin: this.targets.from(from), end: this.targets.after(to)});
        this.changed();
    }

    // Marks of rows, null for all: those that are found are brighter, and only those that are chosen are drawn.
    showFound(found) {
        this.scene.found = found;
        this.changed();
    }

    showOnly(chosenRows) {
        this.scene.chosenRows = chosenRows;
        this.changed();
    }

    // Puts a ring around a record, and brings it into the window if it is outside.
    choose(row) {
        this.scene.chosen = row;
        this.onChosen(row);
        if (!isNaN(this.plane.x[row]) && !this.view.isInside(this.plane.x[row], this.plane.y[row]))
            this.view.centre(this.plane.x[row], this.plane.y[row]);
        this.changed();
    }

    // The rows of the positions that are within the window, and not left out.
    shownRows() {
        const {begin, end, chosenRows} = this.scene;
        const {targets, plane, layers, records, view} = this;
        return targets.row
            .subarray(begin, end)
            .filter(
                row =>
                    layers.isVisible(records.source[row]) &&
                    chosenRows?.[row] !== 0 &&
                    view.isInside(plane.x[row], plane.y[row], 0)
            );
    }

    // The row of the nearest position within reach, the last of equals; -1 for none.
    rowAt(left, top) {
        const {targets, view, layers, plane, records} = this;
        const {chosenRows} = this.scene;
        const [x, y] = view.toPlane(left, top);
        let nearest = -1,
            least = (REACH_PX / view.scale) ** 2;
        for (let i = this.scene.begin; i < this.scene.end; ++i) {
            const row = targets.row[i];
            const distance = (plane.x[row] - x) ** 2 + (plane.y[row] - y) ** 2;
            if (distance > least || !layers.isVisible(records.source[row]) || chosenRows?.[row] === 0) continue;
            nearest = row;
            least = distance;
        }
        return nearest;
    }

    listen() {
        const {canvas} = this;
        const pointers = new Map();
        const place = event => {
            const box = canvas.getBoundingClientRect();
            return {left: event.clientX - box.left, top: event.clientY - box.top};
        };
        canvas.addEventListener('pointerdown', event => {
            canvas.setPointerCapture(event.pointerId);
            pointers.set(event.pointerId, place(event));
            if (pointers.size === 1) this.moved = 0;
            if (this.ruler.isOn || event.shiftKey) this.ruler.begin(this.view.toPlane(...Object.values(place(event))));
            else this.ruler.clear();
            this.changed();
        });
        canvas.addEventListener('pointermove', event => {
            const now = place(event),
                before = pointers.get(event.pointerId);
            if (!before) return this.point(now);
            if (this.ruler.from) return this.measureTo(now);
            this.drag(pointers, event.pointerId, before, now);
        });
        canvas.addEventListener('pointerup', event => {
            pointers.delete(event.pointerId);
            if (this.moved < 4 && !this.ruler.from) this.click(place(event));
        });
        canvas.addEventListener('pointercancel', event => pointers.delete(event.pointerId));
        canvas.addEventListener('pointerleave', () => this.point(null));
        canvas.addEventListener(
            'wheel',
            event => {
                event.preventDefault();
                const lines = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? 30 : 1;
                const {left, top} = place(event);
                this.zoom(Math.exp(-event.deltaY * lines * 0.0015), left, top);
            },
            {passive: false}
        );
        canvas.addEventListener('keydown', event => this.press(event));
        for (const button of this.element.querySelectorAll('[data-key]'))
            button.addEventListener('click', () => this.act(button.dataset.key));
    }

    // One pointer moves the plan; two also draw it out.
    drag(pointers, id, before, now) {
        const others = [...pointers].filter(([other]) => other !== id).map(([, point]) => point);
        if (others.length > 0) {
            const [pivot] = others;
            const span = point => Math.hypot(point.left - pivot.left, point.top - pivot.top);
            if (span(before) > 0) this.view.zoom(span(now) / span(before), pivot.left, pivot.top);
            this.moved = Infinity;
        } else {
            this.view.move(now.left - before.left, now.top - before.top);
            this.moved += Math.abs(now.left - before.left) + Math.abs(now.top - before.top);
        }
        pointers.set(id, now);
        this.changed();
    }

    measureTo({left, top}) {
        this.ruler.to = this.view.toPlane(left, top);
        this.readout.textContent = this.ruler.text();
        this.changed();
    }

    zoom(factor, left, top) {
        this.view.zoom(factor, left, top);
        this.changed();
    }

    click({left, top}) {
        const row = this.rowAt(left, top);
        if (row < 0) return;
        this.choose(row);
        this.onOpen(row);
    }

    // Says what lies under the pointer.
    point(at) {
        const row = at ? this.rowAt(at.left, at.top) : -1;
        this.canvas.style.cursor = row < 0 ? '' : 'pointer';
        this.tip.hidden = row < 0;
        if (row >= 0) {
            this.tip.replaceChildren(...describe(this.records, row).map(line => make('div', {}, line)));
            const right = at.left > this.view.width / 2;
            this.tip.style.cssText =
                `top: ${Math.min(at.top + 12, this.view.height - 90)}px; ` +
                (right ? `right: ${this.view.width - at.left + 12}px` : `left: ${at.left + 12}px`);
        }
        this.readout.textContent = at ? this.placeAt(at) : '';
    }

    placeAt({left, top}) {
        const [x, y] = this.view.toPlane(left, top);
        const bearing = (Math.atan2(x, y) / RADIAN + 360) % 360;
        const place = this.plane.placeOf(x, y);
        const polar = `${Math.hypot(x, y).toFixed(2)} NM ${digits(Math.floor(bearing), 3)}°`;
        return place ? `${polar} · ${placeText(place)}` : polar;
    }

    // Latitude and longitude of a point of the canvas.
    placeOn(left, top) {
        return this.plane.placeOf(...this.view.toPlane(left, top));
    }

    // Chooses the next of the targets that are seen, from the left to the right, and says which it is.
    step(step) {
        const rows = this.drawing
            .newest(this.view, this.scene)
            .sort((one, other) => one.left - other.left)
            .map(({row}) => row);
        if (rows.length === 0) return;
        const before = rows.indexOf(this.scene.chosen);
        const row = rows[before < 0 ? 0 : (before + step + rows.length) % rows.length];
        this.choose(row);
        this.readout.textContent = describe(this.records, row).join(' · ');
    }

    setRuler(isOn) {
        this.ruler.isOn = isOn;
        if (!isOn) this.ruler.clear();
        this.element.querySelector('[data-key=r]').setAttribute('aria-pressed', isOn);
    }

    press(event) {
        if (event.ctrlKey || event.metaKey || event.altKey || !this.act(event.key)) return;
        event.preventDefault();
    }

    act(key) {
        const step = 60;
        const actions = {
            '+': () => this.zoom(1.5),
            '=': () => this.zoom(1.5),
            '-': () => this.zoom(1 / 1.5),
            0: () => this.fit(),
            ArrowLeft: () => this.view.move(step, 0),
            ArrowRight: () => this.view.move(-step, 0),
            ArrowUp: () => this.view.move(0, step),
            ArrowDown: () => this.view.move(0, -step),
            r: () => this.setRuler(!this.ruler.isOn),
            Escape: () => this.setRuler(false),
            n: () => this.step(1),
            p: () => this.step(-1),
            Enter: () => this.scene.chosen >= 0 && this.onOpen(this.scene.chosen)
        };
        if (!(key in actions)) return false;
        actions[key]();
        this.changed();
        return true;
    }
}

// A few lines on a record.
function describe(records, row) {
    const source = sourceText(records.sources[records.source[row]]);
    const height = [records.levelText(row), records.timeText(row)].filter(Boolean).join(' · ');
    return [records.names(row).join(' · '), height, source].filter(Boolean);
}
