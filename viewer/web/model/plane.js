// All positions on one plane, in NM to the east and to the north of its centre. Distances and bearings from the centre
// are true (azimuthal equidistant projection of the sphere).

import {FLAG, POSITION} from './columns.js';
import {median} from './arrays.js';
import {POSITION_UNITS, RADIAN, course, destination, findStations, stationKey} from './stations.js';
import {placeText, sacSicText} from '../format.js';

const NOWHERE = {latitude: 0, longitude: 0};

export class Plane {
    constructor(records) {
        this.stations = findStations(records);
        this.centre = findCentre(records, this.stations);
        this.places = new Map(); // of stations on the plane
        for (const [key, {place}] of this.stations) this.places.set(key, this.project(...place));
        this.homeless = new Map(); // data sources that measure from a place that is not known
        this.x = new Float32Array(records.count).fill(NaN);
        this.y = new Float32Array(records.count).fill(NaN);
        for (let row = 0; row < records.count; ++row) this.put(records, row);
    }

    // Of a record that says what cannot be, or that a system draws around no sensor, there is no position.
    put(records, row) {
        const {degree, azimuth, nm} = POSITION_UNITS;
        const first = records.first[row],
            second = records.second[row];
        const source = records.sources[records.source[row]];
        let point;
        switch (records.kind[row]) {
            case POSITION.wgs84:
                point = this.project(first / degree, second / degree);
                break;
            case POSITION.polar:
                if (records.flags[row] & FLAG.system) return;
                point = this.around(source, first / nm, (second / azimuth) * RADIAN);
                break;
            case POSITION.cartesian:
                point = this.around(source, Math.hypot(first, second) / nm, Math.atan2(first, second));
                break;
            default:
                return;
        }
        [this.x[row], this.y[row]] = point;
    }

    // A range in NM and an azimuth as a data source measures them; around the centre if its place is not known.
    around(source, range, azimuth) {
        const station = this.stationOf(source);
        if (!station || stationKey(station) === this.centre.station)
            return [range * Math.sin(azimuth), range * Math.cos(azimuth)];
        return this.project(...destination(station.place, range, azimuth));
    }

    // Where a data source that measures something stands; undefined when it is not known.
    stationOf(source) {
        const station = this.stations.get(stationKey(source));
        if (!station) this.homeless.set(stationKey(source), sacSicText(source) || 'a source without a name');
        return station;
    }

    // The same on the plane; the centre where it is not known.
    pointOf(source) {
        return this.stationOf(source) ? this.places.get(stationKey(source)) : [0, 0];
    }

    project(latitude, longitude) {
        const {range, bearing} = course([this.centre.latitude, this.centre.longitude], [latitude, longitude]);
        return [range * Math.sin(bearing * RADIAN), range * Math.cos(bearing * RADIAN)];
    }

    // Latitude and longitude of a point; null where the plane lies nowhere on Earth.
    placeOf(x, y) {
        const {latitude, longitude, isKnown} = this.centre;
        return isKnown ? destination([latitude, longitude], Math.hypot(x, y), Math.atan2(x, y)) : null;
    }

    // What has to be known about the plane to read it.
    note() {
        const sentences = [];
        const {isKnown, station, latitude, longitude} = this.centre;
        if (isKnown) {
            const what = station === undefined ? 'the middle of the positions' : sacSicText(this.stations.get(station));
            sentences.push(`Centre: ${what}, ${placeText([latitude, longitude])}.`);
        }
        const located = [...this.stations.values()].filter(({known}) => known === 'worked out');
        if (located.length > 0)
            sentences.push(
                'Worked out from aircraft that others saw, too, is the place of ' +
                    located
                        .map(site => `${sacSicText(site)} ± ${Math.round(site.standard_error_m)} m`)
                        .sort()
                        .join(', ') +
                    '.'
            );
        if (this.homeless.size > 0)
            sentences.push(
                `Not known is the place of ${[...this.homeless.values()].sort().join(', ')}: drawn around the centre.`
            );
        sentences.push('Ranges are drawn as measured; north is up.');
        return sentences.join(' ');
    }
}

// The station that has measured most, else the middle of the positions in WGS-84; else the plane lies nowhere on Earth.
function findCentre(records, stations) {
    const [best] = [...stations].sort(([, one], [, other]) => other.measured - one.measured);
    const at = ([latitude, longitude]) => ({latitude, longitude, isKnown: true});
    const middle = best?.[1].measured > 0 ? null : middleOf(records);
    if (middle) return at(middle);
    return best ? {...at(best[1].place), station: best[0]} : {...NOWHERE, isKnown: false};
}

// The median: some reports are far off.
function middleOf(records) {
    const latitudes = [],
        longitudes = [];
    const {degree} = POSITION_UNITS;
    let first;
    const step = Math.max(1, Math.floor(records.count / 50000));
    for (let row = 0; row < records.count; row += step) {
        if (records.kind[row] !== POSITION.wgs84) continue;
        latitudes.push(records.first[row] / degree);
        // Relative to the first, so that the date line divides nothing.
        first ??= records.second[row] / degree;
        longitudes.push(((records.second[row] / degree - first + 540) % 360) - 180);
    }
    if (latitudes.length === 0) return null;
    return [median(latitudes), ((median(longitudes) + first + 540) % 360) - 180];
}
