// The ground of the plan where it lies on Earth: coasts and borders, and the lines of latitude and longitude.

const PARTS_PER_DEGREE = 100;
const FAR_NM = 3000; // from the centre; what is farther away is not drawn
const STEPS_DEG = [0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 30];
const NM_PER_DEGREE = 60;
const LEAST_STEP_PX = 110;
const POINT_NM = 0.3; // how large points of others are drawn
const PIECES = 24; // of a line of latitude or longitude

// The lines that coast.mjs has written, in degrees east and north.
export function readCoast(octets) {
    let at = 0;
    const number = () => {
        let value = 0;
        for (let shift = 0; ; shift += 7) {
            const octet = octets[at++];
            value |= (octet & 127) << shift;
            if (octet < 128) return value;
        }
    };
    const signed = () => {
        const value = number();
        return value & 1 ? -((value + 1) >> 1) : value >> 1;
    };
    const lines = [];
    while (at < octets.length) {
        const head = number();
        const points = new Int16Array(head & ~1);
        let east = 0,
            north = 0;
        for (let i = 0; i < points.length; i += 2) {
            points[i] = east += signed();
            points[i + 1] = north += signed();
        }
        lines.push({isBorder: (head & 1) === 1, points});
    }
    return lines;
}

// The lines of GeoJSON, as lists of places; points are lines of one.
function* linesOf(json) {
    if (json?.type === 'FeatureCollection') for (const feature of json.features ?? []) yield* linesOf(feature);
    else if (json?.type === 'Feature') yield* linesOf(json.geometry);
    else if (json?.type === 'GeometryCollection')
        for (const geometry of json.geometries ?? []) yield* linesOf(geometry);
    else yield* listsOf(json?.type === 'Point' ? [json.coordinates] : json?.coordinates, json?.type === 'MultiPoint');
}

// Coordinates are nested as deep as their kind of geometry says.
function* listsOf(coordinates, arePoints) {
    if (!Array.isArray(coordinates)) return;
    const isPlace = of => Array.isArray(of) && Number.isFinite(of[0]) && Number.isFinite(of[1]);
    if (!coordinates.every(isPlace)) for (const inner of coordinates) yield* listsOf(inner, arePoints);
    else if (arePoints) for (const place of coordinates) yield [place];
    else if (coordinates.length > 0) yield coordinates;
}

export class Ground {
    constructor(plane, coast) {
        Object.assign(this, {plane, showsCoast: true, showsGrid: false});
        this.paths = plane.centre.isKnown ? this.project(coast) : null;
    }

    project(lines) {
        const paths = {coast: new Path2D(), border: new Path2D()};
        for (const {isBorder, points} of lines) {
            const path = isBorder ? paths.border : paths.coast;
            let isDrawn = false;
            for (let i = 0; i < points.length; i += 2) {
                const [x, y] = this.plane.project(points[i + 1] / PARTS_PER_DEGREE, points[i] / PARTS_PER_DEGREE);
                const isNear = Math.abs(x) < FAR_NM && Math.abs(y) < FAR_NM;
                if (isNear && isDrawn) path.lineTo(x, y);
                else if (isNear) path.moveTo(x, y);
                isDrawn = isNear;
            }
        }
        return paths;
    }

    // Adds lines and points of GeoJSON; nothing where the plane lies nowhere on Earth.
    add(geoJson) {
        if (!this.paths) return;
        this.paths.own ??= new Path2D();
        for (const line of linesOf(geoJson))
            line.forEach(([longitude, latitude], i) => {
                const [x, y] = this.plane.project(latitude, longitude);
                if (line.length === 1) {
                    this.paths.own.moveTo(x + POINT_NM, y);
                    this.paths.own.arc(x, y, POINT_NM, 0, 2 * Math.PI);
                } else if (i === 0) this.paths.own.moveTo(x, y);
                else this.paths.own.lineTo(x, y);
            });
    }

    draw(context, view, colours, write) {
        if (!this.paths) return;
        if (this.showsGrid) this.drawGrid(context, view, colours, write);
        const [left, top] = view.toScreen(0, 0);
        context.save();
        context.translate(left, top);
        context.scale(view.scale, -view.scale);
        context.lineJoin = 'round';
        for (const [name, width] of [
            ['border', 1],
            ['coast', 1.2],
            ['own', 1.5]
        ]) {
            if (!this.paths[name] || (name !== 'own' && !this.showsCoast)) continue;
            context.strokeStyle = colours[name];
            context.lineWidth = width / view.scale;
            context.stroke(this.paths[name]);
        }
        context.restore();
    }

    // What is seen, in degrees, as far as its edge tells: of longitudes, how far they are from that of the middle.
    extent(view) {
        const middle = this.plane.placeOf(view.x, view.y);
        const norths = [middle[0]],
            easts = [0];
        for (let i = 0; i <= 8; ++i)
            for (const [left, top] of [
                [(view.width * i) / 8, 0],
                [(view.width * i) / 8, view.height],
                [0, (view.height * i) / 8],
                [view.width, (view.height * i) / 8]
            ]) {
                const [north, east] = this.plane.placeOf(...view.toPlane(left, top));
                norths.push(north);
                easts.push(((east - middle[1] + 540) % 360) - 180);
            }
        return {
            south: Math.min(...norths),
            north: Math.max(...norths),
            west: middle[1] + Math.min(...easts),
            east: middle[1] + Math.max(...easts)
        };
    }

    drawGrid(context, view, colours, write) {
        const {south, north, west, east} = this.extent(view);
        const step =
            STEPS_DEG.find(degrees => degrees * NM_PER_DEGREE * view.scale >= LEAST_STEP_PX) ?? STEPS_DEG.at(-1);
        const at = (latitude, longitude) => view.toScreen(...this.plane.project(latitude, longitude));
        const places = (from, to) =>
            Array.from(
                {length: Math.floor(to / step) - Math.ceil(from / step) + 1},
                (_, i) => (Math.ceil(from / step) + i) * step
            );
        const along = (from, to) => Array.from({length: PIECES + 1}, (_, i) => from + ((to - from) * i) / PIECES);
        const lines = [
            ...places(Math.max(-80, south), Math.min(80, north)).map(latitude => ({
                points: along(west, east).map(longitude => at(latitude, longitude))
            })),
            ...places(west, east).map(longitude => ({
                points: along(south, north).map(latitude => at(latitude, longitude))
            }))
        ];
        context.lineWidth = 1;
        context.strokeStyle = colours.ring;
        context.setLineDash([2, 4]);
        context.beginPath();
        for (const {points} of lines)
            points.forEach(([x, y], i) => (i === 0 ? context.moveTo(x, y) : context.lineTo(x, y)));
        context.stroke();
        context.setLineDash([]);
        this.label(context, view, colours, write, {step, at, places, south, north, west, east});
    }

    // At the left and at the bottom, where the lines leave what is seen.
    label(context, view, colours, write, {step, at, places, south, north, west, east}) {
        const fraction = step < 1 ? 1 : 0;
        const text = (degrees, [positive, negative]) =>
            `${Math.abs(((degrees + 540) % 360) - 180).toFixed(fraction)}°${degrees < 0 ? negative : positive}`;
        context.font = '10px system-ui, sans-serif';
        context.textBaseline = 'middle';
        context.textAlign = 'left';
        for (const latitude of places(Math.max(-80, south), Math.min(80, north))) {
            const [, y] = at(latitude, west + (east - west) * 0.02);
            write(text(latitude, 'NS'), 54, y, colours['ring-text'], colours.ground);
        }
        context.textAlign = 'center';
        for (const longitude of places(west, east)) {
            const [x] = at(south, longitude);
            if (x > 80 && x < view.width - 20)
                write(text(longitude, 'EW'), x, view.height - 26, colours['ring-text'], colours.ground);
        }
    }
}
