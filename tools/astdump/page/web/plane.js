
// All positions on one plane, in NM to the east and to the north of its centre. Distances and bearings from the centre
// are true (azimuthal equidistant projection of the sphere).

class Plane {
    constructor(records) {
        this.stations = findStations(records);
        this.centre = findCentre(records, this.stations);
        this.places = new Map(); // of stations on the plane
        for (const [word, {place}] of this.stations) this.places.set(word, this.project(...place));
        this.homeless = new Set(); // data sources that measure from a place that is not known
        this.x = new Float32Array(records.count).fill(NaN);
        this.y = new Float32Array(records.count).fill(NaN);
        for (let row = 0; row < records.count; ++row) this.put(records, row);
    }

    put(records, row) {
        const kind = records.kind[row];
        const {degree, nm} = POSITION_UNITS;
        let point;
        if (kind === POSITION.wgs84) {
            point = this.project(records.first[row] / degree, records.second[row] / degree);
        } else if (kind === POSITION.polar) {
            point = this.around(records.sources[records.source[row]], ...polarOf(records, row));
        } else if (kind === POSITION.cartesian) {
            const east = records.first[row] / nm, north = records.second[row] / nm;
            point = this.around(records.sources[records.source[row]], Math.hypot(east, north), Math.atan2(east, north));
        } else {
            return;
        }
        [this.x[row], this.y[row]] = point;
    }

    // A range in NM and an azimuth as a data source measures them; around the centre if its place is not known.
    around(word, range, azimuth) {
        const station = this.stationOf(word);
        if (!station || station.place === this.centre)
            return [range * Math.sin(azimuth), range * Math.cos(azimuth)];
        return this.project(...destination(station.place, range, azimuth));
    }

    // Where a data source that measures something stands; undefined when it is not known.
    stationOf(word) {
        const station = word & HAS_SOURCE ? this.stations.get(word & 0xFFFF) : undefined;
        if (!station) this.homeless.add(word & (HAS_SOURCE | 0xFFFF));
        return station;
    }

    project(latitude, longitude) {
        const [latitude0, longitude0] = this.centre;
        const east = (longitude - longitude0) * RADIAN;
        const a = latitude * RADIAN, a0 = latitude0 * RADIAN;
        const toEast = Math.cos(a) * Math.sin(east);
        const toNorth = Math.cos(a0) * Math.sin(a) - Math.sin(a0) * Math.cos(a) * Math.cos(east);
        const sine = Math.hypot(toEast, toNorth);
        if (sine === 0) return [0, 0];
        const distance = Math.atan2(sine, Math.sin(a0) * Math.sin(a) + Math.cos(a0) * Math.cos(a) * Math.cos(east));
        return [toEast / sine * distance * EARTH_NM, toNorth / sine * distance * EARTH_NM];
    }

    // Latitude and longitude of a point; null where the plane lies nowhere on Earth.
    placeOf(x, y) {
        return this.isOnEarth() ? destination(this.centre, Math.hypot(x, y), Math.atan2(x, y)) : null;
    }

    isOnEarth() { return this.centre.isKnown; }

    // What has to be known about the plane to read it.
    note() {
        const sentences = [];
        if (this.centre.station !== undefined)
            sentences.push(`Centre: ${sacSicText(this.centre.station)}, ${placeText(this.centre)}.`);
        else if (this.isOnEarth())
            sentences.push(`Centre: the middle of the positions, ${placeText(this.centre)}.`);
        const list = words => words.map(word => sacSicText(word) || 'a source without a name').sort().join(', ');
        const located = [...this.stations.values()].filter(({known}) => known === SITE.workedOut);
        if (located.length > 0)
            sentences.push('Worked out from aircraft that others saw, too, is the place of ' +
                located.map(({word, errorM}) => `${sacSicText(word)} ± ${errorM} m`).sort().join(', ') + '.');
        if (this.homeless.size > 0)
            sentences.push(`Not known is the place of ${list([...this.homeless])}: drawn around the centre.`);
        sentences.push('Ranges are drawn as measured; north is up.');
        return sentences.join(' ');
    }
}

// The station that has measured most, else the middle of the positions in WGS-84; else the plane lies nowhere on Earth.
function findCentre(records, stations) {
    const [best] = [...stations.values()].sort((one, other) => other.measured - one.measured);
    const middle = best?.measured > 0 ? null : middleOf(records);
    const centre = middle ?? best?.place ?? [0, 0];
    centre.isKnown = Boolean(middle ?? best);
    if (!middle && best) centre.station = best.word;
    return centre;
}

// The median: some reports are far off.
function middleOf(records) {
    const latitudes = [], longitudes = [];
    const {degree} = POSITION_UNITS;
    let first;
    const step = Math.max(1, Math.floor(records.count / 50000));
    for (let row = 0; row < records.count; row += step) {
        if (records.kind[row] !== POSITION.wgs84) continue;
        latitudes.push(records.first[row] / degree);
        // Relative to the first, so that the date line divides nothing.
        first ??= records.second[row] / degree;
        longitudes.push((records.second[row] / degree - first + 540) % 360 - 180);
    }
    if (latitudes.length === 0) return null;
    return [median(latitudes), (median(longitudes) + first + 540) % 360 - 180];
}
