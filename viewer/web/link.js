// A view in the address of the page, behind #: what is seen of the plan, when, which record, and which filter.

export function writeLink({plan, clock, filter, search}) {
    const {view, scene} = plan;
    const members = {
        x: view.x.toFixed(3),
        y: view.y.toFixed(3),
        scale: view.scale.toFixed(4),
        time: clock.now?.toFixed(3),
        span: clock.span.value,
        row: scene.chosen >= 0 ? scene.chosen : undefined,
        where: filter.input.value || undefined,
        find: search.input.value || undefined
    };
    const known = Object.entries(members).filter(([, value]) => value !== undefined);
    return `#${new URLSearchParams(known)}`;
}

export async function readLink(hash, {plan, clock, filter, search, records, list}) {
    const members = Object.fromEntries(new URLSearchParams(hash.slice(1)));
    const number = name => (members[name] === undefined ? NaN : Number(members[name]));
    if (members.where) {
        filter.input.value = members.where;
        await filter.apply();
    }
    if (members.find) {
        search.input.value = members.find;
        search.find();
        search.open(false);
    }
    if ([...clock.span.options].some(option => option.value === members.span)) clock.span.value = members.span;
    if (number('time') >= clock.first && number('time') <= clock.last) clock.now = number('time');
    if (clock.now !== undefined) clock.show();
    const row = number('row');
    if (Number.isInteger(row) && row >= 0 && row < records.count) {
        plan.choose(row);
        list.go(row);
    }
    if ([number('x'), number('y')].every(isFinite) && number('scale') > 0) {
        plan.view.centre(number('x'), number('y'));
        plan.view.scale = number('scale');
        plan.changed();
    }
}
