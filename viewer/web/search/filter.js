// The filter: an expression as the tool's --where takes it.

import {make} from '../dom.js';
import {countText} from '../format.js';

const PATIENCE_MS = 300;

export class Filter {
    // onMarks is called with the marks of the rows that meet the expression; null without one.
    constructor(form, client, onMarks) {
        Object.assign(this, {form, client, onMarks, asked: 0});
        this.input = form.querySelector('input');
        this.count = form.querySelector('output');
        this.mistake = form.querySelector('.mistake');
        this.input.addEventListener('input', () => {
            clearTimeout(this.timer);
            this.timer = setTimeout(() => this.apply(), PATIENCE_MS);
        });
        form.addEventListener('submit', event => {
            event.preventDefault();
            this.apply();
        });
    }

    async apply() {
        clearTimeout(this.timer);
        const expression = this.input.value.trim();
        const asked = ++this.asked;
        const {marks = null, mistake = null} = expression === '' ? {} : await this.ask(expression);
        if (asked !== this.asked) return; // another expression has been asked since
        this.tell(expression, mistake);
        if (mistake) return;
        this.count.textContent = marks
            ? countText(
                  marks.reduce((sum, mark) => sum + mark, 0),
                  'record'
              )
            : '';
        this.onMarks(marks);
    }

    ask(expression) {
        return this.client.ask('filter', expression).catch(({message}) => ({mistake: {text: message}}));
    }

    // Shows what is wrong, and where: the place is one of octets.
    tell(expression, mistake) {
        this.mistake.hidden = !mistake;
        this.input.setAttribute('aria-invalid', Boolean(mistake));
        if (!mistake) return;
        const octets = new TextEncoder().encode(expression);
        const text = (begin, end) => new TextDecoder().decode(octets.subarray(begin, end));
        const begin = mistake.position ?? octets.length,
            end = begin + (mistake.length ?? 0);
        this.count.textContent = '';
        this.mistake.replaceChildren(
            make('code', {}, text(0, begin), make('mark', {}, text(begin, end) || '\u00a0'), text(end)),
            make('span', {}, mistake.text)
        );
    }
}
