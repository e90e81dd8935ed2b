// Octets as digits of 85, as web/digits.js reads them.

export function base85(octets) {
    const padding = (4 - (octets.length % 4)) % 4;
    const groups = Buffer.concat([octets, Buffer.alloc(padding)]);
    const digits = Buffer.alloc((groups.length / 4) * 5);
    for (let group = 0; group < groups.length / 4; ++group) {
        let number = groups.readUInt32BE(4 * group);
        for (let i = 4; i >= 0; --i, number = Math.floor(number / 85)) {
            const value = 0x23 + (number % 85);
            digits[5 * group + i] = value + Number(value >= 0x3c);
        }
    }
    return digits.toString('latin1', 0, digits.length - padding);
}
