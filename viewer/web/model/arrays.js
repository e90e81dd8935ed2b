// Places in arrays that ascend, and what lies at the ends of others.

// The last place whose value is not more, of equals the last; -1 where all are. Values are asked for by place.
export function lastAtMost(length, valueAt, value) {
    let low = 0,
        high = length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if (valueAt(middle) <= value) low = middle + 1;
        else high = middle;
    }
    return low - 1;
}

// The first place whose value is not less.
export function firstAtLeast(length, valueAt, value) {
    let low = 0,
        high = length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if (valueAt(middle) < value) low = middle + 1;
        else high = middle;
    }
    return low;
}

export function extremes(values) {
    let least = Infinity,
        most = -Infinity;
    for (const value of values) {
        if (value < least) least = value;
        if (value > most) most = value;
    }
    return [least, most];
}

export function median(values) {
    values.sort((one, other) => one - other);
    return (values[(values.length - 1) >> 1] + values[values.length >> 1]) / 2;
}

// What another thread has sent is an object of its class again.
export const revive = (type, members) => Object.assign(Object.create(type.prototype), members);
