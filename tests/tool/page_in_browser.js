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
    check('all blocks are there', blocks.length === 7);
    check('a closed block is empty', all('.item').length === 0);
    check('the numbers stand on top', shown('header')[0].getBoundingClientRect().bottom <
          shown('main')[0].getBoundingClientRect().top);
    check('file names are shown as they are', all('h2')[0].textContent === '<i>&.ast');

    for (const block of blocks) block.open = true;
    await until(() => blocks.every(block => block.querySelector('h3')));
    check('every block opens', blocks.every(block => block.querySelector('h3')));
    check('records have tables', shown('.detail_table').length === all('h3').length);
    check('the damage is reported', shown('p.fault').length === 1);
    check('items are closed at first', shown('.hex_table').length === 0);

    const items = all('.item');
    for (const item of items) item.open = true;
    const have = table => items.every(item => item.querySelector(`:scope > div > ${table}`).checkVisibility());
    check('items have octets', have('.hex_table'));
    check('items have bits', have('.bin_table'));
    check('ampersands are kept', items.some(item => item.textContent.includes('Configuration & Status')));
    check('values are shown', all('td').some(cell => cell.textContent === 'MODE-S ROLL CALL'));

    const links = all('a');
    check('there are links to maps', links.length > 0);
    check('links open apart', links.every(link => link.rel === 'noopener' && document.querySelector('base').target === '_blank'));
    check('nothing is left over', all('.section').every(section => section.dataset.packed === undefined));
}

addEventListener('load', async () => {
    try {
        await look();
    } catch (error) {
        faults.push(String(error));
    }
    document.body.textContent = faults.length === 0 ? 'the page is well' : faults.join('; ');
});
