
// What is copied from the page.
(function () {
    'use strict';

    function asHtml(selection) {
        // In a document of its own no image is fetched again.
        var container = document.implementation.createHTMLDocument('').body;
        for (var i = 0; i < selection.rangeCount; i++) {
            container.appendChild(selection.getRangeAt(i).cloneContents());
        }
        return container.innerHTML;
    }

    // Paths hold invisible places to break them at, which are no part of what a reader means to copy.
    vantrel.copyWithoutBreaks = function (event) {
        var selection = window.getSelection();
        var text = selection.toString();
        if (text.indexOf('\u200B') >= 0) {
            event.clipboardData.setData('text/plain', text.replace(/\u200B/g, ''));
            event.clipboardData.setData('text/html', asHtml(selection).replace(/\u200B/g, ''));
            event.preventDefault();
        }
    };
}());
