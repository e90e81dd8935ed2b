
async function start() {
    const find = selector => document.querySelector(selector);
    const sections = [...document.querySelectorAll('.section')];
    let plan, clock;
    const choose = row => {
        clock?.include(records.time[row]);
        plan?.choose(row);
    };
    const list = new List(sections, ([begin, end]) => {
        let row = begin;
        while (row + 1 < end && records.kind[row] === POSITION.none) ++row;
        choose(row);
    }, row => {
        choose(row);
        find('.plan').scrollIntoView({block: 'nearest'});
    });
    if (sections.length > 0) sections[0].open = true;

    const records = await Records.read(sections);
    list.show(records);
    const search = new Search(find('.search'), records, marks => plan?.showFound(marks), (row, isStep) => {
        choose(row);
        // Where the list stands below the plan, stepping stays with the plan.
        list.go(row, isStep && !matchMedia('(min-width: 1240px)').matches);
    });
    find('.summary').textContent = summaryOf(records);
    plan = makePlan(find('.plan'), records);
    if (plan) {
        plan.onOpen = row => list.go(row);
        clock = new Clock(find('.clock'), records, (from, to, fades) => plan.showTimes(from, to, fades));
        for (const name of ['labels', 'trails'])
            find(`.clock .${name}`).addEventListener('change', event => {
                plan.scene[name] = event.target.checked;
                plan.changed();
            });
        matchMedia('(prefers-color-scheme: dark)').addEventListener('change', () => plan.dress());
    }
    Object.assign(window, {astdump: {records, plan, clock, list, search}});
    document.documentElement.dataset.ready = 'true';
}

// Nothing where no record says where anything is.
function makePlan(element, records) {
    const plane = new Plane(records);
    const shapes = new Shapes(records);
    const points = new Points(records, plane);
    const layers = new Layers(records, plane, shapes);
    if (layers.list.length === 0 && plane.places.size === 0) return null;
    element.hidden = false;
    if (matchMedia('(max-width: 600px)').matches) element.querySelector('.legend').open = false;
    document.body.classList.add('with-plan');
    return new Plan(element, {records, plane, shapes, points, layers});
}

function summaryOf(records) {
    if (records.count === 0) return 'No records';
    const categories = new Set(records.sources.map(word => categoryText(word)));
    const sources = new Set(records.sources.filter(word => word & HAS_SOURCE).map(word => word & 0xFFFF));
    const parts = [countText(records.count, 'record'), `${categories.size === 1 ? 'category' : 'categories'} ` +
                   [...categories].sort().join(', '), countText(sources.size, 'data source')];
    const times = extremes(records.time).map(time => clockText(time, 0));
    if (records.hasTimes) parts.push(`${[...new Set(times)].join(' to ')} UTC`);
    return parts.join(' · ');
}

if (document.readyState === 'loading')
    document.addEventListener('DOMContentLoaded', start);
else
    start();
