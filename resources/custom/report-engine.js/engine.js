// The engine: one Handlebars environment per format, the registry of partials, and the start of the
// page. The build puts report-text.js, report-templates.js and report-helpers.js in front of it.

var document;
var window;

var ReportEngine = (function () {
    'use strict';

    var FORMATS = ['html', 'text'];
    var MIME_TYPES = { 'text/html': 'html', 'text/plain': 'text', 'text/x.corvane-template': 'all' };
    var ERROR_TEMPLATE = '{{{message}}}\n\n{{#if stack}}<pre>{{{stack}}}</pre>{{/if}}';
    var DERIVE = {
        html: { format: 'text', change: reportText.htmlTemplateToText },
        text: { format: 'html', change: reportText.textTemplateToHtml }
    };

    function requireType(value, type, name) {
        if (typeof value !== type || value === null) {
            throw new Error(name + ' must be ' + (type === 'object' ? 'an ' : 'a ') + type);
        }
    }

    function requireFormat(format) {
        if (FORMATS.indexOf(format) < 0) {
            throw new Error('Invalid format "' + format + '"');
        }
    }

    function Engine() {
        var engine = this;
        engine.engines = {};
        engine.partials = {};
        engine.initFunctions = [];
        engine.afterRenderFunctions = [];
        FORMATS.forEach(function (format) {
            var environment = Handlebars.create();
            engine.engines[format] = environment;
            // The environment's own table, so that there is one registry.
            engine.partials[format] = environment.partials;
            environment.registerHelper(reportHelpers.makeCommonHelpers(environment));
            environment.registerHelper('eval', reportHelpers.makeEval(environment));
        });
        engine.engines.html.registerHelper(reportHelpers.makeHtmlHelpers(engine.engines.html));
        engine.registerPartial('errorTemplate', 'text', ERROR_TEMPLATE);
    }

    Engine.prototype.create = function () {
        return new Engine();
    };

    Engine.prototype.textToHtml = reportText.textToHtml;
    Engine.prototype.htmlToText = reportText.htmlToText;

    Engine.prototype.registerHelpers = function (fns) {
        var engine = this;
        requireType(fns, 'object', 'fns');
        FORMATS.forEach(function (format) {
            engine.engines[format].registerHelper(fns.all || {});
            engine.engines[format].registerHelper(fns[format] || {});
        });
    };

    // The other form is derived from a partial unless there is one already; it may be overwritten.
    Engine.prototype.registerPartial = function (name, format, partial) {
        var engine = this;
        requireType(name, 'string', 'name');
        requireType(format, 'string', 'format');
        requireType(partial, 'string', 'partial');
        if (format === 'all') {
            FORMATS.forEach(function (each) {
                engine.partials[each][name] = engine.engines[each].compile(partial);
            });
            return;
        }
        requireFormat(format);
        engine.partials[format][name] = engine.engines[format].compile(partial);
        var derived = DERIVE[format];
        if (!engine.hasPartial(name, derived.format)) {
            engine.partials[derived.format][name] =
                reportTemplates.compileDerived(engine.engines[derived.format], derived.change, partial);
        }
    };

    Engine.prototype.hasPartial = function (name, format) {
        var partials = this.partials;
        return (format === undefined ? FORMATS : [format]).every(function (each) {
            return corvane.hasOwn(partials, each) && corvane.hasOwn(partials[each], name);
        });
    };

    Engine.prototype.render = function (templateName, format, data) {
        requireType(templateName, 'string', 'templateName');
        requireType(format, 'string', 'format');
        requireType(data, 'object', 'data');
        requireFormat(format);
        if (!this.hasPartial(templateName, format)) {
            throw new Error('Invalid template "' + templateName + '" for ' + format);
        }
        return this.partials[format][templateName](data);
    };

    Engine.prototype.onInit = function (fn) {
        requireType(fn, 'function', 'fn');
        this.initFunctions.push(fn);
    };

    Engine.prototype.afterRender = function (fn) {
        requireType(fn, 'function', 'fn');
        this.afterRenderFunctions.push(fn);
    };

    // The whole page gives way: half a report would look like a whole one.
    function showError(engine, exception) {
        if (!document || !document.body || !engine.hasPartial('errorTemplate', 'html')) {
            return;
        }
        var context = corvane.isObject(exception) ? exception : { message: String(exception) };
        document.body.innerHTML = engine.render('errorTemplate', 'html', context);
    }

    // Calls the functions in order, up to the first that throws; true if none did.
    function invokeFunctions(engine, functions, config, args) {
        requireType(config, 'object', 'config');
        try {
            functions.forEach(function (fn) {
                fn.apply(engine, args);
            });
            return true;
        } catch (exception) {
            if (!config.quiet) {
                console.error(exception);
                showError(engine, exception);
            }
            return false;
        }
    }

    Engine.prototype.invokeInitFunctions = function (config) {
        return invokeFunctions(this, this.initFunctions, config, Array.prototype.slice.call(arguments, 1));
    };

    Engine.prototype.invokeAfterRenderFunctions = function (config) {
        return invokeFunctions(this, this.afterRenderFunctions, config, Array.prototype.slice.call(arguments, 1));
    };

    // Moves the templates of the page's script elements into the registry.
    Engine.prototype.loadHtmlTemplates = function () {
        var scripts = Array.prototype.slice.call(document.getElementsByTagName('script'));
        for (var i = 0; i < scripts.length; i++) {
            var script = scripts[i];
            if (script.id && corvane.hasOwn(MIME_TYPES, script.type)) {
                this.registerPartial(script.id, MIME_TYPES[script.type], script.text.trim());
                script.parentNode.removeChild(script);
            }
        }
    };

    function buildPage(engine, templateName, dataElementId, outputElementId) {
        var data;
        function render() {
            data = corvane.getElementJson(dataElementId);
            corvane.setElementInnerHtml(outputElementId, engine.render(templateName, 'html', data));
        }
        return engine.invokeInitFunctions({}) &&
            invokeFunctions(engine, [render], {}, []) &&
            engine.invokeAfterRenderFunctions({}, data);
    }

    // Builds the page out of its data as soon as the document is there.
    Engine.prototype.startPage = function (templateName, dataElementId, outputElementId) {
        var engine = this;
        function start() {
            buildPage(engine, templateName, dataElementId, outputElementId);
        }
        if (document.readyState === 'loading') {
            document.addEventListener('DOMContentLoaded', start);
        } else {
            start();
        }
    };

    var engine = new Engine();
    if (document) {
        engine.onInit(engine.loadHtmlTemplates);
    }
    return engine;
}());
