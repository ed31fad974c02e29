// Runs the shared table of helper cases in the browser. The interpreter runs the same table.
import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { after, before, test } from 'node:test';
import { launchBrowser } from './browser.mjs';
import { readScript, readScripts } from './scripts.mjs';

const cases = JSON.parse(await readFile(new URL('helper_cases.json', import.meta.url), 'utf8'));

let browser;
let page;

before(async () => {
    browser = await launchBrowser();
    page = await browser.newPage();
    for (const content of await readScripts()) {
        await page.addScriptTag({ content });
    }
});

after(() => browser?.close());

// In the page: the rendered text or the message of what was thrown.
function runCase(row) {
    corvane.idCounters = {};
    try {
        const engine = ReportEngine.create();
        engine.registerHelpers({ all: vantrel.templateHelpers });
        for (const partial of row.partials || []) {
            engine.registerPartial(partial.name, partial.format, partial.text);
        }
        engine.registerPartial('case', row.format, row.template);
        return { text: engine.render('case', row.format, row.data) };
    } catch (exception) {
        return { error: String(exception.message) };
    }
}

for (const row of cases) {
    test(row.name, async () => {
        const result = await page.evaluate(runCase, row);
        if ('error' in row) {
            assert.ok(result.error?.includes(row.error), JSON.stringify(result));
        } else {
            assert.deepEqual(result, { text: row.expected });
        }
    });
}

const entities = `
    quot amp apos lt gt nbsp iexcl yuml Agrave THORN OElig Scaron Yuml fnof circ tilde Alpha Rho Sigma Omega
    alpha sigmaf omega thetasym upsih piv ensp emsp thinsp zwnj rlm ndash mdash lsquo sbquo ldquo bdquo dagger
    bull hellip permil prime Prime lsaquo oline frasl euro image weierp real trade alefsym larr harr crarr
    lArr hArr forall part exist empty nabla notin ni prod sum minus lowast radic prop infin ang and or cap cup
    int there4 sim cong asymp ne equiv le ge sub sup nsub sube supe oplus otimes perp sdot lceil rfloor loz
    spades clubs hearts diams sup1 frac12 times divide szlig`;

test('entities decode as the browser does', async () => {
    const different = await page.evaluate((names) => names.filter((name) => {
        const area = document.createElement('textarea');
        area.innerHTML = `&${name};`;
        return ReportEngine.htmlToText(`&${name};`, { collapseWhitespace: false }) !== area.value;
    }), entities.trim().split(/\s+/));
    assert.deepEqual(different, []);
});

test('deep markup is walked without recursion', async () => {
    const walk = (depth) => ReportEngine.htmlToText('<b>'.repeat(depth) + 'x' + '</b>'.repeat(depth));
    assert.equal((await page.evaluate(walk, 20000)).length, 1);
});

// Each expression is evaluated with the browser's own methods, then with the fallbacks in their place.
const polyfillCases = [
    'Array.isArray([]) + "," + Array.isArray({ length: 0 })',
    '[1, 2, 3, 2].indexOf(2) + "," + [2, 1].indexOf(2, -1) + "," + [1].indexOf(3) + "," + [NaN].indexOf(NaN)',
    '[1, 2, 3, 2].lastIndexOf(2) + "," + [1, 2, 1].lastIndexOf(1, -2) + "," + [1].lastIndexOf(9)',
    'var s = ""; [1, , 3].forEach(function (v, i, l) { s += v + i + l.length + this.k; }, { k: "k" }); s',
    '[1, , 3].map(function (v) { return v * 2; }).length + "," + (1 in [1, , 3].map(String))',
    '[1, 2, 3].filter(function (v) { return v % 2; }).join()',
    '[[].some(Boolean), [0, 1].some(Boolean), [].every(Boolean), [1, 0].every(Boolean), [1, 2].every(Boolean)].join()',
    '["a", "b"].reduce(function (x, y) { return x + y; })',
    '["a", "b"].reduceRight(function (x, y) { return x + y; }, "z")',
    'try { [].reduce(String); } catch (e) { e instanceof TypeError; }',
    'try { [1].map(null); } catch (e) { e instanceof TypeError; }',
    'Object.keys({ a: 1, b: 2 }).join() + Object.keys(Object.create({ inherited: 1 })).length',
    'Object.create({ a: 5 }).a',
    '"[" + " \\u00a0\\ufeff\\t a b\\n ".trim() + "]"',
    '(function (a, b) { return this.k + a + b; }).bind({ k: "k" }, 1)(2)',
    'function P(x) { this.x = x; } var B = P.bind(null, 4); new B().x + "," + (new B() instanceof P)',
    'Math.abs(Date.now() - new Date().getTime()) < 1000',
];

// In the page: the results of the browser's methods and those of the fallbacks.
function evaluateBoth([fallbacks, expressions]) {
    const places = [[Array, 'isArray'], [Object, 'keys'], [Object, 'create'], [String.prototype, 'trim'],
        [Function.prototype, 'bind'], [Date, 'now']];
    for (const name of 'indexOf lastIndexOf forEach map filter some every reduce reduceRight'.split(' ')) {
        places.push([Array.prototype, name]);
    }
    const evaluateAll = () => {
        const results = [];
        for (const each of expressions) {
            results.push(String(eval(each)));
        }
        return results;
    };
    const native = evaluateAll();
    // Playwright itself needs some of the methods, so they come back at the end.
    const saved = [];
    for (const [owner, name] of places) {
        saved.push([owner, name, owner[name]]);
        owner[name] = undefined;
    }
    try {
        (0, eval)(fallbacks);
        return { native, filled: evaluateAll() };
    } finally {
        for (const [owner, name, method] of saved) {
            owner[name] = method;
        }
    }
}

test('fallbacks do what the methods of the language do', async () => {
    const fresh = await browser.newPage();
    const { native, filled } = await fresh.evaluate(evaluateBoth, [await readScript('polyfill.js'), polyfillCases]);
    assert.deepEqual(filled, native);
});
