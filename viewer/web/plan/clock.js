// The time that the plan shows: a slider over the recording, how much before it is seen, and a clock that runs.

import {extremes} from '../model/arrays.js';
import {clockText, dateText} from '../format.js';

const ALL = Infinity;
const RATES = [1, 2, 5, 10, 30, 60, 300];
const PLAY_S = 30; // how long the whole recording should play, about

export class Clock {
    constructor(element, records, onChange) {
        this.element = element;
        this.onChange = onChange;
        const find = selector => element.querySelector(selector);
        Object.assign(this, {
            slider: find('input[type=range]'),
            button: find('.play'),
            text: find('output'),
            span: find('.span'),
            rate: find('.rate')
        });
        if (!records.hasTimes) {
            element.hidden = true;
            return;
        }
        [this.first, this.last] = extremes(records.time);
        this.isDated = records.isDated && dateText(this.first) !== dateText(this.last);
        this.now = this.last;
        this.slider.min = this.first;
        this.slider.max = this.last;
        this.slider.disabled = this.button.disabled = this.first === this.last;
        this.slider.step = 'any';
        this.rate.value = RATES.find(rate => (this.last - this.first) / rate <= PLAY_S) ?? RATES.at(-1);
        find('.track path').setAttribute('d', densityPath(records.time, this.first, this.last));
        this.listen();
        this.show();
    }

    listen() {
        this.slider.addEventListener('input', () => {
            this.now = Number(this.slider.value);
            this.show();
        });
        this.span.addEventListener('change', () => this.show());
        this.button.addEventListener('click', () => (this.running ? this.stop() : this.start()));
    }

    start() {
        if (this.now >= this.last) this.now = this.first;
        if (Number(this.span.value) === ALL && this.last - this.first > 120) this.span.value = '60';
        this.running = true;
        this.label();
        let before = performance.now();
        const tick = at => {
            if (!this.running) return;
            this.now = Math.min(this.last, this.now + (Math.max(0, at - before) / 1000) * Number(this.rate.value));
            before = at;
            this.show();
            if (this.now >= this.last) this.stop();
            else requestAnimationFrame(tick);
        };
        requestAnimationFrame(tick);
    }

    stop() {
        this.running = false;
        this.label();
    }

    label() {
        this.button.setAttribute('aria-pressed', this.running);
        this.button.setAttribute('aria-label', this.running ? 'Pause' : 'Play');
    }

    // So that a time is among those that are shown.
    include(time) {
        const span = Number(this.span.value);
        if (this.element.hidden || (time <= this.now && time >= this.now - span)) return;
        this.now = time;
        this.show();
    }

    show() {
        const span = Number(this.span.value);
        this.slider.value = this.now;
        this.slider.setAttribute('aria-valuetext', `${clockText(this.now, 0)} UTC`);
        this.text.textContent = `${this.isDated ? `${dateText(this.now)} ` : ''}${clockText(this.now, 1)} UTC`;
        this.onChange(this.now - span, this.now, span !== ALL);
    }
}

// How many records there are over the time, as an outline of bars in a box of 240 by 1.
function densityPath(times, first, last) {
    const bars = 120,
        width = 240 / bars;
    const counts = new Uint32Array(bars);
    for (const time of times) ++counts[Math.min(bars - 1, Math.floor(((time - first) / (last - first || 1)) * bars))];
    const most = extremes(counts)[1];
    return Array.from(counts, (count, i) => `M${i * width} 1v${-count / most}h${width}v${count / most}z`).join('');
}
