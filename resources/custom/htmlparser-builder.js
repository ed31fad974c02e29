
// Adapter: the parser under the name that the report's scripts use, with a builder that gives
// lower-case tag names. Without a module system the parser leaves its interface in a global.
var htmlparser = (function (parser) {
    'use strict';

    var MARK = /<[!]--|<[a-z\/!?][^<>]*>|[<>]/gi;
    // In pieces: written out, it would mean something to the page that this script stands in.
    var COMMENT = '<' + '!--';
    var ESCAPES = { '<': '&lt;', '>': '&gt;' };

    // The parser drops "<" and ">" that belong to no tag, such as those of "a > b" and "{{> name}}".
    function escapeStrayMarks(html) {
        var commentEnd = 0;
        return html.replace(MARK, function (mark, offset) {
            if (offset >= commentEnd && mark === COMMENT) {
                var end = html.indexOf('-->', offset);
                commentEnd = end < 0 ? html.length : end + 3;
            }
            return offset < commentEnd || mark.length > 1 ? mark : ESCAPES[mark];
        });
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
