// The script layer as the page loads it, read from the resources and the installed packages.
// VANTREL_SCRIPTS_DIR names a folder that holds the third-party scripts instead.
import { readFile } from 'node:fs/promises';
import { createRequire } from 'node:module';
import { basename, dirname, join } from 'node:path';

const resources = new URL('../../resources/custom/', import.meta.url);
const require = createRequire(import.meta.url);

export function readResource(name) {
    return readFile(new URL(name, resources), 'utf8');
}

export function readThirdParty(packageName, file) {
    const folder = process.env.VANTREL_SCRIPTS_DIR;
    const path = folder
        ? join(folder, basename(file))
        : join(dirname(require.resolve(`${packageName}/package.json`)), file);
    return readFile(path, 'utf8');
}

// In load order.
export async function readScripts() {
    const parser = await readThirdParty('htmlparser', 'lib/htmlparser.min.js');
    return [
        await readResource('polyfill.js'),
        await readResource('corvane.js'),
        await readThirdParty('handlebars', 'dist/handlebars.min.js'),
        parser + (await readResource('htmlparser-builder.js')),
        await readResource('report-engine.js'),
        await readResource('vantrel.js'),
    ];
}
