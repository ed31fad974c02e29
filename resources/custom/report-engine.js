// The engine's script layer: one Handlebars environment per format, the registry of partials,
// the built-in helpers, the way between HTML and text, and the start of the page.

var document;
var window;

// HTML to text and back.
var reportText = (function () {
    'use strict';

    // The HTML 4 entities: runs of names whose characters follow each other, by the first code.
    var ENTITY_RUNS = [
        [34, 'quot'], [38, 'amp apos'], [60, 'lt'], [62, 'gt'],
        [160, 'nbsp iexcl cent pound curren yen brvbar sect uml copy ordf laquo not shy reg macr'],
        [176, 'deg plusmn sup2 sup3 acute micro para middot cedil sup1 ordm raquo frac14 frac12 frac34 iquest'],
        [192, 'Agrave Aacute Acirc Atilde Auml Aring AElig Ccedil Egrave Eacute Ecirc Euml'],
        [204, 'Igrave Iacute Icirc Iuml ETH Ntilde Ograve Oacute Ocirc Otilde Ouml times'],
        [216, 'Oslash Ugrave Uacute Ucirc Uuml Yacute THORN szlig'],
        [224, 'agrave aacute acirc atilde auml aring aelig ccedil egrave eacute ecirc euml'],
        [236, 'igrave iacute icirc iuml eth ntilde ograve oacute ocirc otilde ouml divide'],
        [248, 'oslash ugrave uacute ucirc uuml yacute thorn yuml'],
        [338, 'OElig oelig'], [352, 'Scaron scaron'], [376, 'Yuml'], [402, 'fnof'], [710, 'circ'], [732, 'tilde'],
        [913, 'Alpha Beta Gamma Delta Epsilon Zeta Eta Theta Iota Kappa Lambda Mu Nu Xi Omicron Pi Rho'],
        [931, 'Sigma Tau Upsilon Phi Chi Psi Omega'],
        [945, 'alpha beta gamma delta epsilon zeta eta theta iota kappa lambda mu nu xi omicron pi rho'],
        [962, 'sigmaf sigma tau upsilon phi chi psi omega'],
        [977, 'thetasym upsih'], [982, 'piv'],
        [8194, 'ensp emsp'], [8201, 'thinsp'], [8204, 'zwnj zwj lrm rlm'], [8211, 'ndash mdash'],
        [8216, 'lsquo rsquo sbquo'], [8220, 'ldquo rdquo bdquo'], [8224, 'dagger Dagger bull'], [8230, 'hellip'],
        [8240, 'permil'], [8242, 'prime Prime'], [8249, 'lsaquo rsaquo'], [8254, 'oline'], [8260, 'frasl'],
        [8364, 'euro'], [8465, 'image'], [8472, 'weierp'], [8476, 'real'], [8482, 'trade'], [8501, 'alefsym'],
        [8592, 'larr uarr rarr darr harr'], [8629, 'crarr'], [8656, 'lArr uArr rArr dArr hArr'],
        [8704, 'forall'], [8706, 'part exist'], [8709, 'empty'], [8711, 'nabla isin notin'], [8715, 'ni'],
        [8719, 'prod'], [8721, 'sum minus'], [8727, 'lowast'], [8730, 'radic'], [8733, 'prop infin'],
        [8736, 'ang'], [8743, 'and or cap cup int'], [8756, 'there4'], [8764, 'sim'], [8773, 'cong'],
        [8776, 'asymp'], [8800, 'ne equiv'], [8804, 'le ge'], [8834, 'sub sup nsub'], [8838, 'sube supe'],
        [8853, 'oplus'], [8855, 'otimes'], [8869, 'perp'], [8901, 'sdot'],
        [8968, 'lceil rceil lfloor rfloor'], [9001, 'lang rang'], [9674, 'loz'],
        [9824, 'spades'], [9827, 'clubs'], [9829, 'hearts diams']
    ];
    var BLOCK_ELEMENTS = ['p', 'div', 'h1', 'h2', 'h3', 'h4', 'h5', 'h6', 'ul', 'ol', 'pre'];
    var WRAPPABLE = /[ \t\u2000-\u200B\u205F\u3000]/;
    var DEFAULT_COLUMN = 80;

    var entities = makeEntities();

    function makeEntities() {
        var table = {};
        ENTITY_RUNS.forEach(function (run) {
            run[1].split(' ').forEach(function (name, i) {
                table[name] = String.fromCharCode(run[0] + i);
            });
        });
        return table;
    }

    function characterOf(code) {
        if (!(code > 0 && code <= 0x10FFFF)) {
            return '\uFFFD';
        }
        if (code < 0x10000) {
            return String.fromCharCode(code);
        }
        return String.fromCharCode(0xD800 + ((code - 0x10000) >> 10), 0xDC00 + ((code - 0x10000) & 0x3FF));
    }

    function decode(text) {
        return text.replace(/&([A-Za-z][A-Za-z0-9]*);/g, function (all, name) {
            return String(corvane.hasOwn(entities, name) ? entities[name] : undefined);
        }).replace(/&#([0-9]+);/g, function (all, digits) {
            return characterOf(parseInt(digits, 10));
        }).replace(/&#[xX]([0-9A-Fa-f]+);/g, function (all, digits) {
            return characterOf(parseInt(digits, 16));
        });
    }

    // Breaks at the last wrappable character of a line that has grown too long.
    function wrapText(text, column) {
        var result = '';
        var lineStart = 0;
        var wrapAt = -1;
        for (var i = 0; i < text.length; i++) {
            var character = text.charAt(i);
            if (character === '\n') {
                result += text.slice(lineStart, i + 1);
                lineStart = i + 1;
                wrapAt = -1;
            } else if (WRAPPABLE.test(character)) {
                wrapAt = i;
            }
            if (i - lineStart + 1 > column && wrapAt >= 0) {
                result += text.slice(lineStart, wrapAt) + '\n';
                lineStart = wrapAt + 1;
                wrapAt = -1;
            }
        }
        return result + text.slice(lineStart);
    }

    function parse(html) {
        var nodes;
        var builder = new htmlparser.HtmlBuilder(function (error, dom) {
            if (error) {
                throw error;
            }
            nodes = dom;
        });
        new htmlparser.Parser(builder).parseComplete(html);
        return nodes;
    }

    function textOf(node, options) {
        var text = decode(node.data);
        if (options.collapseWhitespace) {
            text = text.replace(/[ \r\n\t]+/g, ' ');
        }
        if (options.wrap) {
            text = wrapText(text, typeof options.wrap === 'number' ? options.wrap : DEFAULT_COLUMN);
        }
        return text;
    }

    function endsInNewline(text) {
        return text.charAt(text.length - 1) === '\n';
    }

    function isBlock(node) {
        return BLOCK_ELEMENTS.indexOf(node.name) >= 0;
    }

    function openNode(result, node, options) {
        if (node.type === 'text') {
            return result + textOf(node, options);
        }
        if (node.name === 'br') {
            return result + '\n';
        }
        return isBlock(node) && result !== '' && !endsInNewline(result) ? result + '\n' : result;
    }

    function closeNode(result, node) {
        if (node.name === 'p') {
            return result + '\n\n';
        }
        return isBlock(node) && !endsInNewline(result) ? result + '\n' : result;
    }

    // With a stack of its own: markup may be nested deeper than the interpreter can recurse.
    function walk(nodes, options) {
        var result = '';
        var stack = [{ nodes: nodes, next: 0, parent: null }];
        while (stack.length) {
            var level = stack[stack.length - 1];
            if (level.next < level.nodes.length) {
                var node = level.nodes[level.next++];
                result = openNode(result, node, options);
                stack.push({ nodes: node.children || [], next: 0, parent: node });
            } else {
                stack.pop();
                result = level.parent ? closeNode(result, level.parent) : result;
            }
        }
        return result;
    }

    function htmlToText(string, options) {
        var html = corvane.isObject(string) && typeof string.toString === 'function' ? string.toString() : string;
        if (typeof html !== 'string') {
            throw new Error('htmlToText expected string argument');
        }
        if (options !== undefined && !corvane.isObject(options)) {
            throw new Error('htmlToText options must be object');
        }
        var given = options || {};
        return walk(parse(html), {
            wrap: given.wrap === undefined ? false : given.wrap,
            collapseWhitespace: given.collapseWhitespace === undefined ? true : given.collapseWhitespace
        });
    }

    function textToHtml(string) {
        if (typeof string !== 'string') {
            throw new Error('textToHtml expected string argument');
        }
        return '<span style="white-space:pre-line">' + Handlebars.escapeExpression(string) + '</span>';
    }

    // Text has nothing to escape: what an HTML template writes escaped, its text form writes as it is.
    // Partials, blocks, closings, else and comments are no values and stay.
    function htmlTemplateToText(template) {
        var unescaped = template.replace(/\{\{([^>#\/{}][^{}]*?)\}\}(?!\})/g, function (all, inner) {
            var parts = (/^(~?)([\s\S]*?)(~?)$/).exec(inner);
            if ((/^\s*(?:[>#\/^!&*]|else(?![\w.\-]))/).test(parts[2])) {
                return all;
            }
            return '{{' + parts[1] + '{' + parts[2] + '}' + parts[3] + '}}';
        });
        return htmlToText(unescaped);
    }

    function textTemplateToHtml(template) {
        return textToHtml(template.replace(/\{\{(~?)\{([^{}]*)\}(~?)\}\}/g, '{{$1$2$3}}'));
    }

    return {
        htmlToText: htmlToText,
        textToHtml: textToHtml,
        htmlTemplateToText: htmlTemplateToText,
        textTemplateToHtml: textTemplateToHtml
    };
}());

// Templates, compiled as late as possible: nearly all the time of a rendering is spent in parsing.
var reportTemplates = (function () {
    'use strict';

    // A path of two or more names, which can be no helper, in two or three braces.
    var PATH_EXPRESSION = /\{\{(?:\{([a-z_]\w*(?:\.[a-z_]\w*)+)\}|([a-z_]\w*(?:\.[a-z_]\w*)+))\}\}/gi;
    var KEYWORD = /(?:^|\.)(?:this|true|false|null|undefined|else)(?:\.|$)/;

    function valueAt(context, names) {
        var value = context;
        for (var i = 0; i < names.length && value !== null && value !== undefined; i++) {
            value = value[names[i]];
        }
        return typeof value === 'function' ? value.call(context) : value;
    }

    function isLiteral(text, isFirst, isLast) {
        return text.indexOf('{{') < 0 &&
            (isFirst || text.charAt(0) !== '}') &&
            (isLast || text.charAt(text.length - 1) !== '{');
    }

    // Splits a text of nothing but literals and paths; null for any other, which needs the parser.
    function splitPaths(text) {
        var parts = [];
        var last = 0;
        var match;
        if (text.indexOf('\\') >= 0) {
            return null;
        }
        PATH_EXPRESSION.lastIndex = 0;
        while ((match = PATH_EXPRESSION.exec(text)) !== null) {
            var path = match[1] || match[2];
            var literal = text.slice(last, match.index);
            if (KEYWORD.test(path) || !isLiteral(literal, last === 0, false)) {
                return null;
            }
            parts.push({ literal: literal, names: path.split('.'), escaped: !match[1] });
            last = match.index + match[0].length;
        }
        var rest = text.slice(last);
        return isLiteral(rest, last === 0, true) ? { parts: parts, rest: rest } : null;
    }

    function renderPaths(split, context) {
        var result = '';
        split.parts.forEach(function (part) {
            var value = valueAt(context, part.names);
            result += part.literal + (part.escaped ? Handlebars.escapeExpression(value) : corvane.toText(value));
        });
        return result + split.rest;
    }

    // The short texts of a report are mostly plain words and paths. They give the same without the parser.
    function compileShort(environment, text) {
        var split = splitPaths(text);
        if (!split) {
            return environment.compile(text);
        }
        return function (context) {
            return renderPaths(split, context);
        };
    }

    // The interpreter loses what the lexer does to the backslash in front of escaped braces. The
    // length beside the text tells whether it was cut off; where it was, nothing is left to do here.
    function mendEscapes(lexer) {
        var performAction = lexer.performAction;
        lexer.performAction = function (state, token, rule) {
            var result = performAction.apply(this, arguments);
            var isUncut = rule === 0 && token.yytext.length === token.yyleng;
            if (isUncut && token.yytext.charAt(token.yyleng - 1) === '\\') {
                token.yytext = token.yytext.slice(0, -1);
                return token.yytext ? result : undefined;
            }
            return result;
        };
    }

    mendEscapes(Handlebars.Parser.lexer);

    function compileDerived(environment, derive, text) {
        var compiled = null;
        return function (context, options) {
            compiled = compiled || environment.compile(derive(text));
            return compiled(context, options);
        };
    }

    return {
        compileShort: compileShort,
        compileDerived: compileDerived
    };
}());

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
        digits = Math.floor(Math.max(1, Math.min(21, digits)));
        var text = toNumber(value).toPrecision(digits);
        // The interpreter begins to write exponents one decimal place too early.
        return (/e-6$/).test(text) ? Number(text).toFixed(Math.min(20, digits + 5)) : text;
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

var ReportEngine = (function () {
    'use strict';

    var FORMATS = ['html', 'text'];
    var MIME_TYPES = { 'text/html': 'html', 'text/plain': 'text', 'text/x.corvane-template': 'all' };
    var ERROR_TEMPLATE = '{{{message}}}\n\n{{#if stack}}<pre>{{{stack}}}</pre>{{/if}}';
    var DERIVE = {
        html: { format: 'text', change: reportText.htmlTemplateToText },
        text: { format: 'html', change: reportText.textTemplateToHtml }
    };

    function requireType(value, type, name) {
        if (typeof value !== type || value === null) {
            throw new Error(name + ' must be ' + (type === 'object' ? 'an ' : 'a ') + type);
        }
    }

    function requireFormat(format) {
        if (FORMATS.indexOf(format) < 0) {
            throw new Error('Invalid format "' + format + '"');
        }
    }

    function Engine() {
        var engine = this;
        engine.engines = {};
        engine.partials = {};
        engine.initFunctions = [];
        engine.afterRenderFunctions = [];
        FORMATS.forEach(function (format) {
            var environment = Handlebars.create();
            engine.engines[format] = environment;
            // The environment's own table, so that there is one registry.
            engine.partials[format] = environment.partials;
            environment.registerHelper(reportHelpers.makeCommonHelpers(environment));
            environment.registerHelper('eval', reportHelpers.makeEval(environment));
        });
        engine.engines.html.registerHelper(reportHelpers.makeHtmlHelpers(engine.engines.html));
        engine.registerPartial('errorTemplate', 'text', ERROR_TEMPLATE);
    }

    Engine.prototype.create = function () {
        return new Engine();
    };

    Engine.prototype.textToHtml = reportText.textToHtml;
    Engine.prototype.htmlToText = reportText.htmlToText;

    Engine.prototype.registerHelpers = function (fns) {
        var engine = this;
        requireType(fns, 'object', 'fns');
        FORMATS.forEach(function (format) {
            engine.engines[format].registerHelper(fns.all || {});
            engine.engines[format].registerHelper(fns[format] || {});
        });
    };

    // The other form is derived from a partial unless there is one already; it may be overwritten.
    Engine.prototype.registerPartial = function (name, format, partial) {
        var engine = this;
        requireType(name, 'string', 'name');
        requireType(format, 'string', 'format');
        requireType(partial, 'string', 'partial');
        if (format === 'all') {
            FORMATS.forEach(function (each) {
                engine.partials[each][name] = engine.engines[each].compile(partial);
            });
            return;
        }
        requireFormat(format);
        engine.partials[format][name] = engine.engines[format].compile(partial);
        var derived = DERIVE[format];
        if (!engine.hasPartial(name, derived.format)) {
            engine.partials[derived.format][name] =
                reportTemplates.compileDerived(engine.engines[derived.format], derived.change, partial);
        }
    };

    Engine.prototype.hasPartial = function (name, format) {
        var partials = this.partials;
        return (format === undefined ? FORMATS : [format]).every(function (each) {
            return corvane.hasOwn(partials, each) && corvane.hasOwn(partials[each], name);
        });
    };

    Engine.prototype.render = function (templateName, format, data) {
        requireType(templateName, 'string', 'templateName');
        requireType(format, 'string', 'format');
        requireType(data, 'object', 'data');
        requireFormat(format);
        if (!this.hasPartial(templateName, format)) {
            throw new Error('Invalid template "' + templateName + '" for ' + format);
        }
        return this.partials[format][templateName](data);
    };

    Engine.prototype.onInit = function (fn) {
        requireType(fn, 'function', 'fn');
        this.initFunctions.push(fn);
    };

    Engine.prototype.afterRender = function (fn) {
        requireType(fn, 'function', 'fn');
        this.afterRenderFunctions.push(fn);
    };

    // The whole page gives way: half a report would look like a whole one.
    function showError(engine, exception) {
        if (!document || !document.body || !engine.hasPartial('errorTemplate', 'html')) {
            return;
        }
        var context = corvane.isObject(exception) ? exception : { message: String(exception) };
        document.body.innerHTML = engine.render('errorTemplate', 'html', context);
    }

    // Calls the functions in order, up to the first that throws; true if none did.
    function invokeFunctions(engine, functions, config, args) {
        requireType(config, 'object', 'config');
        try {
            functions.forEach(function (fn) {
                fn.apply(engine, args);
            });
            return true;
        } catch (exception) {
            if (!config.quiet) {
                console.error(exception);
                showError(engine, exception);
            }
            return false;
        }
    }

    Engine.prototype.invokeInitFunctions = function (config) {
        return invokeFunctions(this, this.initFunctions, config, Array.prototype.slice.call(arguments, 1));
    };

    Engine.prototype.invokeAfterRenderFunctions = function (config) {
        return invokeFunctions(this, this.afterRenderFunctions, config, Array.prototype.slice.call(arguments, 1));
    };

    // Moves the templates of the page's script elements into the registry.
    Engine.prototype.loadHtmlTemplates = function () {
        var scripts = Array.prototype.slice.call(document.getElementsByTagName('script'));
        for (var i = 0; i < scripts.length; i++) {
            var script = scripts[i];
            if (script.id && corvane.hasOwn(MIME_TYPES, script.type)) {
                this.registerPartial(script.id, MIME_TYPES[script.type], script.text.trim());
                script.parentNode.removeChild(script);
            }
        }
    };

    function buildPage(engine, templateName, dataElementId, outputElementId) {
        var data;
        function render() {
            data = corvane.getElementJson(dataElementId);
            corvane.setElementInnerHtml(outputElementId, engine.render(templateName, 'html', data));
        }
        return engine.invokeInitFunctions({}) &&
            invokeFunctions(engine, [render], {}, []) &&
            engine.invokeAfterRenderFunctions({}, data);
    }

    // Builds the page out of its data as soon as the document is there.
    Engine.prototype.startPage = function (templateName, dataElementId, outputElementId) {
        var engine = this;
        function start() {
            buildPage(engine, templateName, dataElementId, outputElementId);
        }
        if (document.readyState === 'loading') {
            document.addEventListener('DOMContentLoaded', start);
        } else {
            start();
        }
    };

    var engine = new Engine();
    if (document) {
        engine.onInit(engine.loadHtmlTemplates);
    }
    return engine;
}());
