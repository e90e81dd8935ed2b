
// Where data sources stand: as they say themselves, or as aircraft show that several of them have seen.

const EARTH_NM = 3440.065;
const RADIAN = Math.PI / 180;
const POSITION_UNITS = {degree: 1e7, azimuth: 1e6, nm: 65536};
const MEETING_S = 4;            // between two positions of an aircraft that count as one
const LEAST_MEETINGS = 3;       // of different aircraft
const MOST_SPREAD_NM = 2;       // of the places that these lead to, the half of them
const MOST_MEETINGS = 500;

// The point at a distance in NM from a place.
function destination([latitude, longitude], range, azimuth) {
    const angle = range / EARTH_NM, a = latitude * RADIAN;
    const sine = Math.sin(a) * Math.cos(angle) + Math.cos(a) * Math.sin(angle) * Math.cos(azimuth);
    const east = Math.atan2(Math.sin(azimuth) * Math.sin(angle) * Math.cos(a), Math.cos(angle) - Math.sin(a) * sine);
    return [Math.asin(sine) / RADIAN, ((longitude + east / RADIAN + 540) % 360) - 180];
}

// The bearing of one place from another, in radians.
function bearing([latitude, longitude], [toLatitude, toLongitude]) {
    const a = latitude * RADIAN, b = toLatitude * RADIAN, east = (toLongitude - longitude) * RADIAN;
    return Math.atan2(Math.sin(east) * Math.cos(b),
                      Math.cos(a) * Math.sin(b) - Math.sin(a) * Math.cos(b) * Math.cos(east));
}

// Range and azimuth of a polar position.
function polarOf(records, row) {
    return [records.first[row] / POSITION_UNITS.nm, records.second[row] / POSITION_UNITS.azimuth * RADIAN];
}

// The places that data sources tell, by SAC and SIC, and how many positions they have measured from there.
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

// Adds the stations that can be worked out to those that are known, and returns their words: each may help to find
// others.
function locateStations(records, stations) {
    const located = [];
    for (let isNew = true; isNew;) {
        isNew = false;
        const lost = lostRows(records, stations);
        const sightings = lost.size > 0 ? placedSightings(records, stations, lost) : null;
        for (const [word, rows] of lost) {
            const place = locate(records, rows, sightings);
            if (!place) continue;
            stations.set(word & 0xFFFF, {place, word, measured: rows.length});
            located.push(word);
            isNew = true;
        }
    }
    return located;
}

// What sources without a place have measured of aircraft that are known by their addresses.
function lostRows(records, stations) {
    const lost = new Map();
    for (let row = 0; row < records.count; ++row) {
        const word = records.sources[records.source[row]] & (HAS_SOURCE | 0xFFFF);
        if (records.kind[row] !== POSITION.polar || !records.address[row] || !(word & HAS_SOURCE)) continue;
        if (stations.has(word & 0xFFFF)) continue;
        if (!lost.has(word)) lost.set(word, []);
        if (lost.get(word).length < MOST_MEETINGS) lost.get(word).push(row);
    }
    return lost;
}

// Where these aircraft were according to others, by address.
function placedSightings(records, stations, lost) {
    const sightings = new Map();
    for (const rows of lost.values())
        for (const row of rows) sightings.set(records.address[row], []);
    for (let row = 0; row < records.count; ++row) {
        const place = sightings.has(records.address[row]) && placeOfRow(records, stations, row);
        if (place) sightings.get(records.address[row]).push({time: records.time[row], place});
    }
    return sightings;
}

function placeOfRow(records, stations, row) {
    const {degree} = POSITION_UNITS;
    if (records.kind[row] === POSITION.wgs84) return [records.first[row] / degree, records.second[row] / degree];
    const word = records.sources[records.source[row]];
    const station = word & HAS_SOURCE ? stations.get(word & 0xFFFF) : undefined;
    if (!station || records.kind[row] !== POSITION.polar) return null;
    return destination(station.place, ...polarOf(records, row));
}

// The place that all meetings lead to, or nearly so; null where they do not.
function locate(records, rows, sightings) {
    const places = [], aircraft = new Set();
    for (const row of rows) {
        const time = records.time[row];
        const nearest = sightings.get(records.address[row]).reduce((best, other) =>
            Math.abs(other.time - time) < Math.abs(best.time - time) ? other : best, {time: Infinity});
        if (Math.abs(nearest.time - time) > MEETING_S) continue;
        places.push(standpoint(nearest.place, ...polarOf(records, row)));
        aircraft.add(records.address[row]);
    }
    if (aircraft.size < LEAST_MEETINGS) return null;
    const place = [0, 1].map(i => median(places.map(other => other[i])));
    const east = Math.cos(place[0] * RADIAN);
    const spread = median(places.map(other => 60 * Math.hypot(other[0] - place[0], (other[1] - place[1]) * east)));
    return spread <= MOST_SPREAD_NM ? place : null;
}

// From where a place is seen at this range and azimuth: meridians converge, so that the way back is bent.
function standpoint(place, range, azimuth) {
    const back = azimuth + Math.PI;
    const guess = destination(place, range, back);
    return destination(place, range, back + azimuth - bearing(guess, place));
}

function median(values) {
    values.sort((one, other) => one - other);
    return (values[(values.length - 1) >> 1] + values[values.length >> 1]) / 2;
}
