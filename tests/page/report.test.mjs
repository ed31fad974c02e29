// The finished page in headless Chromium: what it shows, computes and does.
import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { createRequire } from 'node:module';
import { join } from 'node:path';
import { before, describe, test } from 'node:test';
import { pathToFileURL } from 'node:url';
import { browser } from './browser.mjs';

const folder = process.env.VANTREL_PAGES;
const axeSource = createRequire(import.meta.url).resolve('axe-core/axe.min.js');
const logoAddress = 'https://www.corvane.example/downloads/vantrel-logo-50.png';

// Colours travel as whole percents of hue, saturation and lightness, so they come out a little off:
// #2e7d32 as rgb(45, 123, 49).

// Opens a page and notes what it asks for and complains of. Remote logos can't be had here.
async function open(name, { init = () => {}, ...options } = {}, answer = (route) => route.abort()) {
    const page = await browser.newPage(options);
    await page.addInitScript(init);
    page.requests = [];
    page.problems = [];
    page.on('pageerror', (error) => page.problems.push(error.message));
    page.on('dialog', (dialog) => { page.problems.push('dialog'); dialog.dismiss(); });
    await page.route('**/*', (route) => {
        const url = route.request().url();
        if (/^(file|data):/.test(url)) {
            return route.continue();
        }
        page.requests.push(url);
        return answer(route);
    });
    await page.goto(pathToFileURL(join(folder, name)).href, { waitUntil: 'load', timeout: 10000 });
    return page;
}

function texts(page, selector) {
    return page.$$eval(selector, (all) => all.map((one) =>
        (one.innerText ?? one.textContent).replace(/\s+/g, ' ').trim()));
}

function color(page, selector, property = 'color') {
    return page.$eval(selector, (one, name) => getComputedStyle(one)[name], property);
}

test('the default definition makes a whole page of a metric data file', async () => {
    const page = await open('default.html');
    assert.deepEqual(page.problems, []);
    assert.equal((await texts(page, '#applicationDetails tr'))[2], 'Memory: 256 GiB per node, 32 GiB per GPU');
    assert.deepEqual(await texts(page, '#summary h2'), ['CPU', 'MPI', 'I/O']);
    assert.deepEqual(await texts(page, '#summary .heading'),
        ['wave3d is CPU-bound in this run: the largest share of its time goes into CPU.']);
    // The run used OpenMP, so plain threads are left out.
    assert.deepEqual(await texts(page, '.subsection > h2'),
        ['CPU', 'MPI', 'I/O', 'OpenMP', 'Memory', 'Accelerators', 'Energy', 'CPU energy']);
    const values = await texts(page, '.metric_chart_table tr:not(.spacer) td:nth-child(2)');
    assert.equal(values.length, 46);
    assert.ok(values.every((value) => /^[\d.]+ ?(%|W|[kM]J|[kM]?B\/s|GiB)$/.test(value)), values.join(', '));
    // The other sections' error metrics are empty.
    assert.deepEqual(await texts(page, '.errors > *'), ['No <b>rates</b> &amp; shares']);
});

describe('a typical page', () => {
    let page;
    before(async () => { page = await open('typical.html', { reducedMotion: 'reduce' }); });

    test('asks for nothing but the logo and shows the rows that have a value and are visible', async () => {
        assert.deepEqual([page.requests, page.problems], [[logoAddress], []]);
        assert.equal(await page.title(), 'typical - Vantrel');
        assert.equal(await page.locator('#logo a').getAttribute('href'),
            'https://www.corvane.example/products/vantrel');
        assert.deepEqual(await texts(page, '#applicationDetails tr'), [
            'Executable: typical', 'Tasks: 16 processes', 'Total time: 0 seconds',
            'Full path: /\u200bhome/\u200bada/\u200bruns/\u200btypical', 'Notes: one <line> and another',
        ]);
        assert.equal(await page.locator('#applicationDetails td').last().innerText(), 'one <line>\nand another');
        assert.deepEqual(await texts(page, '#summary h2'), ['Compute', 'Network', 'Storage', 'No colour']);
        assert.deepEqual(await texts(page, '#summary td.percent'), ['60.0%', '30.0%', '10.0%', '0.0%']);
        const widths = await page.$$eval('#summary .bar > div', (bars) => bars.map((bar) => bar.style.width));
        assert.deepEqual(widths, ['60.04%', '30%', '9.96%', '0%']);
        const advice = (await texts(page, '#summary p, .explanation')).filter(Boolean);
        assert.deepEqual(advice, ['network', 'run', 'first'].map((place) => `R\u00e9duire \u2013 \u6e1b ${place}`));
        assert.equal(await page.locator('p em, .explanation em').count(), 3);
    });

    test('shows the sections two to a line, scales numbers and groups bars', async () => {
        assert.deepEqual(await texts(page, '.subsection > h2'), ['First', 'Second', 'Third']);
        const [a, b, c] = await page.$$eval('.subsection', (all) =>
            all.map((one) => one.getBoundingClientRect().toJSON()));
        assert.deepEqual([a.width, b.width, c.width, b.top, c.left], [494, 494, 494, a.top, a.left]);
        assert.ok(b.left >= a.right - 1 && c.top > a.top);
        assert.equal(await page.locator('#subsections .clear').count(), 2);
        const rows = await texts(page, '.subsection:nth-of-type(2) td:nth-child(2)');
        assert.deepEqual(rows.filter(Boolean), ['2.50 MB/s', '5.00 MB/s', '3.00 GiB']);
        const bars = await page.$$eval('.subsection:nth-of-type(2) .bar > div[class]', (all) =>
            all.map((bar) => bar.style.width));
        assert.deepEqual(bars, ['50%', '100%', '50%']);
    });

    test('has its colours in rows, sections and the radar chart', async () => {
        assert.equal(await color(page, '#summary-entry-storage .bar > div', 'backgroundColor'),
            await color(page, '#summary-entry-storage h2'));
        for (const [selector, expected, property] of [
            ['#summary-entry-compute h2', 'rgb(45, 123, 49)'],
            ['#summary-entry-nocolour h2', 'rgb(0, 0, 0)'],
            ['#subsection-metric-network .right_cell span', 'rgb(0, 0, 255)'],
            ['#subsection-first h2', 'rgb(195, 40, 40)'],
            ['#time_radar .legend_axis0', 'rgb(45, 123, 49)', 'fill'],
            ['#time_radar polygon', 'rgb(45, 123, 49)', 'stroke'],
            ['#time_radar polygon', '0.64', 'fillOpacity'],
        ]) {
            assert.equal(await color(page, selector, property), expected, selector);
        }
        const labels = await texts(page, '#time_radar [class^="legend_axis"]');
        assert.deepEqual(labels, ['Compute', 'Net', 'Storage', 'No colour']);
    });

    test('lets a path be copied without the places to break it', async () => {
        await page.evaluate(() => {
            window.addEventListener('copy', (event) => {
                window.copied = ['plain', 'html'].map((each) => event.clipboardData.getData(`text/${each}`));
            });
            const cells = [...document.querySelectorAll('#applicationDetails td')];
            getSelection().selectAllChildren(cells.find((cell) => cell.textContent.startsWith('/')));
        });
        await page.keyboard.press('Control+C');
        assert.deepEqual(await page.evaluate(() => window.copied), Array(2).fill('/home/ada/runs/typical'));
    });

    test('opens and closes details, each its own', async () => {
        const links = page.locator('a.toggle');
        const shown = () => page.$$eval('.metricDetail > div', (all) => all.filter((one) => one.textContent.trim())
            .map((one) => one.clientHeight > 0 && getComputedStyle(one).visibility === 'visible'));
        assert.deepEqual(await shown(), [false, false, false]);
        // The second and the third are both called "Read rate".
        for (let i = 0; i < 3; i += 1) {
            await links.nth(i).click();
            assert.deepEqual(await shown(), [0, 1, 2].map((each) => each === i));
            assert.equal(await links.nth(i).getAttribute('aria-expanded'), 'true');
            await page.keyboard.press('Enter');
            assert.deepEqual(await shown(), [false, false, false]);
            assert.equal(await links.nth(i).getAttribute('aria-expanded'), 'false');
        }
        assert.ok(page.url().endsWith('typical.html'));
    });
});

test('a logo shows as its copy at once, and as the remote image if that comes', async () => {
    let asked;
    const answer = new Promise((resolve) => { asked = resolve; });
    const page = await open('typical.html', {}, asked);
    const route = await answer;
    const source = () => page.$eval('#logo img', (image) => image.naturalWidth > 0 && image.src);
    const print = async () => {
        const started = Date.now();
        await page.pdf();
        return Date.now() - started;
    };
    const [type, image] = (await source()).split(',');
    assert.equal(type, 'data:image/png;base64');
    const time = await print();
    await route.fulfill({ contentType: 'image/png', body: Buffer.from(image, 'base64') });
    await page.waitForFunction((address) => document.querySelector('#logo img').src === address, logoAddress);
    assert.equal(await source(), logoAddress);
    const timeWithImage = await print();
    assert.ok(time < timeWithImage + 1000, `${time} ms to print, ${timeWithImage} ms with the image`);
});

test('a page of long texts waits for neither its own logo nor the badge, and its details scroll', async () => {
    const page = await open('long.html', {}, () => {});
    const logos = await page.$$eval('#logo img', (all) => all.map((image) =>
        [image.closest('a')?.href, image.height, image.src.replace(/,.*/, ''), image.naturalHeight]));
    assert.deepEqual(logos, [
        ['https://own.example/', 150, 'https://own.example/logo.png', 0],
        ['https://www.corvane.example/products/corvane-vantrels', 30, 'data:image/png;base64', 60],
    ]);
    assert.ok(page.requests.includes('https://www.corvane.example/downloads/powered-by-corvane-reports-61.png'));
    assert.equal(await page.locator('#summary td.percent').count(), 3);
    const [, , read] = await texts(page, '.metric_chart_table tr:not(.spacer) td.right_cell:nth-child(2)');
    assert.match(read, /^not supported w+$/);
    // Details that scroll can be reached with the keyboard.
    await page.$$eval('a.toggle', (all) => all.forEach((link) => link.click()));
    assert.deepEqual(await page.$$eval('.metricDetail.show > div', (all) => all.map((one) => one.tabIndex)), [0, -1, -1]);
});

test('a metric with a range has marks on its bar and a table of its values', async () => {
    const page = await open('default.html');
    const seen = await page.evaluate(() => {
        document.body.innerHTML = ReportEngine.render('subsectionsTemplate', 'html', {
            data: { m: { min: 20, mean: 50, max: 90, stdev: 8 } },
            metricData: { m: { value: 'm', displayName: 'M' } },
            subsections: [{ metrics: [{ metricId: 'm', template: 'percentageTemplate', colorName: 'c' }] }],
        });
        const all = (selector, read) => [...document.querySelectorAll(selector)].map(read);
        return [all('.bar > .barBox, .bar > .c', ({ style }) => [style.left, style.width]),
            all('.tip tr', (row) => row.cells[0].textContent + row.cells[1].textContent)];
    });
    assert.deepEqual(seen, [[['20%', '1px'], ['90%', '1px'], ['20%', '70%'], ['', '50%']],
        ['Min20.0%', 'Mean50.0%', 'Max90.0%', 'S.D.8.0%']]);
});

test('hostile texts show as typed and nothing runs', async () => {
    const page = await open('hostile.html');
    const hostile = (await readFile(join(folder, 'hostile-texts.txt'), 'utf8')).split('\0').slice(0, -1);
    const asShown = (selector) => page.$$eval(selector, (all) => all.map((one) => one.textContent.trim()));
    assert.equal(await page.title(), `${hostile[0]}${hostile[2]} - Vantrel`);
    assert.deepEqual(await asShown('#summary h2'), hostile);
    assert.deepEqual(await asShown('.metric_chart_table a.toggle'), hostile);
    assert.deepEqual(await asShown('.subsection > h2'), [hostile[0]]);
    assert.deepEqual(await asShown('#summary .heading b'), [hostile[0] + hostile[2]]);
    const details = await asShown('#applicationDetails td:nth-child(2)');
    assert.ok(details.includes(hostile[4] + hostile[8]) && details.includes(hostile[1] + hostile[7]), String(details));
    for (const link of await page.$$('a.toggle')) {
        await link.click();
    }
    assert.deepEqual(await asShown('.metricDetail.show .inlinedDescription'),
        hostile.map((text, i) => `Detail m${i} <b> &amp;`));
    assert.equal(await page.evaluate(() => window.hacked), undefined);
    assert.deepEqual(page.problems, []);
    assert.equal(await page.locator('svg[onload], img[onerror*="hacked"]').count(), 0);
});

test('two rows show the error page', async () => {
    const page = await open('two_rows.html');
    assert.equal(await page.locator('#content, #time_radar').count(), 0);
    assert.match(await page.$eval('body', (body) => body.innerText), /axisColors/);
});

for (const name of ['typical.html', 'long.html', 'hostile.html']) {
    for (const width of [1200, 800, 320]) {
        test(`${name} fits a window of ${width} pixels`, async () => {
            const page = await open(name, { viewport: { width, height: 800 } });
            const overflow = await page.evaluate(() => document.documentElement.scrollWidth - window.innerWidth);
            assert.ok(overflow <= 0, `${overflow} pixels stick out`);
        });
    }
}

const forced = ['light', 'dark'].map((colorScheme) => ({ forcedColors: 'active', colorScheme }));
for (const [name, options] of [['typical.html'], ['default.html'], ['hostile.html'], ['two_rows.html'],
    ...forced.map((each) => ['default.html', each])]) {
    test(`axe-core finds nothing serious in ${name} ${options?.colorScheme ?? ''}`, async () => {
        const page = await open(name, options);
        await page.addScriptTag({ path: axeSource });
        const serious = await page.evaluate(async () => (await window.axe.run()).violations
            .filter((one) => one.impact === 'serious' || one.impact === 'critical')
            .map((one) => `${one.id}: ${one.nodes.map((node) => node.target).join(' ')}`));
        assert.deepEqual(serious, []);
    });
}

for (const options of forced) {
    test(`bars and chart are seen in forced colours, ${options.colorScheme}`, async () => {
        const page = await open('default.html', options);
        const canvas = await color(page, 'html', 'backgroundColor');
        assert.equal(await color(page, 'td.bar', 'borderLeftColor'), canvas);
        for (const bar of ['#summary .bar > div', 'td.bar > div']) {
            assert.notEqual(await color(page, bar, 'backgroundColor'), canvas);
        }
        assert.equal(await color(page, '#time_radar text', 'stroke'), canvas);
        assert.equal(await color(page, '#time_radar text', 'fill'), await color(page, 'body'));
    });
}

// In a page of many sections of unlike lengths, with idle time that comes when the test says so.
const makeSections = () => {
    window.idle = [];
    window.requestIdleCallback = (fn) => window.idle.push(fn);
    const parse = JSON.parse;
    JSON.parse = (text) => {
        const { subsections: [{ metrics, ...section }], ...data } = parse(text);
        const subsections = Array.from({ length: 60 }, (none, i) => ({
            ...section, heading: `Section ${i}`, descriptionHtmlTemplate: 'word '.repeat(i % 7 * 10),
            metrics: Array.from({ length: 3 + i % 14 }, () => ({ ...metrics[2] })),
        }));
        return { ...data, subsections };
    };
};
const waiting = (page) => page.$$eval('.subsection > h2', (all) =>
    all.filter((one) => !one.checkVisibility({ contentVisibilityAuto: true })).length);

test('a very long page keeps its height while it is scrolled and its sections have their turn', async () => {
    const page = await open('typical.html', { init: makeSections });
    assert.ok(await waiting(page) > 40);
    const heights = await page.evaluate(async () => {
        const all = [];
        const note = () => new Promise((done) => {
            requestAnimationFrame(() => setTimeout(() => done(all.push(document.documentElement.scrollHeight))));
        });
        for (let i = 0; i < 20; i += 1) {
            window.scrollTo(0, i / 20 * document.documentElement.scrollHeight);
            await note();
        }
        for (let fn = window.idle.pop(); fn; fn = window.idle.pop()) {
            fn();
        }
        await note();
        return all;
    });
    assert.equal(await waiting(page), 0);
    assert.ok(Math.max(...heights) < 1.03 * Math.min(...heights), heights.join());
});

test('a picture and a print of a very long page show all of it at once', async () => {
    const page = await open('typical.html', { init: makeSections });
    await page.emulateMedia({ media: 'print' });
    assert.equal(await waiting(page), 0);
    await page.emulateMedia({ media: 'screen' });
    await page.screenshot({ fullPage: true });
    assert.equal(await waiting(page), 0);
});

test('print shows all details', async () => {
    const page = await open('typical.html');
    await page.emulateMedia({ media: 'print' });
    const heights = await page.$$eval('.metricDetail > div', (all) =>
        all.filter((one) => one.textContent.trim()).map((one) => one.getBoundingClientRect().height));
    assert.ok(heights.length >= 3 && heights.every((height) => height > 10), String(heights));
});
