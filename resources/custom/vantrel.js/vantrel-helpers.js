// The report's helpers as templates call them, and their registration.

vantrel.templateHelpers = (function () {
    'use strict';

    function rootOf(args) {
        return args[args.length - 1].data.root;
    }

    var check = vantrel.check;

    function metricHelper(name, read) {
        return function (metricId) {
            check(arguments.length === 2, name + ' requires one argument');
            return read(metricId, rootOf(arguments));
        };
    }

    function padHelper(name, pad) {
        return function () {
            var count = arguments.length;
            var options = arguments[count - 1];
            check(count >= 1 && count <= 3, 'invalid usage of ' + name);
            if (options.fn) {
                check(count === 2, 'invalid usage of ' + name + ', an argument is required when used as a block');
                return pad(options.fn(this), arguments[0]);
            }
            check(count === 3, 'invalid usage of ' + name + ', two arguments are required when used as a function');
            return pad(arguments[0], arguments[1]);
        };
    }

    return {
        number: function (value) { return vantrel.formatNumber(value); },
        percent: function (value) { return vantrel.formatPercent(value); },
        barWidth: function (value) { return vantrel.barWidth(value); },
        isVisible: function (row) { return vantrel.isVisible(row, rootOf(arguments)); },
        normaliseMetrics: function (metrics) { return vantrel.normaliseMetrics(metrics, rootOf(arguments)); },
        lookupMetric: metricHelper('lookupMetric', vantrel.lookupMetric),
        lookupMetricDisplayName: metricHelper('lookupMetricDisplayName', function (metricId, root) {
            return vantrel.lookupMetricField(metricId, 'displayName', root);
        }),
        lookupMetricUnits: metricHelper('lookupMetricUnits', function (metricId, root) {
            return vantrel.lookupMetricField(metricId, 'units', root);
        }),
        siValue: function (value) { return vantrel.factorValue(value, vantrel.siFactors); },
        iecValue: function (value) { return vantrel.factorValue(value, vantrel.iecFactors); },
        siUnits: function (value, options) {
            return vantrel.factorUnits(value, vantrel.siFactors, options.hash);
        },
        iecUnits: function (value, options) {
            return vantrel.factorUnits(value, vantrel.iecFactors, options.hash);
        },
        customUnits: function (value, units) { return vantrel.customUnits(value, units); },
        percentToBar: function (value) { return vantrel.percentToBar(value); },
        padLeft: padHelper('padLeft', vantrel.padLeft),
        padRight: padHelper('padRight', vantrel.padRight),
        scriptText: function (value) { return vantrel.scriptText(value); }
    };
}());

// Outside strict mode: the block gets a boxed `this`, which adds one depth to the paths inside it
// where the context is a plain text. The templates count that depth.
vantrel.templateHelpers.csvEscape = function (value) {
    var count = arguments.length;
    var options = arguments[count - 1];
    vantrel.check(count === 1 || count === 2, 'invalid usage of csvEscape');
    if (options.fn) {
        vantrel.check(count === 1,
            'invalid usage of csvEscape, no arguments should be passed when used as a block');
        return vantrel.csvEscape(options.fn(this));
    }
    vantrel.check(count === 2, 'invalid usage of csvEscape, an argument is required when used as a function');
    return vantrel.csvEscape(value);
};

ReportEngine.registerHelpers({ all: vantrel.templateHelpers });
