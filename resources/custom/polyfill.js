// Fallbacks for the parts of ECMAScript 5.1 that old browsers and engines lack.
// A method that exists is never replaced.

(function () {
    'use strict';

    function fill(target, methods) {
        for (var name in methods) {
            if (Object.prototype.hasOwnProperty.call(methods, name) && !target[name]) {
                target[name] = methods[name];
            }
        }
    }

    function requireFunction(fn) {
        if (typeof fn !== 'function') {
            throw new TypeError(fn + ' is not a function');
        }
    }

    function startIndex(from, length) {
        var start = Math.floor(+from || 0);
        return start < 0 ? Math.max(length + start, 0) : start;
    }

    // Calls visit(element, index) for each element that is present; true from visit ends the walk.
    function walk(list, fn, visit) {
        requireFunction(fn);
        for (var i = 0, length = list.length >>> 0; i < length; i++) {
            if (i in list && visit(list[i], i)) {
                return;
            }
        }
    }

    // The fold of both directions: step is 1 from the left, -1 from the right.
    function fold(list, fn, initial, step) {
        requireFunction(fn);
        var length = list.length >>> 0;
        var result = initial.value;
        var started = initial.given;
        for (var i = step > 0 ? 0 : length - 1; i >= 0 && i < length; i += step) {
            if (i in list) {
                result = started ? fn(result, list[i], i, list) : list[i];
                started = true;
            }
        }
        if (!started) {
            throw new TypeError('reduce of an empty array with no initial value');
        }
        return result;
    }

    fill(Array, {
        isArray: function (value) {
            return Object.prototype.toString.call(value) === '[object Array]';
        }
    });

    fill(Array.prototype, {
        indexOf: function (value, from) {
            for (var i = startIndex(from, this.length); i < this.length; i++) {
                if (i in this && this[i] === value) {
                    return i;
                }
            }
            return -1;
        },
        lastIndexOf: function (value, from) {
            var last = arguments.length > 1 ? Math.floor(+from || 0) : this.length - 1;
            for (var i = last < 0 ? this.length + last : Math.min(last, this.length - 1); i >= 0; i--) {
                if (i in this && this[i] === value) {
                    return i;
                }
            }
            return -1;
        },
        forEach: function (fn, self) {
            var list = this;
            walk(list, fn, function (element, i) { fn.call(self, element, i, list); });
        },
        map: function (fn, self) {
            var list = this;
            var result = [];
            result.length = list.length;
            walk(list, fn, function (element, i) { result[i] = fn.call(self, element, i, list); });
            return result;
        },
        filter: function (fn, self) {
            var list = this;
            var result = [];
            walk(list, fn, function (element, i) {
                if (fn.call(self, element, i, list)) {
                    result.push(element);
                }
            });
            return result;
        },
        some: function (fn, self) {
            var list = this;
            var found = false;
            walk(list, fn, function (element, i) {
                found = !!fn.call(self, element, i, list);
                return found;
            });
            return found;
        },
        every: function (fn, self) {
            var list = this;
            var all = true;
            walk(list, fn, function (element, i) {
                all = !!fn.call(self, element, i, list);
                return !all;
            });
            return all;
        },
        reduce: function (fn, initial) {
            return fold(this, fn, { given: arguments.length > 1, value: initial }, 1);
        },
        reduceRight: function (fn, initial) {
            return fold(this, fn, { given: arguments.length > 1, value: initial }, -1);
        }
    });

    fill(Object, {
        keys: function (object) {
            var names = [];
            for (var name in object) {
                if (Object.prototype.hasOwnProperty.call(object, name)) {
                    names.push(name);
                }
            }
            return names;
        },
        create: function (prototype) {
            function Blank() {}
            Blank.prototype = prototype;
            return new Blank();
        }
    });

    fill(String.prototype, {
        trim: function () {
            return String(this).replace(/^[\s\uFEFF\xA0]+/, '').replace(/[\s\uFEFF\xA0]+$/, '');
        }
    });

    fill(Function.prototype, {
        bind: function (self) {
            var target = this;
            var first = Array.prototype.slice.call(arguments, 1);
            requireFunction(target);
            function bound() {
                var all = first.concat(Array.prototype.slice.call(arguments));
                return target.apply(this instanceof bound ? this : self, all);
            }
            if (target.prototype) {
                bound.prototype = Object.create(target.prototype);
            }
            return bound;
        }
    });

    fill(Date, {
        now: function () {
            return new Date().getTime();
        }
    });
}());
