// The radar chart of the report's header: one axis per summary row, one polygon per series.

var RadarChart = (function () {
    'use strict';

    var MIN_FONT_SIZE = 11;
    var TINY_FONT_SIZE = 4;
    var LINE_GAP = 1;
    var COLUMN_GAP = 4;
    var FADED_OPACITY = 0.1;
    var RAISED_OPACITY = 0.7;

    // An option that is given but undefined leaves the default.
    function makeConfig(options) {
        var config = {
            radius: 5,
            w: 600,
            h: 600,
            factor: 0.95,
            factorLegend: 1,
            levels: 3,
            maxValue: 0,
            radians: 2 * Math.PI,
            opacityArea: 0.5,
            color: d3.scale.category10(),
            fontSize: 10
        };
        for (var key in options) {
            if (Object.prototype.hasOwnProperty.call(options, key) && options[key] !== undefined) {
                config[key] = options[key];
            }
        }
        return config;
    }

    // What can't be drawn counts as 0, and so does what lies below it.
    function drawable(value) {
        return typeof value === 'number' && isFinite(value) ? Math.max(value, 0) : 0;
    }

    // Where things lie: axis i at `factor` of the way from the centre to the edge.
    function makeGeometry(config, axes) {
        var total = axes.length;

        function position(range, factor, f, i) {
            return range * (1 - factor * f(i * config.radians / total));
        }

        return {
            total: total,
            radius: config.factor * Math.min(config.w / 2, config.h / 2),
            x: function (i, factor) {
                return position(config.w / 2, factor, Math.sin, i);
            },
            y: function (i, factor) {
                return position(config.h / 2, factor, Math.cos, i);
            },
            // From 0 at the left to 1 at the right.
            side: function (i) {
                return position(0.5, 1, Math.sin, i);
            }
        };
    }

    function closedLine(points) {
        return 'M' + points.map(function (point) {
            return point[0].toFixed(2) + ',' + point[1].toFixed(2);
        }).join('L') + 'Z';
    }

    function drawLevels(g, config, geometry, axes) {
        for (var j = 0; j < config.levels; j++) {
            var levelRadius = geometry.radius * (j + 1) / config.levels;
            g.append('path')
                .attr('class', 'radar-chart-level')
                .attr('d', closedLine(axes.map(function (axis, i) {
                    var angle = i * config.radians / geometry.total;
                    return [config.w / 2 - levelRadius * Math.sin(angle), config.h / 2 - levelRadius * Math.cos(angle)];
                })))
                .style({ 'fill': 'none', 'stroke': 'grey', 'stroke-width': '0.5px' });
        }
    }

    function drawAxisLine(g, config, geometry, i) {
        g.append('line')
            .attr('class', 'radar-chart-axis')
            .attr({ x1: config.w / 2, y1: config.h / 2 })
            .attr({ x2: geometry.x(i, config.factor), y2: geometry.y(i, config.factor) })
            .style({ 'stroke': 'grey', 'stroke-width': '1px' });
    }

    function anchorOf(side) {
        if (side < 0.4) {
            return 'start';
        }
        return side > 0.6 ? 'end' : 'middle';
    }

    // ---- labels

    // At the sides, labels of one height share the width if that leaves each of them enough.
    function roomOf(config, x, anchor) {
        if (anchor === 'middle') {
            return 2 * Math.min(x, config.w - x);
        }
        var toCentre = Math.abs(config.w / 2 - x) - COLUMN_GAP / 2;
        return toCentre < config.w * 0.4 ? config.w / 2 - 4 : toCentre;
    }

    // The text stays whole until it is written, and all that is to be known of it is measured before.
    function makeLabel(g, config, geometry, i, name) {
        var text = g.append('text')
            .attr('class', 'legend_axis' + i)
            .attr('text-anchor', anchorOf(geometry.side(i)))
            .attr({ x: geometry.x(i, config.factorLegend), y: geometry.y(i, config.factorLegend) })
            .style('font-size', config.fontSize + 'px')
            .text(name);
        var box = text.node().getBBox();
        var label = {
            text: text,
            name: name,
            x: +text.attr('x'),
            y: +text.attr('y'),
            anchor: text.attr('text-anchor'),
            ascent: (+text.attr('y') - box.y) / config.fontSize,
            height: box.height / config.fontSize,
            // Of a part of the name, in terms of the font size; nothing where the page isn't shown.
            width: function (start, end) {
                var isMeasurable = end > start && start < text.node().getNumberOfChars();
                return isMeasurable ? text.node().getSubStringLength(start, end - start) / config.fontSize : 0;
            }
        };
        label.room = roomOf(config, label.x, label.anchor);
        return label;
    }

    // Where the name is broken in two: at the blank or behind the hyphen that leaves the lines most alike.
    function halves(label) {
        var end = label.name.length;
        var best = null;
        for (var i = 1; i < end; i++) {
            var isBlank = label.name.charAt(i) === ' ';
            if (isBlank || label.name.charAt(i - 1) === '-') {
                var next = isBlank ? i + 1 : i;
                var longer = Math.max(label.width(0, i), label.width(next, end));
                if (!best || longer < best.longer) {
                    best = { longer: longer, lines: [{ start: 0, end: i }, { start: next, end: end }] };
                }
            }
        }
        return best ? best.lines : [{ start: 0, end: end }];
    }

    // An ellipsis is about as wide as its letters are high.
    function widthOf(label, line) {
        return label.size * (label.width(line.start, line.end) + (line.isShort ? 1 : 0));
    }

    function shorten(label, line) {
        var low = line.start + 1;
        var high = line.end;
        while (low < high) {
            var middle = Math.ceil((low + high) / 2);
            if (widthOf(label, { start: line.start, end: middle, isShort: true }) <= label.room) {
                low = middle;
            } else {
                high = middle - 1;
            }
        }
        return { start: line.start, end: low, isShort: true };
    }

    function longest(label) {
        return d3.max(label.lines, widthOf.bind(null, label));
    }

    // A label that is too long is broken in two if it may be, then set smaller, then shortened.
    function fitLabel(label, size, isBreakable) {
        label.size = size;
        label.lines = [{ start: 0, end: label.name.length }];
        if (longest(label) > label.room) {
            label.lines = isBreakable ? halves(label) : label.lines;
            label.size = Math.max(Math.min(size, MIN_FONT_SIZE), Math.min(size, size * label.room / longest(label)));
            label.lines = label.lines.map(function (line) {
                return widthOf(label, line) > label.room + 0.5 ? shorten(label, line) : line;
            });
        }
        label.breadth = longest(label);
        label.depth = label.lines.length * label.height * label.size + LINE_GAP;
    }

    function leftOf(label) {
        return label.x - label.breadth * { start: 0, middle: 0.5, end: 1 }[label.anchor];
    }

    function collide(a, b) {
        return leftOf(a) < leftOf(b) + b.breadth + COLUMN_GAP && leftOf(b) < leftOf(a) + a.breadth + COLUMN_GAP;
    }

    // Moves labels, sorted by height, down out of each other's way, then up from the edge; false if
    // that pushes one out at the top.
    function placeLabels(labels, height) {
        labels.forEach(function (label, i) {
            label.top = Math.max(0, label.y - label.ascent * label.size);
            labels.slice(0, i).filter(collide.bind(null, label)).forEach(function (above) {
                label.top = Math.max(label.top, above.top + above.depth);
            });
        });
        for (var i = labels.length - 1; i >= 0; i--) {
            var label = labels[i];
            label.top = labels.slice(i + 1).filter(collide.bind(null, label)).reduce(function (top, below) {
                return Math.min(top, below.top - label.depth);
            }, Math.min(label.top, height - label.depth));
        }
        return labels.every(function (each) { return each.top >= 0; });
    }

    // The lines one below the other; what separates them is still there for those who read or copy the text.
    function writeLabel(label) {
        var top = label.top + label.ascent * label.size;
        label.text.text(null).attr('y', top).style('font-size', label.size + 'px');
        label.lines.forEach(function (line, n) {
            if (n > 0 && label.name.charAt(line.start - 1) === ' ') {
                label.text.append('tspan').style('font-size', 0).text(' ');
            }
            // Not between the two halves of one character.
            var words = label.name.slice(line.start, line.end);
            label.text.append('tspan')
                .attr({ x: label.x, y: top + n * label.height * label.size })
                .text(line.isShort ? words.replace(/[\uD800-\uDBFF]$/, '') + '\u2026' : words);
        });
        if (label.lines.some(function (line) { return line.isShort; })) {
            label.text.append('svg:title').text(label.name);
        }
    }

    // All as large as they are told to be and broken in two where they must; where that is too much for
    // the chart, smaller, then in one line each, then smaller still.
    function drawLabels(g, config, geometry, axes) {
        var labels = axes.map(function (axis, i) {
            return makeLabel(g, config, geometry, i, String(axis.axis).replace(/[ \t\r\n\f]+/g, ' ').trim());
        }).sort(function (a, b) { return a.y - b.y; });

        function fitAll(size, isBreakable) {
            labels.forEach(function (label) {
                fitLabel(label, size, isBreakable);
            });
            return placeLabels(labels, config.h);
        }

        function fitFrom(largest, smallest, isBreakable) {
            for (var size = largest; size >= smallest; size--) {
                if (fitAll(size, isBreakable)) {
                    return true;
                }
            }
            return false;
        }

        var smallest = Math.min(config.fontSize, MIN_FONT_SIZE);
        if (!fitFrom(config.fontSize, smallest, true)) {
            fitFrom(config.fontSize, Math.min(smallest, TINY_FONT_SIZE), false);
        }
        labels.forEach(writeLabel);
    }

    // ---- series

    function drawSeries(g, config, geometry, series, number) {
        var points = series.map(function (entry, i) {
            var factor = config.maxValue > 0 ? config.factor * drawable(entry.value) / config.maxValue : 0;
            return [geometry.x(i, factor), geometry.y(i, factor)];
        });
        var polygon = g.append('polygon')
            .attr('class', 'radar-chart-serie' + number)
            .attr('points', points.map(function (point) { return point.join(','); }).join(' '))
            .style({ 'stroke': config.color(number), 'stroke-width': '2px' })
            .style({ 'fill': config.color(number), 'fill-opacity': config.opacityArea });
        polygon.on('mouseover', function () {
            g.selectAll('polygon').transition(200).style('fill-opacity', FADED_OPACITY);
            polygon.transition(200).style('fill-opacity', RAISED_OPACITY);
        }).on('mouseout', function () {
            g.selectAll('polygon').transition(200).style('fill-opacity', config.opacityArea);
        });
        return points;
    }

    function drawCircles(g, config, series, number, points, tooltip) {
        series.forEach(function (entry, i) {
            g.append('circle')
                .attr('class', 'radar-chart-serie' + number)
                .attr({ r: config.radius, cx: points[i][0], cy: points[i][1] })
                .style({ 'fill': config.color(number), 'fill-opacity': 0.9 })
                .on('mouseover', function () {
                    tooltip.attr({ x: points[i][0] - 10, y: points[i][1] - 5 }).text(entry.value);
                    tooltip.transition(200).style('opacity', 1);
                })
                .on('mouseout', function () {
                    tooltip.transition(200).style('opacity', 0);
                })
                .append('svg:title').text(entry.value);
        });
    }

    function greatestValue(data) {
        return d3.max(data, function (series) {
            return d3.max(series, function (entry) { return drawable(entry.value); });
        }) || 0;
    }

    // The chart in words, for those who can't see it.
    function describe(data) {
        return data.map(function (series) {
            return series.map(function (entry) { return entry.axis + ' ' + entry.value; }).join(', ');
        }).join('; ');
    }

    function draw(id, data, options) {
        var config = makeConfig(options);
        var axes = data[0];
        var geometry = makeGeometry(config, axes);
        config.maxValue = Math.max(drawable(config.maxValue), greatestValue(data));

        d3.select(id).select('svg').remove();
        var g = d3.select(id).append('svg')
            .attr({ width: config.w, height: config.h, role: 'img', 'aria-label': config.description || describe(data) })
            .append('g');
        drawLevels(g, config, geometry, axes);
        axes.forEach(function (axis, i) {
            drawAxisLine(g, config, geometry, i);
        });
        var points = data.map(function (series, number) {
            return drawSeries(g, config, geometry, series, number);
        });
        drawLabels(g, config, geometry, axes);
        var tooltip = g.append('text').style({ 'opacity': 0, 'font-family': 'sans-serif', 'font-size': '13px' });
        data.forEach(function (series, number) {
            drawCircles(g, config, series, number, points[number], tooltip);
        });
    }

    return { draw: draw };
}());
