// The scripts of pages are ES5: nothing translates them for the browsers and the interpreter.
import js from '@eslint/js';

// What the page's scripts find in a browser, and the interpreter's prelude sets up without one.
const surroundings = Object.fromEntries(
    ['window', 'document', 'navigator', 'console', 'Handlebars', 'd3', 'Tautologistics', 'corvane', 'ReportEngine']
        .map(name => [name, 'writable']));

export default [
    { ignores: ['build/', 'node_modules/'] },
    js.configs.recommended,
    {
        files: ['resources/**/*.js'],
        languageOptions: { ecmaVersion: 5, sourceType: 'script', globals: surroundings },
    },
];
