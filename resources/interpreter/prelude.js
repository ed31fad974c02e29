// Runs first in the interpreter, and gives the host the functions by which it uses the scripts.
(function (global) {
    'use strict';

    // The interpreter's own errors have read-only properties, which Handlebars assigns to when it
    // fails, so that its message would be lost. Errors made by scripts are plain objects here.
    function Failure(message) {
        var failure = Object.create(Failure.prototype);
        failure.message = message === undefined ? '' : String(message);
        failure.stack = '';
        return failure;
    }
    Failure.prototype.name = 'Error';
    Failure.prototype.toString = function () {
        return this.name + ': ' + this.message;
    };

    function messageOf(problem) {
        return String(problem && problem.message || problem);
    }

    function guarded(work) {
        return function () {
            try {
                return {text: work.apply(null, arguments)};
            } catch (problem) {
                return {text: '', failure: messageOf(problem)};
            }
        };
    }

    // The interpreter's toPrecision gives wrong digits; its toExponential doesn't.
    function plainDigits(digits, exponent) {
        if (exponent < 0) {
            return '0.' + new Array(-exponent).join('0') + digits;
        }
        var whole = digits.slice(0, exponent + 1);
        return whole.length < digits.length ? whole + '.' + digits.slice(exponent + 1) : whole;
    }

    function toPrecision(precision) {
        var number = Number(this);
        if (precision === undefined || !isFinite(number)) {
            return String(number);
        }
        var count = Math.floor(precision);
        var text = number.toExponential(count - 1);
        var parts = (/^(-?)([\d.]+)e([+\-]\d+)$/).exec(text);
        var exponent = Number(parts[3]);
        return exponent < -6 || exponent >= count ? text : parts[1] + plainDigits(parts[2].replace('.', ''), exponent);
    }

    // It gives zeros for great negative numbers, which have no such form at all.
    function wrapToFixed(toFixed) {
        return function (decimals) {
            return Math.abs(this) >= 1e21 ? String(Number(this)) : toFixed.call(this, decimals);
        };
    }

    Number.prototype.toPrecision = toPrecision;
    Number.prototype.toFixed = wrapToFixed(Number.prototype.toFixed);
    global.Error = Failure;

    return {
        registerPartial: guarded(function (name, format, text) {
            Handlebars.parse(text);
            ReportEngine.registerPartial(name, format, text);
            return '';
        }),
        render: guarded(function (name, format, json) {
            return ReportEngine.render(name, format, JSON.parse(json));
        })
    };
}(this));
