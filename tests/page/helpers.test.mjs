// The helpers and the tools of the script layer in the browser. The interpreter runs the same cases.
import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { before, test } from 'node:test';
import { createContext, runInContext } from 'node:vm';
import { browser } from './browser.mjs';
import { readScript, readScripts } from './scripts.mjs';

const read = (name) => readFile(new URL(name, import.meta.url), 'utf8');

let page;

before(async () => {
    page = await browser.newPage();
    for (const content of [...(await readScripts()), await read('run_cases.js')]) {
        await page.addScriptTag({ content });
    }
});

test('every case gives what the table says', async () => {
    const table = JSON.parse(await read('helper_cases.json'));
    assert.ok(table.cases.length > 70);
    assert.deepEqual(await page.evaluate((cases) => failingCases(cases), table), []);
});

// The last name of each run of the table, which is wrong if anything in the run is.
const entities = `
    quot apos lt gt macr iquest Euml times szlig euml divide yuml oelig scaron Yuml fnof circ tilde Rho Omega rho
    omega upsih piv emsp thinsp rlm mdash sbquo bdquo bull hellip permil Prime rsaquo oline frasl euro image weierp
    real trade alefsym harr crarr hArr forall exist empty notin ni prod minus lowast radic infin ang int there4 sim
    cong asymp equiv ge nsub supe oplus otimes perp sdot rfloor loz spades clubs diams`;

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

// Each expression is evaluated with the language's own methods, then with the fallbacks in their place.
const polyfillCases = [
    'Array.isArray([]) + "," + Array.isArray({ length: 0 })',
    '[1, 2, 3, 2].indexOf(2) + "," + [2, 1].indexOf(2, -1) + "," + [1].indexOf(3) + "," + [NaN].indexOf(NaN)',
    '[1, 2, 3, 2].lastIndexOf(2) + "," + [1, 2, 1].lastIndexOf(1, -2) + "," + [1].lastIndexOf(9)',
    'var s = ""; [1, , 3].forEach(function (v, i, l) { s += v + i + l.length + this.k; }, { k: "k" }); s',
    '[1, , 3].map(function (v) { return v * 2; }).length + "," + (1 in [1, , 3].map(String))',
    '[1, 2, 3].filter(function (v) { return v % 2; }).join()',
    '[[].some(Boolean), [0, 1].some(Boolean), [].every(Boolean), [1, 0].every(Boolean), [1, 2].every(Boolean)].join()',
    'function add(x, y) { return x + y; } ["a", "b"].reduce(add) + ["a", "b"].reduceRight(add, "z")',
    'try { [].reduce(String); } catch (e) { e instanceof TypeError; }',
    'try { [1].map(null); } catch (e) { e instanceof TypeError; }',
    'Object.keys({ a: 1, b: 2 }).join() + Object.keys(Object.create({ inherited: 1 })).length',
    '"[" + " \\u00a0\\ufeff\\t a b\\n ".trim() + "]"',
    '(function (a, b) { return this.k + a + b; }).bind({ k: "k" }, 1)(2)',
    'function P(x) { this.x = x; } var B = P.bind(null, 4); new B().x + "," + (new B() instanceof P)',
    'Math.abs(Date.now() - new Date().getTime()) < 1000',
];

const removal = `
    for (const name of 'indexOf lastIndexOf forEach map filter some every reduce reduceRight'.split(' ')) {
        delete Array.prototype[name];
    }
    delete Array.isArray; delete Object.keys; delete Object.create; delete String.prototype.trim;
    delete Function.prototype.bind; delete Date.now;`;

test('fallbacks do what the methods of the language do', async () => {
    const evaluateAfter = (script) => {
        const context = createContext();
        runInContext(script, context);
        return polyfillCases.map((each) => String(runInContext(each, context)));
    };
    assert.deepEqual(evaluateAfter(removal + await readScript('polyfill.js')), evaluateAfter(''));
});
