
// Where data sources stand, and what they measure from there.

const EARTH_NM = 3440.065;
const RADIAN = Math.PI / 180;
const POSITION_UNITS = {degree: 1e7, azimuth: 1e6, nm: 65536};

// The point at a distance in NM from a place.
function destination([latitude, longitude], range, azimuth) {
    const angle = range / EARTH_NM, a = latitude * RADIAN;
    const sine = Math.sin(a) * Math.cos(angle) + Math.cos(a) * Math.sin(angle) * Math.cos(azimuth);
    const east = Math.atan2(Math.sin(azimuth) * Math.sin(angle) * Math.cos(a), Math.cos(angle) - Math.sin(a) * sine);
    return [Math.asin(sine) / RADIAN, ((longitude + east / RADIAN + 540) % 360) - 180];
}

// Range and azimuth of a polar position.
function polarOf(records, row) {
    return [records.first[row] / POSITION_UNITS.nm, records.second[row] / POSITION_UNITS.azimuth * RADIAN];
}

// The stations that are known, by SAC and SIC, and how many positions they have measured.
function findStations(records) {
    const stations = new Map();
    for (const word of records.sources) {
        const site = word & HAS_SOURCE ? records.sites.get(word & 0xFFFF) : undefined;
        if (site) stations.set(word & 0xFFFF, {...site, word: word & (HAS_SOURCE | 0xFFFF), measured: 0});
    }
    for (let row = 0; row < records.count; ++row) {
        const station = stations.get(records.sources[records.source[row]] & 0xFFFF);
        if (station && (records.kind[row] === POSITION.polar || records.kind[row] === POSITION.cartesian))
            ++station.measured;
    }
    return stations;
}

function median(values) {
    values.sort((one, other) => one - other);
    return (values[(values.length - 1) >> 1] + values[values.length >> 1]) / 2;
}
