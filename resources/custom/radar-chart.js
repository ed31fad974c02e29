// The radar chart of the report's header: one axis per summary row, one polygon per series.

var RadarChart = (function () {
    'use strict';

    var MIN_FONT_SIZE = 11;
    var LINE_HEIGHT = 1.05;
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
            fontSize: 10,
            format: String
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

    function widthOf(text) {
        return text.node().getComputedTextLength();
    }

    // Two lines, broken at the blank or behind the hyphen that leaves the halves most alike.
    function halves(label) {
        var best = null;
        for (var i = 1; i < label.length; i++) {
            if (label.charAt(i) === ' ' || label.charAt(i - 1) === '-') {
                var longer = Math.max(i, label.length - i);
                if (!best || longer < best.longer) {
                    best = { longer: longer, lines: [label.slice(0, i), label.slice(i).replace(/^ +/, '')] };
                }
            }
        }
        return best ? best.lines : [label];
    }

    function shorten(text, label, available) {
        var low = 1;
        var high = label.length;
        while (low < high) {
            var middle = Math.ceil((low + high) / 2);
            text.text(label.slice(0, middle) + '\u2026');
            if (widthOf(text) <= available) {
                low = middle;
            } else {
                high = middle - 1;
            }
        }
        // Not between the two halves of one character.
        return label.slice(0, low).replace(/[\uD800-\uDBFF]$/, '') + '\u2026';
    }

    // A label that is too long is broken in two, then set smaller, then shortened.
    function fitLabel(text, label, available, fontSize) {
        function longest(lines) {
            return Math.max.apply(null, lines.map(function (line) {
                return widthOf(text.text(line));
            }));
        }
        if (longest([label]) <= available) {
            return [label];
        }
        var lines = halves(label);
        var size = Math.max(Math.min(fontSize, MIN_FONT_SIZE), Math.min(fontSize, fontSize * available / longest(lines)));
        text.style('font-size', size + 'px');
        return lines.map(function (line) {
            return widthOf(text.text(line)) <= available + 0.5 ? line : shorten(text, line, available);
        });
    }

    // Labels that share a height share the width; at the top and the bottom there is one for all of it.
    function availableWidth(config, geometry, i) {
        return anchorOf(geometry.side(i)) === 'middle' ? config.w : config.w / 2 - 4;
    }

    // At the edge, turned inward, and moved down or up where it would stick out.
    function drawLabel(g, config, geometry, i, label) {
        var x = geometry.x(i, config.factorLegend);
        var y = geometry.y(i, config.factorLegend);
        var text = g.append('text')
            .attr('class', 'legend_axis' + i)
            .attr('text-anchor', anchorOf(geometry.side(i)))
            .attr({ x: x, y: y })
            .style('font-size', config.fontSize + 'px');
        var lines = fitLabel(text, label, availableWidth(config, geometry, i), config.fontSize);
        var size = parseFloat(text.style('font-size'));
        var rise = (lines.length - 1) * size * LINE_HEIGHT;
        var top = Math.max(size, Math.min(y, config.h - rise - size * 0.3));
        text.text(null).attr('y', top);
        lines.forEach(function (line, n) {
            text.append('tspan').attr({ x: x, y: top + n * size * LINE_HEIGHT }).text(line);
        });
        if (lines.join(' ') !== label) {
            text.append('svg:title').text(label);
        }
    }

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
    function describe(data, format) {
        return data.map(function (series) {
            return series.map(function (entry) { return entry.axis + ' ' + format(entry.value); }).join(', ');
        }).join('; ');
    }

    function draw(id, data, options) {
        var config = makeConfig(options);
        var axes = data[0];
        var geometry = makeGeometry(config, axes);
        config.maxValue = Math.max(drawable(config.maxValue), greatestValue(data));

        d3.select(id).select('svg').remove();
        var g = d3.select(id).append('svg')
            .attr({ width: config.w, height: config.h, role: 'img', 'aria-label': describe(data, config.format) })
            .append('g');
        drawLevels(g, config, geometry, axes);
        axes.forEach(function (axis, i) {
            drawAxisLine(g, config, geometry, i);
        });
        var points = data.map(function (series, number) {
            return drawSeries(g, config, geometry, series, number);
        });
        axes.forEach(function (axis, i) {
            drawLabel(g, config, geometry, i, String(axis.axis));
        });
        var tooltip = g.append('text').style({ 'opacity': 0, 'font-family': 'sans-serif', 'font-size': '13px' });
        data.forEach(function (series, number) {
            drawCircles(g, config, series, number, points[number], tooltip);
        });
    }

    return { draw: draw };
}());
