// Runs the shared table of helper cases in the browser. The interpreter runs the same table.
import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { after, before, describe, test } from 'node:test';
import { launchBrowser } from './browser.mjs';
import { readScript, readScripts } from './scripts.mjs';

const cases = JSON.parse(await readFile(new URL('helper_cases.json', import.meta.url), 'utf8'));

let browser;
let page;

async function newPage() {
    const fresh = await browser.newPage();
    await fresh.setContent('<!DOCTYPE html><html lang="en"><head><title>t</title></head><body></body></html>');
    return fresh;
}

before(async () => {
    browser = await launchBrowser();
    page = await newPage();
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

describe('helpers', () => {
    test('the names of the rows are unique', () => {
        assert.equal(new Set(cases.map((row) => row.name)).size, cases.length);
    });

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
});

describe('entities', () => {
    test('decode as the browser does', async () => {
        const different = await page.evaluate(async () => {
            const area = document.createElement('textarea');
            const names = ('quot amp apos lt gt nbsp iexcl yuml Agrave THORN OElig Scaron Yuml fnof circ tilde Alpha Rho Sigma ' +
                'Omega alpha sigmaf omega thetasym upsih piv ensp emsp thinsp zwnj rlm ndash mdash lsquo sbquo ldquo bdquo ' +
                'dagger bull hellip permil prime Prime lsaquo oline frasl euro image weierp real trade alefsym larr harr crarr ' +
                'lArr hArr forall part exist empty nabla notin ni prod sum minus lowast radic prop infin ang and or cap cup int ' +
                'there4 sim cong asymp ne equiv le ge sub sup nsub sube supe oplus otimes perp sdot lceil rfloor loz spades ' +
                'clubs hearts diams sup1 frac12 times divide szlig').split(' ');
            return names.filter((name) => {
                area.innerHTML = `&${name};`;
                return ReportEngine.htmlToText(`&${name};`, { collapseWhitespace: false }) !== area.value;
            });
        });
        assert.deepEqual(different, []);
    });
});

describe('deep markup', () => {
    test('is walked without recursion', async () => {
        const length = await page.evaluate(() => {
            const depth = 20000;
            return ReportEngine.htmlToText('<b>'.repeat(depth) + 'x' + '</b>'.repeat(depth)).length;
        });
        assert.equal(length, 1);
    });
});

// Each expression is evaluated with the browser's own methods, then with the fallbacks in their place.
const polyfillCases = [
    'Array.isArray([]) + "," + Array.isArray({ length: 0 })',
    '[1, 2, 3, 2].indexOf(2) + "," + [2, 1].indexOf(2, -1) + "," + [1].indexOf(3) + "," + [NaN].indexOf(NaN)',
    '[1, 2, 3, 2].lastIndexOf(2) + "," + [1, 2, 1].lastIndexOf(1, -2) + "," + [1].lastIndexOf(9)',
    '(function () { var s = ""; [1, , 3].forEach(function (v, i, l) { s += v + i + l.length + this.k; }, { k: "k" }); return s; }())',
    '[1, , 3].map(function (v) { return v * 2; }).length + "," + (1 in [1, , 3].map(String))',
    '[1, 2, 3].filter(function (v) { return v % 2; }).join()',
    '[[].some(Boolean), [0, 1].some(Boolean), [].every(Boolean), [1, 0].every(Boolean), [1, 2].every(Boolean)].join()',
    '["a", "b"].reduce(function (x, y) { return x + y; }) + ["a", "b"].reduceRight(function (x, y) { return x + y; }, "z")',
    '(function () { try { [].reduce(String); } catch (e) { return e instanceof TypeError; } }())',
    '(function () { try { [1].map(null); } catch (e) { return e instanceof TypeError; } }())',
    'Object.keys({ a: 1, b: 2 }).join() + Object.keys(Object.create({ inherited: 1 })).length',
    'Object.create({ a: 5 }).a',
    '"[" + " \\u00a0\\ufeff\\t a b\\n ".trim() + "]"',
    '(function (a, b) { return this.k + a + b; }).bind({ k: "k" }, 1)(2)',
    '(function () { function P(x) { this.x = x; } var B = P.bind(null, 4); return new B().x + "," + (new B() instanceof P); }())',
    'Math.abs(Date.now() - new Date().getTime()) < 1000',
];

// As source text: the methods that playwright itself needs are taken away only while this runs.
function polyfillRun(polyfill, expressions) {
    return `(function () {
        var places = [[Array, 'isArray'], [Object, 'keys'], [Object, 'create'], [String.prototype, 'trim'],
            [Function.prototype, 'bind'], [Date, 'now']];
        'indexOf lastIndexOf forEach map filter some every reduce reduceRight'.split(' ').forEach(function (name) {
            places.push([Array.prototype, name]);
        });
        var expressions = ${JSON.stringify(expressions)};
        function evaluateAll() {
            var results = [];
            for (var i = 0; i < expressions.length; i++) { results[i] = String(eval(expressions[i])); }
            return results;
        }
        var native = evaluateAll();
        var saved = [];
        var i;
        for (i = 0; i < places.length; i++) {
            saved[i] = places[i][0][places[i][1]];
            places[i][0][places[i][1]] = undefined;
        }
        var filled = [];
        var missing = [];
        try {
            (0, eval)(${JSON.stringify(polyfill)});
            for (i = 0; i < places.length; i++) {
                if (typeof places[i][0][places[i][1]] !== 'function') { missing[missing.length] = places[i][1]; }
            }
            filled = evaluateAll();
        } finally {
            for (i = 0; i < places.length; i++) { places[i][0][places[i][1]] = saved[i]; }
        }
        return { native: native, filled: filled, missing: missing };
    }())`;
}

describe('fallbacks', () => {
    test('do what the methods of the language do', async () => {
        const fresh = await newPage();
        const result = await fresh.evaluate(polyfillRun(await readScript('polyfill.js'), polyfillCases));
        assert.deepEqual(result.missing, []);
        assert.deepEqual(result.filled, result.native);
    });
});
