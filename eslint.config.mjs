// The scripts of pages are ES5: nothing translates them for the browsers and the interpreter.
import js from '@eslint/js';

const named = names => Object.fromEntries(names.split(' ').map(name => [name, 'writable']));

export default [
    js.configs.recommended,
    {
        files: ['resources/**/*.js'],
        languageOptions: {
            ecmaVersion: 5,
            sourceType: 'script',
            globals: {
                // What a browser has, and what the interpreter's prelude stands in for.
                ...named('window document navigator console setTimeout history location'),
                // The scripts of a page use each other's.
                ...named('Handlebars d3 htmlparser corvane ReportEngine RadarChart vantrel'),
                ...named('reportText reportTemplates reportHelpers'),
            },
        },
        rules: {
            // Control characters are what some expressions are about, and an escape too many says more.
            'no-control-regex': 'off',
            'no-redeclare': ['error', { builtinGlobals: false }],
            'no-unused-vars': ['error', { vars: 'local' }],
            'no-useless-escape': 'off',
        },
    },
];
