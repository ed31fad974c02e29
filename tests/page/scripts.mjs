// The scripts as the library has them. VANTREL_SCRIPTS names the folder in which the build puts
// those that it makes; the others are resources as they stand.
import { existsSync } from 'node:fs';
import { readFile } from 'node:fs/promises';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';

const made = process.env.VANTREL_SCRIPTS;
const resources = fileURLToPath(new URL('../../resources/custom/', import.meta.url));

export function readScript(name) {
    const path = join(made, name);
    return readFile(existsSync(path) ? path : join(resources, name), 'utf8');
}

// The script layer, in load order.
export function readScripts() {
    return Promise.all(['polyfill.js', 'corvane.js', 'handlebars.min-v4.0.5.js', 'htmlparser.js',
        'report-engine.js', 'vantrel.js'].map(readScript));
}
