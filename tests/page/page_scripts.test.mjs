// What the scripts do in the browser alone: colours, chart, details, start and failure of a page.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { browser } from './browser.mjs';
import { readScript, readScripts } from './scripts.mjs';

async function openPage(body = '') {
    const page = await browser.newPage();
    await page.setContent(`<!DOCTYPE html><title>t</title>${body}`);
    await page.addScriptTag({ content: await readScript('d3.v3.min.js') });
    for (const content of [await readScript('radar-chart.js'), ...(await readScripts())]) {
        await page.addScriptTag({ content });
    }
    return page;
}

const nested = { red: [0, 100, 50], a: { default: [120, 100, 0], b: [0, 0, 25] }, 'a.flat': [240, 100, 50] };

// Rows of a call and its result.
const calls = [
    ['hslToRgb', [2 / 3, 0.5, 0.75], 'rgb(159, 159, 223)'],
    ['hslToRgb', [0.8, 0.4, 0.4], 'rgb(126, 61, 143)'],
    ['hslToRgb', [0.5, 0, 0.5], 'rgb(128, 128, 128)'],
    ['mergeColor', [[350, 60, 90], [20, -70, 20]], [360, 0, 100]],
    ['mergeColor', [[-1, 0, 0], null], [0, 0, 0]],
    ['mergeColor', [null, [1, 'x']], [1, 0, 0]],
    ['computeColor', [null, 'red'], 'rgb(0, 0, 0)'],
    ['computeColor', [nested, 'a.flat'], 'rgb(0, 0, 255)'],
    ['computeColor', [nested, 'a.b'], 'rgb(0, 128, 0)'],
    ['computeColor', [nested, 'a.none'], 'rgb(0, 0, 0)'],
    ['computeColor', [nested, 'constructor'], 'rgb(0, 0, 0)'],
];

test('colours are calculated', async () => {
    const page = await openPage();
    for (const [name, args, expected] of calls) {
        const result = await page.evaluate(([fn, values]) => vantrel[fn](...values), [name, args]);
        assert.deepEqual(result, expected, `${name}(${JSON.stringify(args)})`);
    }
});

test('colours become rules', async () => {
    const page = await openPage(`<p class="x y">t</p><p class="n">t</p><p class="n.m">t</p><p class="q'\\">t</p>
        <div class="bar"><p class="y">b</p></div>`);
    const colors = await page.evaluate(() => {
        vantrel.makeCssColorRules(
            { y: [240, 100, 50], "q'\\": [0, 100, 50], n: { default: [120, 100, 25], m: [0, 0, 25] } });
        const styles = [...document.querySelectorAll('p')].map((p) => getComputedStyle(p));
        return [...styles.map((style) => style.color), styles[4].backgroundColor];
    });
    assert.deepEqual(colors, ['rgb(0, 0, 0)', 'rgb(0, 128, 0)', 'rgb(0, 255, 0)', 'rgb(255, 0, 0)',
        'rgb(0, 0, 255)', 'rgb(0, 0, 255)']);
});

function makeDocument(values, bound) {
    const ids = values.map((value, i) => `m${i}`);
    const eachId = (make) => Object.fromEntries(ids.map((id, i) => [id, make(i)]));
    return {
        data: { overview: { bound1: { type: bound } }, hide: true, ...eachId((i) => values[i]) },
        metricData: eachId((i) => ({ value: `m${i}` })),
        colorData: { m0: [0, 100, 50], m1: [120, 100, 25], m2: [240, 100, 50], m3: [60, 100, 50] },
        summaryData: {
            rows: ids.map((id, i) => ({ metricId: id, colorName: id, heading: `Heading ${i}` })),
            primaryBound: 'overview.bound1.type',
        },
    };
}

// In the page: the radar data with the colour function's answer in its place.
function radarOf(doc) {
    const radar = vantrel.makeRadarData(doc);
    const { data, maxAxis, axisColors, options } = radar || {};
    return radar && { data, maxAxis, axisColors, color: options.color() };
}

test('the radar chart needs three visible rows, and has the colour of the bound or the largest value', async () => {
    const page = await openPage();
    const hidden = makeDocument([1, 2, 3]);
    hidden.summaryData.rows[1].hidden = 'data.hide';
    for (const doc of [null, {}, makeDocument([1, 2]), hidden]) {
        assert.equal(await page.evaluate(radarOf, doc), null);
    }
    const equal = makeDocument([5, 5, 5], 'm2');
    equal.summaryData.rows[0].chartLabel = 'Label';
    assert.deepEqual(await page.evaluate(radarOf, equal), {
        data: [{ axis: 'Label', value: 5 }, { axis: 'Heading 1', value: 5 }, { axis: 'Heading 2', value: 5 }],
        maxAxis: 0,
        color: 'rgb(0, 0, 255)',
        axisColors: ['rgb(255, 0, 0)', 'rgb(0, 128, 0)', 'rgb(0, 0, 255)'],
    });
    assert.equal((await page.evaluate(radarOf, makeDocument([1, 2, 3], ''))).color, '#bb58d6');
    const unbound = makeDocument([1, 9, 3]);
    delete unbound.summaryData.primaryBound;
    assert.equal((await page.evaluate(radarOf, unbound)).color, 'rgb(0, 128, 0)');
});

test('the radar chart draws rings, axes and values in their places', async () => {
    const page = await openPage('<div id="time_radar"></div>');
    const drawn = await page.evaluate(async (doc) => {
        const radar = vantrel.makeRadarData(doc);
        RadarChart.draw('#time_radar', [radar.data], radar.options);
        RadarChart.draw('#time_radar', [radar.data], radar.options);
        const all = (selector) => [...document.querySelectorAll(`#time_radar ${selector}`)];
        const numbers = (text) => text.match(/[\d.]+/g).map(Number).map(Math.round);
        const polygon = all('polygon')[0];
        const opacityAfter = async (event) => {
            polygon.dispatchEvent(new MouseEvent(event));
            await new Promise((done) => { setTimeout(done, 500); });
            return polygon.style.fillOpacity;
        };
        return {
            names: all('svg').map((svg) => svg.getAttribute('aria-label')),
            points: numbers(polygon.getAttribute('points')),
            rings: all('path').map((path) => numbers(path.getAttribute('d')).slice(0, 4)),
            axes: all('line').map((line) => ['x2', 'y2'].map((each) => Math.round(line.getAttribute(each)))),
            strokes: [...new Set(all('path, line').map((each) => each.style.stroke))],
            anchors: all('[class^="legend_axis"]').map((label) => label.getAttribute('text-anchor')),
            opacities: [await opacityAfter('mouseover'), await opacityAfter('mouseout')],
        };
    }, makeDocument([99.96, null, 50.04, -20]));
    assert.deepEqual(drawn, {
        names: ['Heading 0 100.0%, Heading 1 not supported, Heading 2 50.0%, Heading 3 -20.0%'],
        points: [100, 30, 100, 100, 100, 135, 100, 100],
        rings: [[100, 77, 77, 100], [100, 53, 53, 100], [100, 30, 30, 100]],
        axes: [[100, 30], [30, 100], [100, 170], [170, 100]],
        strokes: ['grey'],
        anchors: ['middle', 'start', 'middle', 'end'],
        opacities: ['0.7', '0.64'],
    });
});

// In the page: draws charts of 3 to 16 axes and tells what is wrong with their labels.
function findLabelFaults(names) {
    const apart = (a, b) => a.right <= b.left || b.right <= a.left || a.bottom <= b.top || b.bottom <= a.top;
    const faultOf = (label, name, others, chart) => {
        const box = label.getBoundingClientRect();
        const isInside = box.left >= chart.left - 1 && box.right <= chart.right + 1 &&
            box.top >= chart.top - 1 && box.bottom <= chart.bottom + 1 && box.width > 0;
        getSelection().selectAllChildren(label);
        const text = getSelection().toString();
        const isShort = text.includes('\u2026') && label.querySelector('title')?.textContent === name;
        return (!others.every((other) => apart(box, other.getBoundingClientRect())) && 'covered') ||
            (!isInside && 'outside') || (text !== name && !isShort && 'text') ||
            (parseFloat(label.style.fontSize) < 10 && 'size');
    };
    const faults = [];
    for (let total = 3; total <= 16; total += 1) {
        const axes = Array.from({ length: total }, (none, i) => ({ axis: names[i % names.length], value: 1 }));
        RadarChart.draw('#time_radar', [axes], { w: 200, h: 200, factor: 0.7, fontSize: 16 });
        const chart = document.querySelector('#time_radar svg').getBoundingClientRect();
        const labels = axes.map((axis, i) => document.querySelector(`.legend_axis${i}`));
        faults.push(...labels.map((label, i) => [total, i, faultOf(label, axes[i].axis, labels.slice(i + 1), chart)]));
    }
    return faults.filter(([, , fault]) => fault);
}

test('the labels of the radar chart keep apart, within the chart and whole', async () => {
    const page = await openPage('<div id="time_radar"></div>');
    for (const names of [
        ['CPU', 'MPI', 'I/O', 'OpenMP'],
        ['Compute', 'Minus share', 'Accelerators', 'Memory', 'Waiting'],
        ['Checkpoint writing and reading again', 'Point-to-point communication', 'W'.repeat(80), '\u{1F600}'.repeat(60)],
    ]) {
        assert.deepEqual(await page.evaluate(findLabelFaults, names), []);
    }
    // What isn't shown can't be measured, which is no failure.
    await page.evaluate(() => { document.body.hidden = true; });
    assert.notDeepEqual(await page.evaluate(findLabelFaults, ['a b']), []);
});

test('details are found by id from elsewhere, and a missing one does nothing', async () => {
    const link = (id) => `<a href="" onclick="vantrel.toggleMetric(event,'${id}')">open</a>`;
    const page = await openPage(`${link('far')}${link('none')}<p id="far" class="keep">x</p>`);
    for (const each of await page.$$('a')) {
        await each.click();
    }
    assert.equal(await page.$eval('#far', (element) => element.className), 'keep show');
});

async function start(text, data) {
    const page = await openPage(`<div id="out"></div><script type="application/json" id="data">${data}</script>
        <script type="text/html" id="main"> ${text} </script>
        <script type="text/x.corvane-template" id="titleTemplate">T &lt;{{n}}&gt;</script>`);
    return page.evaluate(() => {
        const seen = [];
        ReportEngine.afterRenderFunctions.splice(1);
        ReportEngine.afterRender((doc) => seen.push(doc.n));
        ReportEngine.startPage('main', 'data', 'out');
        const templates = document.querySelectorAll('script[type^="text/"][id]').length;
        const out = document.getElementById('out')?.innerHTML;
        return { out, seen, templates, title: document.title, body: document.body.textContent };
    });
}

test('the start of the page renders wrapped data, or shows what went wrong in place of the page', async () => {
    const { body, ...result } = await start('<b>{{n}}</b>', '\n<![CDATA[{"n":"a&b"}]]>\n');
    assert.deepEqual(result, { out: '<b>a&amp;b</b>', title: 'T <a&b>', templates: 0, seen: ['a&b'] });
    const rows = [['{{trim a b}}', '{"n":5}', 'invalid usage of trim'], ['{{n}}', '{', 'JSON']];
    for (const [text, data, message] of rows) {
        const failed = await start(text, data);
        assert.ok(failed.body.includes(message), failed.body);
        assert.deepEqual([failed.out, failed.seen], [undefined, []]);
    }
});

test('an invocation stops at the first failure, and a quiet one leaves the page alone', async () => {
    const page = await openPage('<p>kept</p>');
    const result = await page.evaluate(() => {
        const engine = ReportEngine.create();
        const calls = [];
        engine.onInit((...args) => calls.push(args));
        engine.onInit(() => { throw new Error('broken'); });
        engine.onInit(() => calls.push('never'));
        engine.invokeInitFunctions({ quiet: true }, 1, 2);
        const quiet = document.body.textContent;
        engine.invokeInitFunctions({}, 3);
        return { calls, quiet, loud: document.body.textContent.includes('broken') };
    });
    assert.deepEqual(result, { calls: [[1, 2], [3]], quiet: 'kept', loud: true });
    for (const [name, message] of [['onInit', /fn must be a function/], ['afterRender', /fn must be a function/],
        ['invokeInitFunctions', /config must be an object/]]) {
        await assert.rejects(page.evaluate((fn) => ReportEngine[fn](5), name), message);
    }
});
