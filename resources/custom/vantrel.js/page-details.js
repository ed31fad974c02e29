
// The details of a metric, opened and closed.
(function () {
    'use strict';

    // The height, in pixels, that the style sheet gives an open detail before it scrolls.
    var DETAIL_HEIGHT = 100;

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
}());
