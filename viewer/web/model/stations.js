// Where data sources stand, and what they measure from there.

import {POSITION} from './columns.js';

export const EARTH_NM = 3440.065;
export const RADIAN = Math.PI / 180;
export const POSITION_UNITS = {degree: 1e7, azimuth: 1e6, nm: 65536};

// The point at a distance in NM from a place.
export function destination([latitude, longitude], range, azimuth) {
    const angle = range / EARTH_NM,
        a = latitude * RADIAN;
    const sine = Math.sin(a) * Math.cos(angle) + Math.cos(a) * Math.sin(angle) * Math.cos(azimuth);
    const east = Math.atan2(Math.sin(azimuth) * Math.sin(angle) * Math.cos(a), Math.cos(angle) - Math.sin(a) * sine);
    return [Math.asin(sine) / RADIAN, ((longitude + east / RADIAN + 540) % 360) - 180];
}

// How far it is from a place to another, in NM, and in which direction, in degrees.
export function course([latitude0, longitude0], [latitude, longitude]) {
    const a0 = latitude0 * RADIAN,
        a = latitude * RADIAN,
        east = (longitude - longitude0) * RADIAN;
    const toEast = Math.cos(a) * Math.sin(east);
    const toNorth = Math.cos(a0) * Math.sin(a) - Math.sin(a0) * Math.cos(a) * Math.cos(east);
    const along = Math.sin(a0) * Math.sin(a) + Math.cos(a0) * Math.cos(a) * Math.cos(east);
    return {
        range: Math.atan2(Math.hypot(toEast, toNorth), along) * EARTH_NM,
        bearing: (Math.atan2(toEast, toNorth) / RADIAN + 360) % 360
    };
}

// By what the stations are known; undefined for a source that does not say who it is.
export const stationKey = ({sac, sic}) => (sac === undefined ? undefined : sac * 256 + sic);

// The stations that are known, by their keys, and how many positions they have measured.
export function findStations(records) {
    const stations = new Map();
    const sites = new Map(records.sites.map(site => [stationKey(site), site]));
    for (const source of records.sources) {
        const site = sites.get(stationKey(source));
        if (site)
            stations.set(stationKey(source), {
                ...site,
                place: [site.latitude, site.longitude],
                measured: 0
            });
    }
    const stationOf = records.sources.map(source => stations.get(stationKey(source)));
    for (let row = 0; row < records.count; ++row) {
        const kind = records.kind[row];
        const station = stationOf[records.source[row]];
        if (station && (kind === POSITION.polar || kind === POSITION.cartesian)) ++station.measured;
    }
    return stations;
}
