// The built-in helpers. The last argument of each is the Handlebars options object, which the
// counts of arguments include. The argument `environment` is the one that they are registered in.
var reportHelpers = (function () {
    'use strict';

    function fail(message) {
        throw new Error(message);
    }

    function check(isRight, message) {
        if (!isRight) {
            fail(message);
        }
    }

    function toNumber(value) {
        return +value || 0;
    }

    function isStringOrFalsy(value) {
        return typeof value === 'string' || !value;
    }

    function isMissing(value) {
        return value === null || value === undefined;
    }

    // The last of a helper's arguments.
    function optionsOf(args) {
        return args[args.length - 1];
    }

    // A helper that works on its argument or, without one, on its block.
    function valueOrBlock(name, change) {
        return function (value) {
            var options = optionsOf(arguments);
            var count = arguments.length;
            check(count === 1 || count === 2, 'invalid usage of ' + name);
            if (options.fn) {
                check(count === 1,
                    'invalid usage of ' + name + ', no arguments should be passed when used as a block');
                return change(corvane.toText(options.fn(this)));
            }
            check(count === 2, 'invalid usage of ' + name + ', an argument is required when used as a function');
            return change(corvane.toText(value));
        };
    }

    function binary(name, calculate) {
        return function (x, y) {
            check(arguments.length === 3, 'invalid usage of ' + name);
            return calculate(x, y);
        };
    }

    function anyNotNull() {
        return Array.prototype.slice.call(arguments, 0, -1).some(function (value) {
            return !isMissing(value);
        });
    }

    function toPrecision(value, precision) {
        var digits = isMissing(precision) || precision === '' ? NaN : +precision;
        if (!isFinite(digits)) {
            return toNumber(value).toPrecision();
        }
        return toNumber(value).toPrecision(Math.floor(Math.max(1, Math.min(21, digits))));
    }

    function find(list, keyPath, value, resultPath) {
        var withResult = arguments.length === 5;
        check(withResult || arguments.length === 4, 'invalid usage of find');
        check(Array.isArray(list), 'array parameter to find must be an array');
        check(isStringOrFalsy(keyPath), 'keyPath parameter to find must be a string or falsy');
        check(!withResult || isStringOrFalsy(resultPath), 'resultPath parameter to find must be a string or falsy');
        for (var i = 0; i < list.length; i++) {
            if (corvane.lookup(list[i], keyPath) === value) {
                return corvane.lookup(list[i], withResult ? resultPath : '');
            }
        }
        return undefined;
    }

    function increment(key, options) {
        check(arguments.length === 2, 'invalid usage of increment');
        var scope = corvane.hasOwn(options.hash, 'scope') ? options.hash.scope : this;
        check(corvane.isObject(scope), 'scope for increment must be an object');
        scope[key] = typeof scope[key] === 'number' ? scope[key] + 1 : 0;
    }

    function formatToMimeType(format) {
        var types = { text: 'text/plain', html: 'text/html', all: 'text/x.corvane-template' };
        check(arguments.length === 2, 'invalid usage of formatToMimeType');
        return corvane.hasOwn(types, format) ? types[format] : '';
    }

    function makeCommonHelpers(environment) {
        return {
            condenseSpace: function (options) {
                check(arguments.length === 1 && options.fn, 'invalid usage of condenseSpace');
                return corvane.toText(options.fn(this)).trim().replace(/\s+/g, ' ');
            },
            trim: valueOrBlock('trim', function (text) { return text.trim(); }),
            trimLeft: valueOrBlock('trimLeft', function (text) { return text.replace(/^\s+/, ''); }),
            toFixed: binary('toFixed', function (value, precision) {
                return toNumber(value).toFixed(toNumber(precision));
            }),
            toPrecision: binary('toPrecision', toPrecision),
            makeId: function (options) {
                return corvane.makeId(options.fn(this));
            },
            toBool: function (value) {
                return corvane.toBool(value);
            },
            greater: binary('greater', function (a, b) { return a > b; }),
            less: binary('less', function (a, b) { return a < b; }),
            isEqual: function (a, b) {
                return a === b;
            },
            add: binary('add', function (x, y) { return toNumber(x) + toNumber(y); }),
            sub: binary('sub', function (x, y) { return toNumber(x) - toNumber(y); }),
            div: binary('div', function (x, y) { return toNumber(x) / toNumber(y); }),
            anyNotNull: anyNotNull,
            allNull: function () {
                return !anyNotNull.apply(this, arguments);
            },
            increment: increment,
            isOdd: function (value) {
                // The wrong name in the message is known to callers and stays.
                check(arguments.length === 2, 'invalid usage of increment');
                return Math.abs(value) % 2 === 1;
            },
            lookup: function (object, path) {
                check(arguments.length === 3, 'invalid usage of lookup');
                check(isStringOrFalsy(path), 'path for lookup must be a string or falsy value');
                return corvane.lookup(object, path);
            },
            find: find,
            textToHtml: function (string) {
                return new environment.SafeString(reportText.textToHtml(string));
            },
            htmlToText: function (string, options) {
                return reportText.htmlToText(string, options.hash);
            },
            isHtml: function () {
                return false;
            },
            wrappablePath: function (path) {
                check(arguments.length === 2, 'invalid usage of wrappablePath');
                return path;
            },
            formatToMimeType: formatToMimeType
        };
    }

    function makeHtmlHelpers(environment) {
        return {
            isHtml: function () {
                return true;
            },
            wrappablePath: function (path) {
                check(arguments.length === 2, 'invalid usage of wrappablePath');
                var escaped = environment.escapeExpression(path);
                return new environment.SafeString(escaped.replace(/\//g, '/&#x200b;'));
            }
        };
    }

    // Compiling is expensive, so each text is compiled once; better still is a partial.
    function makeEval(environment) {
        var compiled = {};

        function templateOf(text) {
            var key = 'text ' + text;
            compiled[key] = compiled[key] || reportTemplates.compileShort(environment, text);
            return compiled[key];
        }

        function render(text, context, root) {
            if (!text) {
                return '';
            }
            check(typeof text === 'string', 'template text for eval must be a string or falsy');
            return new environment.SafeString(templateOf(text)(context, { data: { root: root } }));
        }

        return function (templateText, givenContext) {
            check(arguments.length === 2 || arguments.length === 3, 'invalid usage of eval');
            var options = optionsOf(arguments);
            var context = arguments.length === 3 ? givenContext : this;
            if (corvane.isObject(context)) {
                Object.keys(options.hash).forEach(function (key) {
                    context[key] = options.hash[key];
                });
            }
            if (!Array.isArray(templateText)) {
                return render(templateText, context, options.data.root);
            }
            return templateText.map(function (text) {
                return render(text, context, options.data.root);
            });
        };
    }

    return {
        makeCommonHelpers: makeCommonHelpers,
        makeHtmlHelpers: makeHtmlHelpers,
        makeEval: makeEval
    };
}());
