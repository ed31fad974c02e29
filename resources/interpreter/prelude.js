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
