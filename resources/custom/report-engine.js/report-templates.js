// Templates, compiled as late as possible: nearly all the time of a rendering is spent in parsing.
var reportTemplates = (function () {
    'use strict';

    // A path of two or more names, which can be no helper, in two or three braces.
    var PATH_EXPRESSION = /\{\{(?:\{([a-z_]\w*(?:\.[a-z_]\w*)+)\}|([a-z_]\w*(?:\.[a-z_]\w*)+))\}\}/gi;
    var KEYWORD = /(?:^|\.)(?:this|true|false|null|undefined|else)(?:\.|$)/;

    // Any path that stands alone in its braces.
    var LONE_PATH = /(\{\{\{?)([^\s{}()[\]"'=~|&#>!\/^.]+(?:\.[^\s{}()[\]"'=~|&#>!\/^.]+)+)(?=\}\})/g;
    var WORD_OF_PARSER = /^(?:-?\d+|this|true|false|null|undefined)$/;

    // Parts of an id that the parser takes for something else, such as numbers, are names in brackets.
    function bracketParts(text) {
        return text.replace(LONE_PATH, function (all, opening, path) {
            return opening + path.split('.').map(function (part, i) {
                return i > 0 && WORD_OF_PARSER.test(part) ? '[' + part + ']' : part;
            }).join('.');
        });
    }

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
        // The parser never returns from a raw block that is closed wrongly, and reports need none.
        if (text.indexOf('{{{{') >= 0) {
            throw new Error('raw blocks are not supported');
        }
        var split = splitPaths(text);
        if (!split) {
            return environment.compile(bracketParts(text));
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
