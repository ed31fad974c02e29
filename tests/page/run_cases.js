// Runs the table of helper cases, in the browser and in the interpreter, and tells which go wrong.
// A case with "of" is one for each of its words, which stand in the place of "$"; one without data
// gets the table's document, and its own rows with it.

function casesOf(table) {
    'use strict';
    return table.cases.reduce(function (all, row) {
        return all.concat((row.of || ['$']).map(function (word) {
            var text = JSON.stringify(row).split('$').join(word);
            return JSON.parse(text);
        }));
    }, []);
}

function outcomeOf(row, table) {
    'use strict';
    var engine = ReportEngine.create();
    corvane.idCounters = {};
    engine.registerHelpers({ all: vantrel.templateHelpers });
    try {
        (row.partials || []).forEach(function (partial) {
            engine.registerPartial(partial.name, partial.format, partial.text);
        });
        engine.registerPartial('case', row.format || 'text', row.template);
        return { text: engine.render('case', row.format || 'text', row.data ||
            { data: table.document.data, metricData: table.document.metricData, rows: row.rows }) };
    } catch (exception) {
        return { error: String(exception.message) };
    }
}

function failingCases(table) {
    'use strict';
    var copy = JSON.stringify(table);
    return casesOf(table).map(function (row) {
        var outcome = outcomeOf(row, JSON.parse(copy));
        var isRight = row.error ? String(outcome.error).indexOf(row.error) >= 0 : outcome.text === row.expected;
        return isRight ? '' : row.name + ': ' + JSON.stringify(outcome);
    }).filter(Boolean);
}
