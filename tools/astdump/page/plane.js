
// All positions on one plane, in NM to the east and to the north of its centre. Distances and bearings from the centre
// are true (azimuthal equidistant projection of the sphere).

const EARTH_NM = 3440.065;
const RADIAN = Math.PI / 180;
const POSITION_UNITS = {degree: 1e7, azimuth: 1e6, nm: 65536};

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
        const {degree, azimuth, nm} = POSITION_UNITS;
        let point;
        if (kind === POSITION.wgs84) {
            point = this.project(records.first[row] / degree, records.second[row] / degree);
        } else if (kind === POSITION.polar) {
            point = this.around(records.sources[records.source[row]], records.first[row] / nm,
                                records.second[row] / azimuth * RADIAN);
        } else if (kind === POSITION.cartesian) {
            const east = records.first[row] / nm, north = records.second[row] / nm;
            point = this.around(records.sources[records.source[row]], Math.hypot(east, north), Math.atan2(east, north));
        } else {
            return;
        }
        [this.x[row], this.y[row]] = point;
    }

    // A range in NM and an azimuth as a data source measures them; around the centre when it is not known where it stands.
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
        if (this.homeless.size > 0) {
            const names = [...this.homeless].map(word => sacSicText(word) || 'a source without a name').sort();
            sentences.push(`The recording does not say where ${names.join(', ')} ${names.length > 1 ? 'stand' : 'stands'}: ` +
                           `what ${names.length > 1 ? 'they measure' : 'it measures'} is drawn around the centre.`);
        }
        sentences.push('Ranges are drawn as measured; north is up.');
        return sentences.join(' ');
    }
}

// The point at a distance in NM from a place.
function destination([latitude, longitude], range, azimuth) {
    const angle = range / EARTH_NM, a = latitude * RADIAN;
    const sine = Math.sin(a) * Math.cos(angle) + Math.cos(a) * Math.sin(angle) * Math.cos(azimuth);
    const east = Math.atan2(Math.sin(azimuth) * Math.sin(angle) * Math.cos(a), Math.cos(angle) - Math.sin(a) * sine);
    return [Math.asin(sine) / RADIAN, ((longitude + east / RADIAN + 540) % 360) - 180];
}

// Where data sources stand, as they say themselves, by SAC and SIC; and how many positions they have measured from there.
function findStations(records) {
    const stations = new Map();
    const {degree} = POSITION_UNITS;
    for (let row = 0; row < records.count; ++row) {
        const word = records.sources[records.source[row]];
        if (records.kind[row] !== POSITION.station || !(word & HAS_SOURCE)) continue;
        const place = [records.first[row] / degree, records.second[row] / degree];
        if (!stations.has(word & 0xFFFF)) stations.set(word & 0xFFFF, {place, word: word & 0x100FFFF, measured: 0});
    }
    for (let row = 0; row < records.count; ++row) {
        const station = stations.get(records.sources[records.source[row]] & 0xFFFF);
        if (station && (records.kind[row] === POSITION.polar || records.kind[row] === POSITION.cartesian))
            ++station.measured;
    }
    return stations;
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
    const step = Math.max(1, Math.floor(records.count / 50000));
    for (let row = 0; row < records.count; row += step) {
        if (records.kind[row] !== POSITION.wgs84) continue;
        latitudes.push(records.first[row] / degree);
        // Relative to the first, so that the date line divides nothing.
        longitudes.push((records.second[row] / degree - (longitudes.start ??= records.second[row] / degree) + 540) % 360 - 180);
    }
    if (latitudes.length === 0) return null;
    const median = values => {
        values.sort((a, b) => a - b);
        return (values[(values.length - 1) >> 1] + values[values.length >> 1]) / 2;
    };
    return [median(latitudes), (median(longitudes) + longitudes.start + 540) % 360 - 180];
}
