// Opens every section of a page, and leaves what is wrong with it in the place of what it shows.

const faults = [];
const check = (what, condition) => condition || faults.push(what);
const all = selector => [...document.querySelectorAll(selector)];
const shown = selector => all(selector).filter(element => element.checkVisibility());

async function until(condition) {
    for (let attempt = 0; attempt < 200 && !condition(); ++attempt)
        await new Promise(resolve => setTimeout(resolve, 10));
}

async function look() {
    check('sections are packed', all('.section').every(section => section.dataset.packed !== undefined || section.open));
    await until(() => all('.block').length > 0);
    const blocks = all('.block');
    check('all blocks are there', blocks.length === 13);
    check('a closed block is empty', all('.item').length === 0);
    check('the numbers stand on top', shown('.numbers')[0].getBoundingClientRect().bottom <
          shown('main')[0].getBoundingClientRect().top);
    check('file names are shown as they are', all('h2')[0].textContent === '<i>&.ast');

    for (const block of blocks) block.open = true;
    await until(() => blocks.every(block => block.querySelector('h3')));
    check('every block opens', blocks.every(block => block.querySelector('h3')));
    check('records have tables', shown('.detail_table').length === all('h3').length);
    check('the damage is reported', shown('.block p.fault').length === 1 && shown('.numbers p.fault').length === 1);
    check('items are closed at first', shown('.hex_table').length === 0);

    const items = all('.item');
    for (const item of items) item.open = true;
    const have = table => items.every(item => item.querySelector(`:scope > div > ${table}`).checkVisibility());
    check('items have octets', have('.hex_table'));
    check('items have bits', have('.bin_table'));
    check('ampersands are kept', items.some(item => item.textContent.includes('Configuration & Status')));
    check('values are shown', all('td').some(cell => cell.textContent === 'MODE-S ROLL CALL'));

    const texts = (type, selector) =>
        [...items.find(item => item.textContent.startsWith(type)).querySelectorAll(selector)].map(e => e.textContent);
    check('a compound item has an overview',
          texts('I048/130', 'tr').includes('3SAMAmplitude of (M)SSR Reply11-186 LSB=DBM (published: -70 dBm)') &&
          texts('I048/130', 'tr').includes('1SRLSSR Plot Runlength00'));
    check('and its subfields', texts('I048/130', 'h4').includes('Subfield #3 - Amplitude of (M)SSR Reply') &&
          texts('I048/130', 'th').includes('Octet 1 - BA') && texts('I048/130', 'td').includes('-70 dBm'));
    check('registers have bits', texts('I048/250', 'th').includes('Octet 1 - C4'));

    await lookAtPlan();

    const links = all('a');
    check('there are links to maps', links.length > 0);
    // 9320676, 2656393 and 9274072, 2796203 in units of 180 / 2^25 degrees.
    for (const place of ['50.000002,14.250003', '49.749999,15.000002'])
        check(`a link to ${place}`, links.some(link => link.href === `https://www.google.com/maps/place/${place}`));
    check('links open apart', links.every(link => link.rel === 'noopener' && document.querySelector('base').target === '_blank'));
    check('nothing is left over', all('.section').every(section => section.dataset.packed === undefined));
}

// The plan of the same recording.
async function lookAtPlan() {
    await until(() => document.documentElement.dataset.ready);
    const {records, plan, clock} = window.astdump;
    check('the plan is shown', shown('.plan canvas').length === 1);
    check('all positions have a place', plan.points.count === 7);
    check('the plan says where it lies', all('.note')[0].textContent.includes('49.7500° N 15.0000° E'));
    check('a block shows what it is about', all('.names').some(line => line.textContent.includes('DLH4AB 3C4A12 2345 #420')));
    check('a block shows its time', all('.block .time')[1].textContent === '12:00:01.500');

    // 12.25 NM at 300 degrees.
    const polar = plan.points.row.find(row => records.track[row] - 1 === 43);
    check('a polar position', Math.abs(plan.plane.x[polar] + 10.61) < 0.01 && Math.abs(plan.plane.y[polar] - 6.125) < 0.01);

    const canvas = all('.plan canvas')[0];
    const click = (x, y) => {
        const box = canvas.getBoundingClientRect();
        const [left, top] = plan.view.toScreen(x, y);
        for (const type of ['pointerdown', 'pointerup'])
            canvas.dispatchEvent(new PointerEvent(type, {clientX: box.left + left, clientY: box.top + top}));
    };
    canvas.setPointerCapture = () => {}; // there is no such pointer
    click(plan.plane.x[polar], plan.plane.y[polar]);
    await until(() => all('h3.chosen').length === 1);
    check('a click opens the record', all('h3.chosen')[0].nextSibling.textContent.includes('RHO:12.2'));

    plan.view.centre(1000, 1000);
    all('button.show').at(-1).click();
    check('a record shows itself', plan.view.isInside(plan.plane.x[plan.scene.chosen], plan.plane.y[plan.scene.chosen]));

    // The first source is a radar whose place is worked out, as a later section knows better; the second has none.
    const known = new Records([]);
    for (const [how, latitude] of [[SITE.workedOut, 50], [SITE.learnt, -51], [SITE.workedOut, 52]])
        known.addSites({sources: [HAS_SOURCE | 0x301907, HAS_SOURCE | 0x301908],
                        sites: [[how << 24 | 120, 0], [latitude * 1e7, 0], [15e7, 0]]});
    check('stations are known as well as can be', known.sites.size === 1 && known.sites.get(0x1907).place[0] === -51);
    check('stations stand where they are said to', plan.plane.stations.get(0x190A).place.join() === '49.55,15.5' &&
          plan.plane.stations.get(0x190A).known === SITE.given);

    const input = all('.search input')[0];
    for (const [text, count] of [['dlh4', 2], ['3C4A', 2], ['3c4a #666', 1], ['7777', 0]]) {
        input.value = text;
        input.dispatchEvent(new Event('input'));
        await until(() => false, 2);
        check(`the search for ${text}`, all('.search li').length === count);
    }
    input.value = '#666';
    input.dispatchEvent(new Event('input'));
    await until(() => all('.search li').length === 1);
    all('.search .on')[0].click();
    check('what is found is chosen', records.track[plan.scene.chosen] - 1 === 666);

    // Whether a layer puts something at a place, seen by switching it off.
    const copy = document.createElement('canvas').getContext('2d', {willReadFrequently: true});
    const colourAt = (x, y) => {
        plan.drawing.draw(plan.view, plan.scene, []);
        copy.canvas.width = canvas.width;
        copy.canvas.height = canvas.height;
        copy.drawImage(canvas, 0, 0);
        return copy.getImageData(...plan.view.toScreen(x, y).map(Math.round), 1, 1).data.join();
    };
    const isDrawnBy = (name, x, y) => {
        const layer = plan.layers.list.find(layer => layer.name === name);
        layer.visible = true;
        const colour = colourAt(x, y);
        layer.visible = false;
        return colourAt(x, y) !== colour;
    };
    plan.fit();
    check('positions are drawn', isDrawnBy('048 025/012', plan.plane.x[polar], plan.plane.y[polar]) &&
          !isDrawnBy('062 025/010', plan.plane.x[polar], plan.plane.y[polar]));
    check('polar vectors are drawn', isDrawnBy('008 025/007', 15, 0) && !isDrawnBy('008 025/007', 25, 0));
    check('contours are drawn', isDrawnBy('008 025/007', -15, 15) && !isDrawnBy('008 025/007', -15, 5));
    check('video is drawn', isDrawnBy('240 025/009', 5.74, 13.86) && !isDrawnBy('240 025/009', 9.57, 23.1) &&
          !isDrawnBy('240 025/009', -5.74, 13.86));
    check('cells of four bits are drawn', isDrawnBy('240 025/009', -5.74, -13.86) &&
          !isDrawnBy('240 025/009', -9.57, -23.1));

    clock.span.value = '5';
    clock.now = clock.first + 1.5; // what was said at 12:00:01.5, but not what follows
    clock.show();
    check('the clock chooses what is seen', plan.scene.end === 3);
}

addEventListener('load', async () => {
    try {
        await look();
    } catch (error) {
        faults.push(String(error));
    }
    document.body.textContent = faults.length === 0 ? 'the page is well' : faults.join('; ');
});
