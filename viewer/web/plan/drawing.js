// Draws the plan: rings, video, weather, positions, labels.

import {FLAG, NO_CODE, NO_NUMBER, valueOf} from '../model/columns.js';
import {VIDEO_SECTORS} from '../model/shapes.js';
import {RADIAN} from '../model/stations.js';
import {addressText, codeText, sacSicText, trackText} from '../format.js';
import {INTENSITIES} from './layers.js';

const RING_STEPS_NM = [0.05, 0.1, 0.25, 0.5, 1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 2000];
const MOST_TRAILS = 30000,
    MOST_SYMBOLS = 3000,
    MOST_LABELS = 400;

export class Drawing {
    constructor(canvas, model) {
        this.canvas = canvas;
        this.context = canvas.getContext('2d');
        this.dots = document.createElement('canvas');
        this.dotsContext = this.dots.getContext('2d');
        this.echoes = document.createElement('canvas');
        this.echoesContext = this.echoes.getContext('2d');
        Object.assign(this, model); // records, plane, layers, shapes, targets, ground, tints, ruler
        this.weatherPaths = new WeakMap();
    }

    // Takes over the colours of the style.
    dress() {
        const style = getComputedStyle(document.documentElement);
        this.colours = {};
        for (const name of ['ground', 'coast', 'border', 'own', 'ring', 'ring-text', 'label', 'halo', 'chosen'])
            this.colours[name] = style.getPropertyValue(`--plan-${name}`).trim();
        this.rain = Array.from({length: INTENSITIES}, (_, i) => style.getPropertyValue(`--rain-${i}`).trim());
        this.font = style.getPropertyValue('--plan-font').trim() || 'sans-serif';
        this.layers.dress(style);
        this.tints.dress(style);
    }

    resize(width, height) {
        const ratio = (this.ratio = Math.min(window.devicePixelRatio || 1, 2));
        for (const canvas of [this.canvas, this.dots]) {
            canvas.width = Math.round(width * ratio);
            canvas.height = Math.round(height * ratio);
        }
        this.image = this.dotsContext.createImageData(this.dots.width, this.dots.height);
        this.pixels = new Uint32Array(this.image.data.buffer);
    }

    // Labels keep out of the rectangles that are covered.
    draw(view, scene, covered) {
        const {context, colours} = this;
        context.setTransform(this.ratio, 0, 0, this.ratio, 0, 0);
        context.fillStyle = colours.ground;
        context.fillRect(0, 0, view.width, view.height);
        this.ground.draw(context, view, colours, this.write.bind(this));
        this.drawVideo(view, scene);
        this.drawWeather(view, scene);
        const boxes = [...covered];
        this.drawRings(view, boxes);
        this.drawTrails(view, scene);
        this.drawDots(view, scene);
        this.drawStations(view, boxes);
        const newest = this.newest(view, scene);
        this.drawVectors(view, newest, scene.minutes);
        this.drawTrack(view, scene);
        this.drawSymbols(view, newest);
        this.drawChosen(view, scene, boxes);
        this.ruler.draw(context, view, colours, this.write.bind(this));
        if (scene.labels) this.drawLabels(view, newest, boxes, scene.chosen);
    }

    // ---- the ground ----

    drawRings(view, boxes) {
        const {context, colours} = this;
        const [left, top] = view.toScreen(0, 0);
        const step = RING_STEPS_NM.find(nm => nm * view.scale >= 64) ?? RING_STEPS_NM.at(-1);
        const corners = [
            [0, 0],
            [view.width, 0],
            [0, view.height],
            [view.width, view.height]
        ];
        const far = Math.max(...corners.map(([x, y]) => Math.hypot(x - left, y - top)));
        const isInside = left >= 0 && top >= 0 && left <= view.width && top <= view.height;
        const near = isInside
            ? 0
            : Math.hypot(left - Math.max(0, Math.min(view.width, left)), top - Math.max(0, Math.min(view.height, top)));
        const stepPixels = step * view.scale;
        const angle = isInside ? -Math.PI / 2 : Math.atan2(view.height / 2 - top, view.width / 2 - left);
        context.lineWidth = 1;
        context.strokeStyle = colours.ring;
        this.drawBearings(left, top, stepPixels, far);
        const first = Math.max(1, Math.ceil(near / stepPixels)),
            last = Math.floor(far / stepPixels);
        context.font = `10px ${this.font}`;
        context.textAlign = 'center';
        context.textBaseline = 'middle';
        for (let i = first; i <= last; ++i) {
            context.beginPath();
            context.arc(left, top, i * stepPixels, 0, 2 * Math.PI);
            context.stroke();
        }
        for (let i = first; i <= last; ++i) {
            const text = `${Number((i * step).toFixed(2))} NM`;
            const x = left + i * stepPixels * Math.cos(angle),
                y = top + i * stepPixels * Math.sin(angle);
            this.write(text, x, y, colours['ring-text'], colours.ground);
            boxes.push({x: x - 20, y: y - 6, width: 40, height: 12});
        }
    }

    // Every 30 degrees, from the first ring on.
    drawBearings(left, top, from, to) {
        const {context} = this;
        context.globalAlpha = 0.5;
        context.beginPath();
        for (let degrees = 0; degrees < 360; degrees += 30) {
            const right = Math.sin(degrees * RADIAN),
                up = Math.cos(degrees * RADIAN);
            context.moveTo(left + right * from, top - up * from);
            context.lineTo(left + right * to, top - up * to);
        }
        context.stroke();
        context.globalAlpha = 1;
        context.beginPath();
        context.moveTo(left - 6, top);
        context.lineTo(left + 6, top);
        context.moveTo(left, top - 6);
        context.lineTo(left, top + 6);
        context.stroke();
    }

    write(text, x, y, colour, halo) {
        const {context} = this;
        context.lineWidth = 3;
        context.lineJoin = 'round';
        context.strokeStyle = halo;
        context.strokeText(text, x, y);
        context.fillStyle = colour;
        context.fillText(text, x, y);
        context.lineWidth = 1;
    }

    drawStations(view, boxes) {
        const {context, colours, plane} = this;
        context.font = `600 11px ${this.font}`;
        context.textAlign = 'center';
        context.textBaseline = 'top';
        for (const [key, point] of plane.places) {
            const [left, top] = view.toScreen(...point);
            context.beginPath();
            context.moveTo(left, top - 6);
            context.lineTo(left + 5, top + 4);
            context.lineTo(left - 5, top + 4);
            context.closePath();
            context.fillStyle = colours.label;
            context.fill();
            this.write(sacSicText(plane.stations.get(key)), left, top + 7, colours.label, colours.halo);
            boxes.push({x: left - 24, y: top - 6, width: 48, height: 26});
        }
    }

    // Where the source of a layer measures from.
    stationOf(source) {
        return this.plane.pointOf(this.records.sources[source]);
    }

    // ---- video and weather ----

    // For every second pixel the cell that lies there.
    drawVideo(view, scene) {
        const grain = 2;
        const width = Math.ceil(view.width / grain),
            height = Math.ceil(view.height / grain);
        for (const [source, sweep] of this.sweeps(scene)) {
            if (!this.layers.isVisible(source)) continue;
            this.echoes.width = width;
            this.echoes.height = height;
            const image = this.echoesContext.createImageData(width, height);
            this.fillEchoes(view, source, sweep, image, grain);
            this.echoesContext.putImageData(image, 0, 0);
            this.context.drawImage(this.echoes, 0, 0, width * grain, height * grain);
        }
    }

    sweeps({from, to}) {
        const {cache} = this;
        if (cache?.from === from && cache.to === to) return cache.sweeps;
        const sweeps = this.shapes.sweepsAt(from, to);
        this.cache = {from, to, sweeps};
        return sweeps;
    }

    fillEchoes(view, source, {sectors, range}, image, grain) {
        const [east, north] = this.stationOf(source);
        const [red, green, blue] = this.layers.list[this.layers.ofSource[source]].rgb;
        const pixels = new Uint32Array(image.data.buffer);
        const colour = (blue << 16) | (green << 8) | red;
        const turn = VIDEO_SECTORS / (2 * Math.PI),
            step = grain / view.scale;
        const [left, top] = view.toPlane(0, 0);
        for (let row = 0; row < image.height; ++row) {
            const y = top - row * step - north;
            for (let column = 0; column < image.width; ++column) {
                const x = left + column * step - east;
                const distance = Math.sqrt(x * x + y * y);
                if (distance >= range) continue;
                const message = sectors[Math.floor((Math.atan2(x, y) * turn + VIDEO_SECTORS) % VIDEO_SECTORS)];
                if (!message) continue;
                const amplitude = message.cells[Math.floor(distance / message.length) - message.firstCell];
                if (amplitude) pixels[row * image.width + column] = ((48 + (amplitude * 207) / 255) << 24) | colour;
            }
        }
    }

    drawWeather(view, {to}) {
        const {context} = this;
        for (const picture of this.shapes.picturesAt(to)) {
            if (!this.layers.isVisible(picture.source)) continue;
            const [left, top] = view.toScreen(...this.stationOf(picture.source));
            context.save();
            context.translate(left, top);
            context.scale(view.scale, -view.scale);
            for (const {intensity, line, area} of this.pathsOf(picture)) {
                context.strokeStyle = context.fillStyle = this.rain[intensity];
                context.globalAlpha = 0.3;
                if (area) context.fill(area);
                context.globalAlpha = 0.85;
                context.lineWidth = (area ? 1.5 : 2) / view.scale;
                context.stroke(line);
            }
            context.restore();
        }
    }

    pathsOf(picture) {
        if (!this.weatherPaths.has(picture)) {
            const rays = picture.rays.map(({intensity, lines}) => {
                const line = new Path2D();
                for (let i = 0; i < lines.length; i += 4) {
                    line.moveTo(lines[i], lines[i + 1]);
                    line.lineTo(lines[i + 2], lines[i + 3]);
                }
                return {intensity, line};
            });
            const contours = picture.contours.map(({intensity, points}) => {
                const line = new Path2D();
                for (let i = 0; i < points.length; i += 2) line.lineTo(points[i], points[i + 1]);
                line.closePath();
                return {intensity, line, area: line};
            });
            this.weatherPaths.set(picture, [...contours, ...rays]);
        }
        return this.weatherPaths.get(picture);
    }

    // ---- positions ----

    // Into the pixels by themselves: there may be hundreds of thousands. What is found, and what is later, is brighter.
    drawDots(view, {begin, end, found, chosenRows, fades}) {
        const {pixels, ratio} = this;
        const {x, y} = this.plane,
            {source} = this.records,
            {row: rows} = this.targets;
        const {width, height} = this.image;
        const size = Math.max(2, Math.round((end - begin > 50000 ? 1.4 : 2.2) * ratio));
        const scale = view.scale * ratio;
        const offsetX = width / 2 - view.x * scale,
            offsetY = height / 2 + view.y * scale;
        const {words: colours} = this.tints;
        const shown = this.layers.list.map(layer => layer.visible);
        const {ofSource} = this.layers;
        pixels.fill(0);
        for (let i = begin; i < end; ++i) {
            const row = rows[i],
                layer = ofSource[source[row]];
            if (!shown[layer] || (chosenRows && !chosenRows[row])) continue;
            const left = Math.round(x[row] * scale + offsetX - size / 2);
            const top = Math.round(offsetY - y[row] * scale - size / 2);
            if (left < 0 || top < 0 || left + size > width || top + size > height) continue;
            let alpha = fades ? 60 + (195 * (i - begin)) / (end - begin) : 190;
            if (found && !found[row]) alpha *= 0.3;
            const colour = colours[this.tints.of(row)] | (alpha << 24);
            for (let line = top; line < top + size; ++line)
                for (let at = line * width + left, last = at + size; at < last; ++at)
                    if (pixels[at] >>> 24 <= alpha) pixels[at] = colour;
        }
        this.dotsContext.putImageData(this.image, 0, 0);
        this.context.drawImage(this.dots, 0, 0, view.width, view.height);
    }

    drawTrails(view, {begin, end, trails, found, chosenRows}) {
        if (!trails || end - begin > MOST_TRAILS) return;
        const {context, targets, layers, tints} = this;
        const {x, y} = this.plane,
            {source} = this.records;
        const paths = tints.colours.map(() => new Path2D());
        const {scale} = view,
            [left, top] = view.toScreen(0, 0);
        for (let i = begin; i < end; ++i) {
            const before = targets.previous[i];
            if (before < begin) continue;
            const row = targets.row[i],
                from = targets.row[before];
            if (chosenRows && !(chosenRows[row] && chosenRows[from])) continue;
            if (!layers.isVisible(source[row])) continue;
            const path = paths[tints.of(row)];
            path.moveTo(left + x[from] * scale, top - y[from] * scale);
            path.lineTo(left + x[row] * scale, top - y[row] * scale);
        }
        context.globalAlpha = found ? 0.15 : 0.4;
        context.lineWidth = 1;
        tints.colours.forEach((colour, i) => {
            context.strokeStyle = colour;
            context.stroke(paths[i]);
        });
        context.globalAlpha = 1;
    }

    // The last point of each target that can be seen; those that are found, if any are looked for.
    newest(view, {begin, end, found, chosenRows}) {
        const {targets, layers, records, plane} = this;
        const newest = [];
        for (let i = end - 1; i >= begin && newest.length < MOST_SYMBOLS; --i) {
            const row = targets.row[i];
            if (!targets.of[row] || (targets.next[i] >= 0 && targets.next[i] < end)) continue;
            if (!layers.isVisible(records.source[row]) || (found && !found[row])) continue;
            if (chosenRows && !chosenRows[row]) continue;
            const [left, top] = view.toScreen(plane.x[row], plane.y[row]);
            if (left > -20 && top > -20 && left < view.width + 20 && top < view.height + 20)
                newest.push({row, left, top});
        }
        return newest;
    }

    drawSymbols(view, newest) {
        const {context, tints, records, colours} = this;
        const radius = newest.length > 300 ? 2.5 : 4;
        for (const {row, left, top} of newest) {
            context.lineWidth = 1.5;
            context.strokeStyle = colours.halo;
            context.fillStyle = tints.colours[tints.of(row)];
            context.beginPath();
            context.arc(left, top, radius, 0, 2 * Math.PI);
            context.fill();
            context.stroke();
            if (isEmergency(records, row)) this.drawDiamond(left, top, 3 * radius);
        }
    }

    // Who is in an emergency stands out by more than a colour.
    drawDiamond(left, top, radius) {
        const {context, colours} = this;
        context.lineWidth = 2;
        context.strokeStyle = colours.chosen;
        context.beginPath();
        context.moveTo(left, top - radius);
        context.lineTo(left + radius, top);
        context.lineTo(left, top + radius);
        context.lineTo(left - radius, top);
        context.closePath();
        context.stroke();
    }

    // Where targets will be in so many minutes, if they go on as they say they do.
    drawVectors(view, newest, minutes) {
        const {context, records, tints} = this;
        const MINUTES_PER_HOUR = 60;
        context.lineWidth = 1.5;
        for (const {row, left, top} of newest) {
            const speed = valueOf('speed', records.speed[row]),
                angle = valueOf('angle', records.angle[row]) * RADIAN;
            const length = (speed / MINUTES_PER_HOUR) * minutes * view.scale;
            if (!(length > 0) || isNaN(angle)) continue;
            context.strokeStyle = tints.colours[tints.of(row)];
            context.beginPath();
            context.moveTo(left, top);
            context.lineTo(left + length * Math.sin(angle), top - length * Math.cos(angle));
            context.stroke();
        }
    }

    // The whole track of the target that is chosen, as far as it can be seen, however long ago it was.
    drawTrack(view, {chosen}) {
        const target = chosen < 0 ? 0 : this.targets.of[chosen];
        if (target === 0) return;
        const {context, colours, plane} = this;
        context.lineWidth = 2;
        context.strokeStyle = colours.chosen;
        context.globalAlpha = 0.75;
        context.beginPath();
        this.targets.trackOf(target).forEach((row, i) => {
            const [left, top] = view.toScreen(plane.x[row], plane.y[row]);
            if (i === 0) context.moveTo(left, top);
            else context.lineTo(left, top);
        });
        context.stroke();
        context.globalAlpha = 1;
    }

    // A ring, and its label whatever else there is.
    drawChosen(view, {chosen}, boxes) {
        if (chosen < 0 || isNaN(this.plane.x[chosen])) return;
        const {context, colours} = this;
        const [left, top] = view.toScreen(this.plane.x[chosen], this.plane.y[chosen]);
        for (const [width, colour] of [
            [5, colours.halo],
            [2.5, colours.chosen]
        ]) {
            context.lineWidth = width;
            context.strokeStyle = colour;
            context.beginPath();
            context.arc(left, top, 11, 0, 2 * Math.PI);
            context.stroke();
        }
        this.drawLabel({row: chosen, left, top}, boxes, view);
    }

    // Of a target that is chosen nothing more is said.
    isLabelled({row}, chosen) {
        const {of} = this.targets;
        return row !== chosen && (chosen < 0 || of[row] !== of[chosen]);
    }

    drawLabels(view, targets, boxes, chosen) {
        // In an order that lasts, so that labels do not take each other's room in turn.
        const rank = ({row}) => (isEmergency(this.records, row) ? -1 : this.targets.of[row]);
        const first = targets
            .filter(target => this.isLabelled(target, chosen))
            .sort((one, other) => rank(one) - rank(other))
            .slice(0, MOST_LABELS);
        const size = 8;
        for (const {left, top} of first) boxes.push({x: left - size / 2, y: top - size / 2, width: size, height: size});
        for (const target of first) this.drawLabel(target, boxes, view);
    }

    // Beside its position, where there is room for it.
    drawLabel({row, left, top}, boxes, view) {
        const {context, colours, records} = this;
        const lines = labelOf(records, row);
        if (lines.length === 0) return;
        context.textAlign = 'left';
        context.textBaseline = 'top';
        context.font = `600 11px ${this.font}`;
        const width = Math.max(...lines.map(line => context.measureText(line).width)) + 2,
            height = 13 * lines.length;
        const gap = 9;
        const boxesAround = [
            [left + gap, top - height],
            [left + gap, top + 2],
            [left - gap - width, top - height],
            [left - gap - width, top + 2]
        ]
            .map(([x, y]) => ({x, y, width, height}))
            .filter(({x, y}) => x >= 0 && y >= 0 && x + width <= view.width && y + height <= view.height);
        // Who is in an emergency has a label in any case.
        const box =
            boxesAround.find(box => !boxes.some(other => overlap(box, other))) ??
            (isEmergency(records, row) ? boxesAround[0] : undefined);
        if (!box) return;
        boxes.push(box);
        lines.forEach((line, i) => {
            context.font = `${i === 0 ? 600 : 400} 11px ${this.font}`;
            this.write(
                line,
                box.x,
                box.y + 13 * i,
                isEmergency(records, row) ? colours.chosen : colours.label,
                colours.halo
            );
        });
    }
}

function overlap(one, other) {
    return (
        one.x < other.x + other.width &&
        other.x < one.x + one.width &&
        one.y < other.y + other.height &&
        other.y < one.y + one.height
    );
}

const EMERGENCIES = {[0o7500]: 'HIJACK', [0o7600]: 'NO RADIO', [0o7700]: 'EMERGENCY'};

// By its code, or because it is said to be in one.
const isEmergency = (records, row) => records.code[row] in EMERGENCIES || (records.flags[row] & FLAG.emergency) !== 0;

// Callsign, code and level; the track number or address of who has no callsign.
function labelOf(records, row) {
    const code = records.code[row] === NO_CODE ? '' : codeText(records.code[row]);
    const callsign = records.texts[records.callsign[row]];
    const name =
        callsign ||
        (records.track[row] === NO_NUMBER ? '' : trackText(records.track[row])) ||
        (records.address[row] === NO_NUMBER ? '' : addressText(records.address[row]));
    const emergency = EMERGENCIES[records.code[row]] ?? (isEmergency(records, row) ? 'EMERGENCY' : '');
    return [name, [code, records.levelText(row)].filter(Boolean).join(' '), emergency].filter(Boolean);
}
