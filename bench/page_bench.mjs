// Times pages in headless Chromium: from the start of navigation to the first frame of the report.
// usage: node page_bench.mjs PAGE...
import { basename, resolve } from 'node:path';
import { pathToFileURL } from 'node:url';
import { launchBrowser } from '../tests/page/browser.mjs';

const runs = 5;

async function time(browser, path) {
    const page = await browser.newPage();
    await page.route('**/*', (route) => (/^(file|data):/.test(route.request().url()) ? route.continue() : route.abort()));
    await page.goto(pathToFileURL(resolve(path)).href, { waitUntil: 'domcontentloaded' });
    const milliseconds = await page.evaluate(() => new Promise((done) => {
        requestAnimationFrame(() => requestAnimationFrame(() => {
            done(document.querySelector('#time_radar svg') ? performance.now() : NaN);
        }));
    }));
    await page.close();
    return milliseconds;
}

const browser = await launchBrowser();
for (const path of process.argv.slice(2)) {
    const times = [];
    for (let i = 0; i < runs; i += 1) {
        times.push(await time(browser, path));
    }
    times.sort((a, b) => a - b);
    console.log(`${basename(path)}: median ${times[(runs - 1) / 2].toFixed(0)} ms, of ${runs} runs ` +
        `${times[0].toFixed(0)} to ${times[runs - 1].toFixed(0)} ms`);
}
await browser.close();
