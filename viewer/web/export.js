// What is shown, as files: positions as CSV or GeoJSON, the plan as a picture.

import {addressText, clockText, codeText, sacSicText} from './format.js';
import {NO_CODE, NO_NUMBER, valueOf} from './model/columns.js';

const MEMBERS = {
    time: ({records}, row) => records.timeText(row),
    category: ({records}, row) => records.sources[records.source[row]].category,
    source: ({records}, row) => sacSicText(records.sources[records.source[row]]),
    callsign: ({records}, row) => records.texts[records.callsign[row]].trim(),
    address: ({records}, row) => (records.address[row] === NO_NUMBER ? '' : addressText(records.address[row])),
    code: ({records}, row) => (records.code[row] === NO_CODE ? '' : codeText(records.code[row])),
    track: ({records}, row) => (records.track[row] === NO_NUMBER ? '' : records.track[row]),
    fl: ({records}, row) => numberOf(records.flightLevel(row)),
    groundspeed_kt: ({records}, row) => numberOf(valueOf('speed', records.speed[row])),
    track_angle_deg: ({records}, row) => numberOf(valueOf('angle', records.angle[row])),
    x_nm: ({plane}, row) => numberOf(plane.x[row]),
    y_nm: ({plane}, row) => numberOf(plane.y[row])
};
const DECIMALS = 4;
const PLACE_DECIMALS = 6;

const numberOf = value => (isNaN(value) ? '' : Number(value.toFixed(DECIMALS)));

function placeOf({plane}, row) {
    const place = plane.placeOf(plane.x[row], plane.y[row]);
    return place ? place.map(degrees => Number(degrees.toFixed(PLACE_DECIMALS))) : ['', ''];
}

// Spreadsheets take what begins so for a formula.
const cellOf = value => {
    const text = typeof value === 'string' && /^[=+\-@\t\r]/.test(value) ? `'${value}` : String(value);
    return /[",\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text;
};

export function csvOf(model, rows) {
    const lines = [[...Object.keys(MEMBERS), 'latitude', 'longitude'].join(',')];
    for (const row of rows)
        lines.push([...Object.values(MEMBERS).map(of => of(model, row)), ...placeOf(model, row)].map(cellOf).join(','));
    return `${lines.join('\n')}\n`;
}

export function geoJsonOf(model, rows) {
    const features = Array.from(rows, row => {
        const [latitude, longitude] = placeOf(model, row);
        const members = Object.entries(MEMBERS).map(([name, of]) => [name, of(model, row)]);
        return {
            type: 'Feature',
            geometry: {type: 'Point', coordinates: [longitude, latitude]},
            properties: Object.fromEntries(members.filter(([, value]) => value !== ''))
        };
    });
    return JSON.stringify({type: 'FeatureCollection', features});
}

export function save(blob, name) {
    const link = document.createElement('a');
    link.href = URL.createObjectURL(blob);
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href));
}

export const nameAt = (records, plan, ending) => {
    const last =
        records.hasTimes && isFinite(plan.scene.to) ? `-${clockText(plan.scene.to, 0).replaceAll(':', '')}` : '';
    return `positions${last}.${ending}`;
};
