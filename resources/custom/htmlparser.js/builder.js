
// Adapter: the parser under the name that the report's scripts use, with a builder that gives
// lower-case tag names. Without a module system the parser leaves its interface in a global.
var htmlparser = (function (parser) {
    'use strict';

    var MARK = /[<>]/g;
    var STARTS_TAG = /^<[a-z\/!?]/i;
    // A longer tag has its "<" and ">" taken as they come.
    var LONGEST_QUOTED_TAG = 1000;
    // In pieces: written out, it would mean something to the page that this script stands in.
    var COMMENT = '<' + '!--';
    var ESCAPES = { '<': '&lt;', '>': '&gt;' };

    function escapeMarks(text) {
        return text.replace(MARK, function (mark) {
            return ESCAPES[mark];
        });
    }

    // Behind the ">" that ends the tag, quoted values passed over, or -1.
    function quotedTagEnd(html, start) {
        for (var i = start + 1; i >= 0 && i < start + LONGEST_QUOTED_TAG; i++) {
            var c = html.charAt(i);
            if (c === '>') {
                return i + 1;
            }
            if (c === '<' || c === '') {
                return -1;
            }
            if (c === '"' || c === '\'') {
                i = html.indexOf(c, i + 1);
                if (i < 0) {
                    return -1;
                }
            }
        }
        return -1;
    }

    // Where quotes don't close, a tag ends at the next mark, if that is ">".
    function plainTagEnd(html, start) {
        MARK.lastIndex = start + 1;
        var next = MARK.exec(html);
        return next && next[0] === '>' ? next.index + 1 : -1;
    }

    function commentEnd(html, start) {
        var end = html.indexOf('-->', start);
        return end < 0 ? html.length : end + 3;
    }

    // The tag or comment that begins here, made harmless inside; the mark itself, escaped, if none does.
    function readMark(html, start) {
        if (html.substr(start, COMMENT.length) === COMMENT) {
            var end = commentEnd(html, start);
            return { end: end, text: html.slice(start, end) };
        }
        if (STARTS_TAG.test(html.substr(start, 2))) {
            var tagEnd = quotedTagEnd(html, start);
            tagEnd = tagEnd < 0 ? plainTagEnd(html, start) : tagEnd;
            if (tagEnd >= 0) {
                return { end: tagEnd, text: '<' + escapeMarks(html.slice(start + 1, tagEnd - 1)) + '>' };
            }
        }
        return { end: start + 1, text: ESCAPES[html.charAt(start)] };
    }

    // The parser takes each "<" and ">" for a tag's: those of "a > b", "{{> name}}" and title="a>b" too.
    function escapeStrayMarks(html) {
        var result = '';
        var last = 0;
        MARK.lastIndex = 0;
        for (var match = MARK.exec(html); match; match = MARK.exec(html)) {
            var mark = readMark(html, match.index);
            result += html.slice(last, match.index) + mark.text;
            last = mark.end;
            MARK.lastIndex = last;
        }
        return result + html.slice(last);
    }

    function HtmlBuilder(callback, options) {
        parser.DefaultHandler.call(this, callback, options);
    }

    function Base() {}
    Base.prototype = parser.DefaultHandler.prototype;
    HtmlBuilder.prototype = new Base();
    HtmlBuilder.prototype.constructor = HtmlBuilder;

    HtmlBuilder.prototype.writeTag = function (element) {
        element.name = element.name.toLowerCase();
        this.handleElement(element);
    };

    var parseComplete = parser.Parser.prototype.parseComplete;
    parser.Parser.prototype.parseComplete = function (html) {
        parseComplete.call(this, escapeStrayMarks(html));
    };

    parser.HtmlBuilder = HtmlBuilder;
    return parser;
}(this.Tautologistics.NodeHtmlParser));
