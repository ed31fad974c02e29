
(function () {
    'use strict';

    // The height, in pixels, that the style sheet gives an open detail before it scrolls.
    var DETAIL_HEIGHT = 100;
    var METRICS_OF_LONG_PAGE = 300;
    var METRICS_AT_ONCE = 40;
    var SECTIONS_AT_ONCE = 12;

    vantrel.setDocumentTitleFromTemplate = function (context) {
        if (ReportEngine.hasPartial('titleTemplate')) {
            // Through an element, since the template's result is escaped and the title is plain text.
            var title = document.createElement('title');
            title.innerHTML = ReportEngine.render('titleTemplate', 'html', context);
            document.title = title.textContent;
        }
    };

    // Metrics may share a display name and so an id: the detail row below the link comes first.
    function findDetail(link, id) {
        var row = link;
        while (row && row.nodeName !== 'TR') {
            row = row.parentNode;
        }
        var cell = row && row.nextElementSibling && row.nextElementSibling.firstElementChild;
        return cell && cell.id === id ? cell : document.getElementById(id);
    }

    function toggleClass(element, name) {
        var others = element.className.split(' ').filter(function (each) {
            return each !== '' && each !== name;
        });
        var isOn = (' ' + element.className + ' ').indexOf(' ' + name + ' ') < 0;
        element.className = (isOn ? others.concat(name) : others).join(' ');
        return isOn;
    }

    // What scrolls must be reachable with the keyboard.
    function makeScrollable(content) {
        if (content && content.scrollHeight > DETAIL_HEIGHT) {
            content.tabIndex = 0;
        }
    }

    vantrel.toggleMetric = function (event, id) {
        event.preventDefault();
        var link = event.currentTarget || event.target;
        var detail = findDetail(link, id);
        if (detail) {
            var isOpen = toggleClass(detail, 'show');
            makeScrollable(detail.firstElementChild);
            if (link && link.setAttribute) {
                link.setAttribute('aria-expanded', String(isOpen));
            }
        }
    };

    // The remote image may take for ever to come. A preload holds up neither the page's load event nor
    // its print, as the image itself would.
    function showCopy(image, logo) {
        var remote = document.createElement('link');
        remote.rel = 'preload';
        remote.as = 'image';
        remote.href = logo.image;
        remote.onload = function () {
            image.src = logo.image;
        };
        document.head.appendChild(remote);
        image.removeAttribute('loading');
        image.src = logo.altData;
    }

    function showLogoCopies(logos) {
        var images = document.querySelectorAll('#logo img');
        logos.forEach(function (logo, i) {
            if (logo.altData && images[i]) {
                showCopy(images[i], logo);
            }
        });
    }

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
    function deferSections() {
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
    }

    function asHtml(selection) {
        // In a document of its own no image is fetched again.
        var container = document.implementation.createHTMLDocument('').body;
        for (var i = 0; i < selection.rangeCount; i++) {
            container.appendChild(selection.getRangeAt(i).cloneContents());
        }
        return container.innerHTML;
    }

    // Paths hold invisible places to break them at, which are no part of what a reader means to copy.
    function copyWithoutBreaks(event) {
        var selection = window.getSelection();
        var text = selection.toString();
        if (text.indexOf('\u200B') >= 0) {
            event.clipboardData.setData('text/plain', text.replace(/\u200B/g, ''));
            event.clipboardData.setData('text/html', asHtml(selection).replace(/\u200B/g, ''));
            event.preventDefault();
        }
    }

    vantrel.finishPage = function (jsonData) {
        deferSections();
        showLogoCopies((jsonData.brandingData || {}).logos || []);
        document.addEventListener('copy', copyWithoutBreaks);
    };
}());
