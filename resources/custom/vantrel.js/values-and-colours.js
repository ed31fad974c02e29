// The report's numbers, values and colours, and the data of its chart. The files that the build puts
// behind it make all this known to the engine and to the page.

var document;
var window;

var vantrel = (function () {
    'use strict';

    var NOT_SUPPORTED = 'not supported ';
    var UNITS_OF_SYMBOL = { 'B': 'bytes', 'B/s': 'bytes/s' };
    var SYMBOL_OF_UNITS = { 'bytes': 'B', 'bytes/s': 'B/s' };
    var VALUE_FIELDS = ['mean', 'min', 'max', 'stdev'];
    var BLACK = 'rgb(0, 0, 0)';

    var vantrel = {
        siFactors: [
            { factor: 1e9, prefix: 'G' },
            { factor: 1e6, prefix: 'M' },
            { factor: 1e3, prefix: 'k' },
            { factor: 1, prefix: '' }
        ],
        // "ki" with a small letter, on purpose.
        iecFactors: [
            { factor: 1073741824, prefix: 'Gi' },
            { factor: 1048576, prefix: 'Mi' },
            { factor: 1024, prefix: 'ki' },
            { factor: 1, prefix: '' }
        ]
    };

    // Old engines have no single precision; nine decimals are as much as it holds.
    Math.fround = Math.fround || function (x) {
        return Math.round(x * 1e9) / 1e9;
    };

    vantrel.check = function (isRight, message) {
        if (!isRight) {
            throw new Error(message);
        }
    };

    // ---- numbers and units

    function isMissing(value) {
        return value === null || value === undefined;
    }

    function isUnsupported(value) {
        return isMissing(value) || value === '' || !isFinite(value);
    }

    function isFiniteNumber(value) {
        return typeof value === 'number' && isFinite(value);
    }

    function valueAt(table, key) {
        return corvane.hasOwn(table, key) ? table[key] : undefined;
    }

    vantrel.formatNumber = function (value) {
        if (isUnsupported(value)) {
            return NOT_SUPPORTED;
        }
        var number = +value;
        if (number >= 100) {
            return number.toFixed(0);
        }
        return number.toFixed(number >= 10 ? 1 : 2);
    };

    vantrel.formatPercent = function (value) {
        if (isUnsupported(value)) {
            return NOT_SUPPORTED;
        }
        return value > 0 && value < 0.1 ? '<0.1' : (+value).toFixed(1);
    };

    vantrel.barWidth = function (value) {
        return isUnsupported(value) ? '0' : Math.min(100, +value);
    };

    vantrel.chooseFactor = function (value, factors) {
        for (var i = 0; i < factors.length; i++) {
            if (value >= factors[i].factor) {
                return factors[i];
            }
        }
        return factors[factors.length - 1];
    };

    vantrel.factorValue = function (value, factors) {
        return isMissing(value) ? value : value / vantrel.chooseFactor(value, factors).factor;
    };

    // The short symbol goes with a prefix, the written-out units stand alone: "kB", but "bytes".
    vantrel.factorUnits = function (value, factors, options) {
        var symbol = options.symbol || valueAt(SYMBOL_OF_UNITS, options.units) || options.units || '';
        var units = options.units || valueAt(UNITS_OF_SYMBOL, options.symbol) || options.symbol || '';
        var prefix = vantrel.chooseFactor(value, factors).prefix;
        return prefix ? prefix + symbol : units;
    };

    function singular(word) {
        if (word.length > 1 && (/ses$/).test(word)) {
            return word.slice(0, -2);
        }
        return word.length > 1 && (/s$/).test(word) ? word.slice(0, -1) : word;
    }

    vantrel.customUnits = function (value, units) {
        return value === 1 ? corvane.toText(units).split('/').map(singular).join('/') : units;
    };

    function repeat(text, count) {
        return new Array(count + 1).join(text);
    }

    vantrel.percentToBar = function (value) {
        var percent = Math.max(+value || 0, 0);
        var length = Math.min(Math.round(percent / 10), 20);
        return '|' + repeat('=', Math.max(length - 1, 0)) + (percent > 0 ? '|' : '');
    };

    function columnWidth(maxLength) {
        return Math.floor(Math.max(+maxLength || 0, 0));
    }

    vantrel.padLeft = function (value, maxLength) {
        var width = columnWidth(maxLength);
        var text = repeat(' ', width) + corvane.toText(value);
        return text.slice(text.length - width);
    };

    vantrel.padRight = function (value, maxLength) {
        var width = columnWidth(maxLength);
        return (corvane.toText(value) + repeat(' ', width)).slice(0, width);
    };

    vantrel.csvEscape = function (value) {
        var text = corvane.toText(value).replace(/"/g, '""');
        return (/[, \r\n"]/).test(text) ? '"' + text + '"' : text;
    };

    // The inside of a script string in an attribute, which no character of the text can end.
    vantrel.scriptText = function (value) {
        return corvane.toText(value).replace(/['"\\<>&\u0000-\u001F\u007F-\u009F\u2028\u2029]/g, function (character) {
            return '\\u' + ('000' + character.charCodeAt(0).toString(16)).slice(-4);
        });
    };

    // ---- the report's data

    function truthOf(condition, root) {
        return corvane.toBool(typeof condition === 'string' ? corvane.lookup(root, condition) : condition);
    }

    vantrel.isVisible = function (row, root) {
        if (row.visible !== undefined) {
            return truthOf(row.visible, root);
        }
        return row.hidden === undefined || !truthOf(row.hidden, root);
    };

    function metricDefinition(metricId, root) {
        return valueAt(root.metricData || {}, metricId);
    }

    // A value may be wrapped once as `plain`, once as a value with its precision, or both.
    vantrel.lookupMetric = function (metricId, root) {
        var definition = metricDefinition(metricId, root);
        if (!definition || !definition.value) {
            return undefined;
        }
        var value = corvane.lookup(root.data, definition.value);
        ['plain', 'value'].forEach(function (key) {
            if (corvane.isObject(value) && corvane.hasOwn(value, key)) {
                value = value[key];
            }
        });
        return value;
    };

    vantrel.lookupMetricField = function (metricId, field, root) {
        return (metricDefinition(metricId, root) || {})[field] || '';
    };

    function readValue(row, root) {
        row.def = metricDefinition(row.metricId, root);
        if (row.metricId && !row.def) {
            console.warn('unknown metric: ' + row.metricId);
        }
        var source = row.def ? corvane.lookup(root.data, row.def.value) : root.data;
        if (!corvane.isObject(source)) {
            source = { mean: source };
        }
        row.value = {};
        VALUE_FIELDS.forEach(function (field) {
            row.value[field] = isFiniteNumber(source[field]) ? source[field] : null;
        });
    }

    // With a word in front, so that no group's name is one that every object has.
    function groupKey(row) {
        return 'group ' + row.group;
    }

    function raiseGroupMaximum(maxima, row) {
        var key = groupKey(row);
        var value = row.value;
        maxima[key] = Math.max(maxima[key] || 0,
            value.min || 0, value.mean || 0, value.max || 0, row.maxBarValue || 0);
    }

    function scaleValue(value, maximum) {
        var scaled = {};
        VALUE_FIELDS.forEach(function (field) {
            scaled[field] = 100.0 * value[field] / maximum;
        });
        return scaled;
    }

    // Within a group the row's own maximum has done its part already.
    function normalise(row, maxima) {
        row.normalisedValue = row.value;
        if (row.group) {
            var maximum = maxima[groupKey(row)];
            row.normalisedValue = maximum > 0 ? scaleValue(row.value, maximum) : row.value;
        } else if (!isMissing(row.maxBarValue)) {
            row.normalisedValue = scaleValue(row.value, row.maxBarValue);
        }
    }

    // Fills the rows with their definitions, values and bar lengths in percent.
    vantrel.normaliseMetrics = function (metrics, root) {
        var maxima = {};
        metrics.forEach(function (row) {
            readValue(row, root);
            if (row.group) {
                raiseGroupMaximum(maxima, row);
            }
        });
        metrics.forEach(function (row) {
            normalise(row, maxima);
        });
        return metrics;
    };

    // ---- colours

    function clamp(value, maximum) {
        return Math.min(Math.max(value, 0), maximum);
    }

    function component(colour, i) {
        return colour && isFiniteNumber(colour[i]) ? colour[i] : 0;
    }

    // Colours are arrays of hue, saturation and lightness; a missing one counts as black.
    vantrel.mergeColor = function (c1, c2) {
        return [360, 100, 100].map(function (maximum, i) {
            return clamp(component(c1, i) + component(c2, i), maximum);
        });
    };

    function channel(p, q, hue) {
        var t = hue < 0 ? hue + 1 : hue > 1 ? hue - 1 : hue;
        if (t < 1 / 6) {
            return p + (q - p) * 6 * t;
        }
        if (t < 1 / 2) {
            return q;
        }
        return t < 2 / 3 ? p + (q - p) * (2 / 3 - t) * 6 : p;
    }

    vantrel.hslToRgb = function (h, s, l) {
        var q = l < 0.5 ? l * (1 + s) : l + s - l * s;
        var p = 2 * l - q;
        var channels = [h + 1 / 3, h, h - 1 / 3].map(function (hue) {
            return Math.round(Math.fround(channel(p, q, hue)) * 255);
        });
        return 'rgb(' + channels.join(', ') + ')';
    };

    function colourText(colour) {
        return vantrel.hslToRgb(component(colour, 0) / 360, component(colour, 1) / 100, component(colour, 2) / 100);
    }

    vantrel.computeColor = function (colorData, colorName) {
        if (!colorData) {
            return BLACK;
        }
        var flat = valueAt(colorData, colorName);
        if (Array.isArray(flat)) {
            return colourText(flat);
        }
        var names = corvane.toText(colorName).split('.');
        var node = colorData;
        var colour = [0, 0, 0];
        for (var i = 0; i < names.length; i++) {
            node = corvane.isObject(node) ? valueAt(node, names[i]) : undefined;
            if (!node) {
                return BLACK;
            }
            colour = vantrel.mergeColor(colour, Array.isArray(node) ? node : node['default']);
        }
        return colourText(colour);
    };

    // A name as a text of a style sheet: an id may hold anything.
    function cssText(name) {
        return name.replace(/['"\\\u0000-\u001F\u007F]/g, function (character) {
            return '\\' + character.charCodeAt(0).toString(16) + ' ';
        });
    }

    function insertColorRules(colorName, colorValue) {
        var name = cssText(corvane.toText(colorName));
        var rgb = colourText(colorValue);
        corvane.sheet.insertRule("[class='" + name + "'] { color : " + rgb + "; }", 0);
        corvane.sheet.insertRule("[class='bar'] [class='" + name + "'] { background-color : " + rgb + "; }", 0);
    }

    // Nested colours add up on the way to the leaf, whose name is the path that led to it.
    vantrel.makeCssColorRules = function (colorData, colorName, colorValue) {
        if (Array.isArray(colorData)) {
            insertColorRules(colorName, colorValue);
            return;
        }
        if (!corvane.isObject(colorData)) {
            return;
        }
        var merged = vantrel.mergeColor(colorValue, colorData['default']);
        Object.keys(colorData).forEach(function (key) {
            if (key === 'default') {
                vantrel.makeCssColorRules(colorData[key], colorName, merged);
            } else {
                vantrel.makeCssColorRules(colorData[key], colorName ? colorName + '.' + key : key,
                    vantrel.mergeColor(merged, colorData[key]));
            }
        });
    };

    // ---- the chart's data

    // As the summary shows it.
    function formatShare(value) {
        var text = vantrel.formatPercent(value);
        return text === NOT_SUPPORTED ? text.trim() : text + '%';
    }

    function addAxis(radar, row, jsonData) {
        var value = vantrel.lookupMetric(row.metricId, jsonData);
        var finite = isFiniteNumber(value) ? value : 0;
        var axis = row.chartLabel || row.heading;
        if (radar.maxAxis === null || finite > radar.data[radar.maxAxis].value) {
            radar.maxAxis = radar.data.length;
        }
        radar.data.push({ axis: axis, value: finite });
        radar.options.description += (radar.options.description && ', ') + axis + ' ' + formatShare(value);
        radar.axisColors.push(vantrel.computeColor(jsonData.colorData, row.colorName));
    }

    function chartColor(radar, jsonData) {
        var primaryBound = jsonData.summaryData.primaryBound;
        if (primaryBound) {
            var bound = corvane.lookup(jsonData.data, primaryBound);
            return bound ? vantrel.computeColor(jsonData.colorData, bound) : null;
        }
        return radar.maxAxis === null ? null : radar.axisColors[radar.maxAxis];
    }

    function constant(value) {
        return function () {
            return value;
        };
    }

    function makeRadarData(jsonData) {
        if (!jsonData || !jsonData.summaryData || !jsonData.summaryData.rows) {
            return null;
        }
        var radar = {
            data: [],
            axisColors: [],
            maxAxis: null,
            options: {
                w: 200,
                h: 200,
                factor: 0.7,
                fontSize: 16,
                radius: 0,
                opacityArea: 0.64,
                maxValue: 100,
                color: constant('#bb58d6'),
                description: ''
            }
        };
        jsonData.summaryData.rows.forEach(function (row) {
            if (vantrel.isVisible(row, jsonData)) {
                addAxis(radar, row, jsonData);
            }
        });
        var color = chartColor(radar, jsonData);
        if (color) {
            radar.options.color = constant(color);
        }
        return radar.data.length >= 3 ? radar : null;
    }

    if (window && window.d3) {
        vantrel.makeRadarData = makeRadarData;
    }

    return vantrel;
}());
