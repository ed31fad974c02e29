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
