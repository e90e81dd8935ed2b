// A list of any length in an element that scrolls: only the entries that are seen are elements.

import {make} from '../dom.js';
import {Heights} from './heights.js';

const BEYOND_PX = 400; // drawn above and below what is seen
const TALLEST_PX = 8e6; // browsers have no taller elements; longer lists scroll by more than the bar moves

export class ListWindow {
    // draw(place) makes the element of an entry.
    constructor(element, usual, draw) {
        Object.assign(this, {element, usual, draw, drawn: new Map(), top: 0, bar: 0});
        this.canvas = make('div', {class: 'canvas', role: 'presentation'});
        element.replaceChildren(this.canvas);
        element.addEventListener('scroll', () => this.scrolled());
        element.addEventListener('scrollend', () => this.settle());
        this.sizes = new ResizeObserver(entries => this.measured(entries));
        new ResizeObserver(() => this.show()).observe(element);
        this.reset(0);
    }

    // So many entries, from the first one on.
    reset(count) {
        this.heights = new Heights(count, this.usual);
        for (const [, element] of this.drawn) this.drop(element);
        this.drawn.clear();
        this.top = this.bar = 0;
        this.stretch();
        this.element.scrollTop = 0;
        this.show();
    }

    get seen() {
        return this.element.clientHeight;
    }

    get most() {
        return Math.max(0, this.heights.total - this.seen);
    }

    stretch() {
        this.tall = Math.min(this.heights.total, TALLEST_PX);
        this.canvas.style.height = `${this.tall}px`;
    }

    get isLonger() {
        return this.heights.total > TALLEST_PX;
    }

    get mostBar() {
        return Math.max(1, this.tall - this.seen);
    }

    // Where a list is longer than its element can be, small steps are steps of the list, and long ones go by share.
    scrolled() {
        const {scrollTop} = this.element;
        const step = scrollTop - this.bar;
        this.bar = scrollTop;
        if (step === 0) return;
        if (!this.isLonger) this.top = scrollTop;
        else if (Math.abs(step) <= 2 * this.seen && scrollTop > 0 && scrollTop < this.mostBar)
            this.top = Math.max(0, Math.min(this.most, this.top + step));
        else this.top = (scrollTop / this.mostBar) * this.most;
        this.show();
    }

    // Brings the bar to where it belongs.
    settle() {
        if (this.isLonger) this.place(this.top);
    }

    place(top) {
        this.top = Math.max(0, Math.min(this.most, top));
        this.element.scrollTop = this.isLonger ? (this.top / this.most) * this.mostBar : this.top;
        this.bar = this.element.scrollTop;
        this.show();
    }

    show() {
        const {heights} = this;
        const first = heights.count === 0 ? 0 : heights.at(Math.max(0, this.top - BEYOND_PX));
        const last = heights.count === 0 ? -1 : heights.at(this.top + this.seen + BEYOND_PX);
        for (const [place, element] of this.drawn) {
            if ((place >= first && place <= last) || element.contains(document.activeElement)) continue;
            this.drop(element);
            this.drawn.delete(place);
        }
        for (let place = first; place <= last; ++place) if (!this.drawn.has(place)) this.add(place);
        for (const [place, element] of this.drawn) this.move(element, place);
    }

    move(element, place) {
        element.style.top = `${this.bar + this.heights.top(place) - this.top}px`;
    }

    // In the order of the places: readers and keys go through them as they stand in the document.
    add(place) {
        const element = this.draw(place);
        element.dataset.place = place;
        const next = [...this.canvas.children].find(other => Number(other.dataset.place) > place);
        this.canvas.insertBefore(element, next ?? null);
        this.drawn.set(place, element);
        this.sizes.observe(element);
    }

    drop(element) {
        this.sizes.unobserve(element);
        element.remove();
    }

    // An entry above what is seen that gets another height moves nothing that is seen.
    measured(entries) {
        let shift = 0,
            isChanged = false;
        for (const {target, borderBoxSize} of entries) {
            const place = Number(target.dataset.place);
            const height = Math.round(borderBoxSize[0].blockSize);
            if (this.drawn.get(place) !== target || height === 0) continue;
            const before = this.heights.get(place);
            const isAbove = this.heights.top(place) + before <= this.top;
            if (!this.heights.set(place, height)) continue;
            isChanged = true;
            if (isAbove) shift += height - before;
        }
        if (!isChanged) return;
        this.stretch();
        if (shift !== 0) this.place(this.top + shift);
        else this.show();
    }

    // Brings an entry into sight, at the top unless it is seen already.
    go(place, within = 0) {
        const element = this.drawn.get(place);
        if (element && this.heights.set(place, element.offsetHeight)) this.stretch();
        this.place(this.heights.top(place) + within);
        if (!this.drawn.has(place)) this.show();
        return this.drawn.get(place);
    }

    // Draws anew what is drawn of an entry.
    redraw(place) {
        const element = this.drawn.get(place);
        if (!element) return;
        this.drop(element);
        this.drawn.delete(place);
        this.add(place);
        this.move(this.drawn.get(place), place);
    }
}
