
// The sections of a very long report, of which those below the window wait.
(function () {
    'use strict';

    var METRICS_OF_LONG_PAGE = 300;
    var METRICS_AT_ONCE = 40;
    var SECTIONS_AT_ONCE = 12;

    function metricsIn(element) {
        return element.getElementsByClassName('metricDetail').length;
    }

    // How much there is in a section, in terms of rows: heading, description and metrics.
    function rowsOf(section) {
        return 2.5 + section.children[1].textContent.length / 80 + metricsIn(section);
    }

    // Sections that wait take the room that those which show take for as many rows.
    function keepRoom(shown, waiting) {
        var height = 0;
        var rows = 0;
        shown.forEach(function (section) {
            height += section.offsetHeight;
            rows += rowsOf(section);
        });
        waiting.forEach(function (section) {
            section.style.containIntrinsicSize = 'auto ' + Math.round(height / rows * rowsOf(section)) + 'px';
        });
    }

    function showFirst(waiting, metrics) {
        for (var shown = 0; waiting.length && shown < metrics; shown += metricsIn(waiting.shift())) {
            waiting[0].className = 'subsection';
        }
    }

    // Some at a time, so that nobody notices; all at once for what shows the whole page, which makes
    // the window as large as that.
    function showInTime(waiting) {
        function onResize() {
            showFirst(waiting, Infinity);
        }
        function onIdle() {
            showFirst(waiting, METRICS_AT_ONCE);
            if (waiting.length) {
                window.requestIdleCallback(onIdle);
            } else {
                window.removeEventListener('resize', onResize);
            }
        }
        window.addEventListener('resize', onResize);
        window.requestIdleCallback(onIdle);
    }

    // Style and layout of a very long report take longer than all else. What lies below the window
    // has its turn when the page shows.
    vantrel.deferSections = function () {
        if (metricsIn(document) < METRICS_OF_LONG_PAGE || !window.requestIdleCallback) {
            return;
        }
        var sections = Array.prototype.slice.call(document.querySelectorAll('.subsection'));
        var waiting = sections.slice(SECTIONS_AT_ONCE);
        waiting.forEach(function (section) {
            section.className += ' waiting';
        });
        keepRoom(sections.slice(0, SECTIONS_AT_ONCE), waiting);
        showInTime(waiting);
    };
}());
