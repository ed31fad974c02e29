// General tools, shared by the engine's script layer and the report's own script.

var document;
var window;

var corvane = (function () {
    'use strict';

    var FALSE_TEXTS = ['false', '0', 'null', 'undefined', 'NaN'];

    var corvane = {
        // From cleaned id to the number of its uses, for everything in one script run.
        idCounters: {}
    };

    corvane.hasOwn = function (object, key) {
        return Object.prototype.hasOwnProperty.call(object, key);
    };

    corvane.isObject = function (value) {
        return typeof value === 'object' && value !== null;
    };

    // The text of any value, nothing for a value that is missing.
    corvane.toText = function (value) {
        return value === null || value === undefined ? '' : String(value);
    };

    corvane.toBool = function (value) {
        return FALSE_TEXTS.indexOf(value) < 0 && Boolean(value);
    };

    // Own properties only: a path that a report's author made up must not reach Object.prototype.
    corvane.lookup = function (object, path) {
        if (!path) {
            return object;
        }
        var keys = path.split('.');
        var value = object;
        for (var i = 0; i < keys.length; i++) {
            if (!corvane.isObject(value) || !corvane.hasOwn(value, keys[i])) {
                return undefined;
            }
            value = value[keys[i]];
        }
        return value;
    };

    // Digits at the end are cut off, so that a counter can't collide with a name that ends in digits.
    function cleanId(text) {
        var id = text.replace(/[^A-Za-z0-9_.\-]+/g, '').toLowerCase().replace(/[0-9]+$/, '');
        return (/^[a-z]/).test(id) ? id : 'x' + id;
    }

    corvane.makeId = function (text) {
        var id = cleanId(corvane.toText(text));
        var counters = corvane.idCounters;
        if (!corvane.hasOwn(counters, id)) {
            counters[id] = 1;
            return id;
        }
        counters[id] += 1;
        return id + counters[id];
    };

    corvane.removeCdata = function (text) {
        return text.replace(/^\s*<!\[CDATA\[/, '').replace(/\]\]>\s*$/, '');
    };

    corvane.getElementJson = function (id) {
        return JSON.parse(corvane.removeCdata(document.getElementById(id).innerHTML));
    };

    corvane.setElementInnerHtml = function (id, html) {
        var element = document.getElementById(id);
        if (element) {
            element.innerHTML = html;
        }
    };

    function makeSheet() {
        var style = document.createElement('style');
        document.getElementsByTagName('head')[0].appendChild(style);
        return style.sheet || style.styleSheet;
    }

    if (document) {
        corvane.sheet = makeSheet();
    }

    return corvane;
}());
