// The command-line tool: arguments, exit code, standard output and standard error output.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { mkdtempSync, readdirSync, readFileSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from 'node:test';

const folder = mkdtempSync(join(tmpdir(), 'vantrel-tool-'));
const definition = (metrics, more = '') => `<?xml version="1.0" encoding="UTF-8"?>
<report xmlns="http://www.corvane.example/2016/CorvaneReports" name="r">
<reportMetrics>${metrics}</reportMetrics>
<summary><heading>H${more}</heading><entry id="c" reportMetric="cpu"/></summary>
<subsections><subsection id="s" heading="S" maxAdviceStrings="2"><entry reportMetric="cpu"/></subsection></subsections>
</report>
`;
const cpu = '<reportMetric id="cpu" displayName="CPU" units="%"/>';
const types = cpu + ['string', 'boolean', 'integer']
    .map(type => `<reportMetric id="${type}" displayName="X" type="${type}"/>`).join('');
const files = {
    'good.xml': definition(cpu),
    'types.xml': definition(types),
    'two.xml': definition(cpu + '<reportMetric id="mpi.share" displayName="MPI"/>'),
    'attribute.xml': definition(cpu.replace('units', 'unit')),
    'reference.xml': definition(cpu).replace('<entry reportMetric="cpu"', '<entry reportMetric="cpx"'),
    'placeholder.xml': definition(cpu, '${cpx}'),
    'template.xml': definition(cpu, '{{#if}}'),
    'partial.xml': '<partialReport xmlns="http://www.corvane.example/2016/CorvaneReports" name="p">' +
        '<reportMetrics><reportMetric id="mpi.share" displayName="MPI"/></reportMetrics></partialReport>',
    'values.json': '{"exeName": "a.out", "processes": 4, "cpu": 30.5}',
    'wrong.json': '{"exeName": 1, "processes": 0, "cpu": "x", "hostnme": "h", "time": 1.5}',
    'malformed.json': '{\n  "cpu": 1,\n}',
    'list.json': '[1]',
    'data.json': '{"data": {"version": 3, "custom": {"report": {"metric": {"cpu": 77.5}}}, ' +
        '"applicationDetails": {"exeName": "b.out", "processes": {"plain": 2}}}}',
};
const declared = { a: ['Double', 'B', 'A, "b"'], n: ['Double', '%', 'N'], s: ['String', null, 'S'],
    'applicationDetails.hostMemory.plain': ['DoubleWithPrecision', 'B', 'M'] };
files['run.json'] = JSON.stringify({
    metricData: Object.fromEntries(Object.entries(declared).map(([id, [type, units, displayName]]) =>
        [id, { value: id, type, units, displayName }])),
    data: { a: 2 ** 31, n: null, s: ' x\ny', applicationDetails: { hostMemory: { plain: { value: 2 ** 38, precision: 3 } } } },
});
for (const [name, text] of Object.entries(files)) {
    writeFileSync(join(folder, name), text);
}

function run(args, input) {
    const { status, stdout, stderr } = spawnSync(process.env.VANTREL_TOOL, args, { cwd: folder, input, encoding: 'utf8' });
    return { code: status, out: stdout, err: stderr };
}

const nothing = /^$/;
const one = 'render good.xml --values values.json';
// Arguments, exit code, what the output is like, the error output.
const cases = [
    ['--version', 0, /^Corvane Custom Vantrel library\n/, ''],
    ['--help', 0, /\bExample:\n {2}vantrel render /, ''],
    ['render --help', 0, /--advice WHERE=TEXT[^]*\nExample:\n {2}vantrel render /, ''],
    ['', 2, nothing, /^A subcommand is required\n/],
    ['lists', 2, nothing, "vantrel: error: there is no command 'lists' (did you mean 'list'?)\n"],
    [one + ' --format xml', 2, nothing, /^--format: xml not in /],
    [one + ' --set cpu', 2, nothing, "--set: error: 'cpu' is no NAME=VALUE\n"],

    [one, 0, /^<!DOCTYPE html>[^]*"cpu":30\.5[^]*<\/html>$/, ''],
    [one + ' --format text', 0, /^Executable: +a\.out\n[^]*\nCPU: +30\.5% /, ''],
    [one + ' --format csv', 0, /^Name,Value\n[^]*"CPU \(%\)",30\.5\n/, ''],
    [one + ' --format json --set cpu=40 --set hostname=h1', 0, /"hostname": "h1"[^]*"cpu": 40\n/, ''],
    ['render good.xml --values data.json --format text', 0, /b\.out[^]*77\.5%/, ''],
    ['render types.xml --values values.json --set string=a=b --set boolean=true --set integer=-7 --format json', 0,
        /"boolean": true,\n +"cpu": 30\.5,\n +"integer": -7,\n +"string": "a=b"\n/, ''],
    [one + ' --partial partial.xml --set mpi.share=nan --format json', 0, /"share": null\n/, ''],
    [one + ' --advice dominant=<b>D</b> --advice s=S1 --advice c=C1 --format json', 0,
        /"advice1": "S1",\n[^]*"advice": "C1"\n[^]*"overview": \{\n +"advice": "<b>D<\/b>"/, ''],
    ['render two.xml --values values.json --set mpi.share=2 --dominant mpi.share --format json', 0,
        /"bound1": \{\n +"long": "MPI-bound"/, ''],

    ['render nowhere.xml', 3, nothing, "nowhere.xml: error: File 'nowhere.xml' does not exist\n"],
    ['render good.xml --values nowhere.json', 3, nothing,
        "nowhere.json: error: can't be read: No such file or directory\n"],
    [one + ' -o nowhere/page.html', 3, nothing,
        "nowhere/page.html: error: can't be written: No such file or directory\n"],
    ['render attribute.xml', 1, nothing, /^attribute\.xml:3:\d+: error: .*unknown attribute unit\.\n$/],
    ['list reference.xml', 1, nothing,
        /^reference\.xml:5:\d+: error: There is no metric with id="cpx" in this report\n$/],
    ['render placeholder.xml --values values.json', 1, nothing,
        /^placeholder\.xml: error: Invalid placeholder "\$\{cpx\}"/],
    ['render template.xml --values values.json --format text', 1, nothing, /^template\.xml: error: Error generating static report: Parse error on line 1:\nH\{\{#if\}\}\n/],
    ['render good.xml --values wrong.json', 1, nothing,
        "wrong.json: error: the value of 'cpu' must be a number\n" +
        "wrong.json: error: the value of 'exeName' must be a text\n" +
        "wrong.json: error: the definition has nothing of the name 'hostnme' (did you mean 'hostname'?)\n" +
        'wrong.json: error: 0 is an invalid value for metric CORVANE_APPLICATION_DETAIL_NUM_PROCESSES. ' +
        'Value must be >= 1.\n' +
        "wrong.json: error: the value of 'time' must be a whole number\n"],
    ['render good.xml --values malformed.json', 1, nothing, /^malformed\.json:3:2: error: no JSON: /],
    ['render good.xml --values list.json', 1, nothing, 'list.json: error: holds a list; values stand in an object\n'],
    ['render two.xml', 1, nothing,
        '(no values): error: these have no value: exeName, processes, cpu, mpi.share\n'],
    [one + ' --set cpux=1 --set ab=1', 1, nothing,
        "--set: error: the definition has nothing of the name 'cpux' (did you mean 'cpu'?)\n" +
        "--set: error: the definition has nothing of the name 'ab'\n"],
    [one + ' --set cpu=much', 1, nothing, "--set: error: the value of 'cpu' must be a number\n"],
    [one + ' --advice dominnt=x', 1, nothing,
        "--advice: error: the definition has nothing of the name 'dominnt' (did you mean 'dominant'?)\n"],
    [one + ' --advice s=<img>', 1, nothing, '--advice: error: invalid HTML sequence found in advice string\n'],
    [one + ' --dominant cpx', 1, nothing, '--dominant: error: metric "cpx" not recognised\n'],

    ['list good.xml', 0, /^Metrics\n {2}cpu {2}Double {2}% {2}CPU\n\n[^]*\n {2}s {2}2 {2}S\n[^]*\n {2}exeName +String /, ''],
    ['records run.json', 0,
        'run.json  com.corvane.a                       2    GiB  A, "b"\n' +
        'run.json  com.corvane.application.hostMemory  256  GiB  M\n' +
        'run.json  com.corvane.n                       nan  %    N\n' +
        'run.json  com.corvane.s                       x y       S\n', ''],
    ['records run.json run.json --format csv', 0,
        /^file,id,value,units,displayName\nrun\.json,com\.corvane\.a,2,GiB,"A, ""b"""\n[^]*," x\ny",,S\nrun\.json,/, ''],
    ['records run.json --format ndjson', 0, /^(\{.*"value":(2|256|null|" x\\ny")\}\n){4}$/, ''],
    ['records run.json malformed.json nowhere.json run.json --format json', 3, /^\[\n(\{.*\},\n){7}\{.*\}\n\]\n$/,
        'malformed.json: error: malformed JSON input\nnowhere.json: error: Unable to open file nowhere.json\n'],
    ['schema', 0, /^<\?xml [^]*<xs:schema /, ''],
    ['schema --catalog', 0, /uri="file:\/\/\/.*\/share\/vantrel\/validation\.xsd"/, ''],
];
for (const [args, code, out, err] of cases) {
    test(`vantrel ${args}`, () => {
        const result = run(args.split(' ').filter(Boolean));
        for (const [actual, expected] of [[result.out, out], [result.err, err]]) {
            if (expected instanceof RegExp) {
                assert.match(actual, expected);
            } else {
                assert.equal(actual, expected);
            }
        }
        assert.equal(result.code, code);
    });
}

test('values come from the standard input, and a file is written whole', () => {
    const page = join(folder, 'page.html');
    const result = run(['render', 'good.xml', '--values', '-', '-o', page], files['values.json']);
    assert.deepEqual(result, { code: 0, out: '', err: '' });
    assert.equal(readFileSync(page, 'utf8'), run(one.split(' ')).out);
    assert.deepEqual(readdirSync(folder).filter(name => name.startsWith('page')), ['page.html']);
});

test('the default definition is rendered, and the list is JSON with an id in each row', () => {
    const data = process.env.VANTREL_DATA;
    assert.match(run(['render', '--values', data, '--format', 'text']).out, /^Command: +srun wave3d /);
    const listed = JSON.parse(run(['list', 'good.xml', '--json']).out);
    assert.deepEqual(Object.keys(listed), ['details', 'metrics', 'placeholders', 'subsections', 'summaryEntries']);
    assert.ok(Object.values(listed).flat().every(row => row.id));
    assert.deepEqual(listed.metrics, [{ id: 'cpu', type: 'Double', units: '%', displayName: 'CPU' }]);
    assert.equal(listed.placeholders[0].expandsTo,
        '<span class="custom.report.metric.cpu">{{custom.report.metric.cpu}}</span>');
});
