// Values as texts.

export const DAY_S = 86400;

export const digits = (number, count, base = 10) => number.toString(base).toUpperCase().padStart(count, '0');

export function clockText(seconds, fraction = 3) {
    const unit = 10 ** fraction;
    const units = Math.floor((((seconds % DAY_S) + DAY_S) % DAY_S) * unit + 1e-3) % (DAY_S * unit);
    const whole = Math.floor(units / unit);
    const text = [whole / 3600, (whole / 60) % 60, whole % 60].map(part => digits(Math.floor(part), 2)).join(':');
    return fraction === 0 ? text : `${text}.${digits(units % unit, fraction)}`;
}

export const dateText = seconds => new Date(seconds * 1000).toISOString().slice(0, 10);

export const codeText = code => digits(code, 4, 8);
export const addressText = address => digits(address, 6, 16);
export const trackText = track => `#${track}`;
export const levelText = level => `FL${level < 0 ? '-' : ''}${digits(Math.round(Math.abs(level)), 3)}`;

export const categoryText = category => digits(category, 3);
export const sacSicText = ({sac, sic}) => (sac === undefined ? '' : `${digits(sac, 3)}/${digits(sic, 3)}`);
export const sourceText = source => `${categoryText(source.category)} ${sacSicText(source)}`.trim();

const degreesText = (degrees, [positive, negative]) =>
    `${Math.abs(degrees).toFixed(4)}° ${degrees < 0 ? negative : positive}`;
export const placeText = ([latitude, longitude]) => `${degreesText(latitude, 'NS')} ${degreesText(longitude, 'EW')}`;

export const numberText = number => number.toLocaleString('en');
export const countText = (count, noun, nouns = `${noun}s`) => `${numberText(count)} ${count === 1 ? noun : nouns}`;

export function sizeText(octets) {
    const units = ['octets', 'kB', 'MB', 'GB'];
    let unit = 0;
    while (octets >= 1000 && unit + 1 < units.length) {
        octets /= 1000;
        ++unit;
    }
    return `${octets.toFixed(unit === 0 || octets >= 100 ? 0 : 1)} ${units[unit]}`;
}
