// Octets that stand in the page as characters: digits of 85, from '#' to 'x' without '<', five of them, the most
// significant first, for four octets.

const VALUES_OF_85 = (() => {
    const values = new Uint8Array(128);
    let value = 0;
    for (let code = 0x23; code <= 0x78; ++code) if (code !== 0x3c) values[code] = value++;
    return values;
})();

// Fewer than five digits at the end stand for one octet less than there are; they are filled up with the highest digit.
export function octetsOfBase85(text) {
    const octets = new Uint8Array(4 * Math.ceil(text.length / 5));
    const view = new DataView(octets.buffer);
    for (let at = 0; at < text.length; at += 5) {
        let number = 0;
        for (let i = 0; i < 5; ++i) number = number * 85 + (VALUES_OF_85[text.charCodeAt(at + i)] ?? 84);
        view.setUint32((at / 5) * 4, number);
    }
    return octets.subarray(0, octets.length - ((5 - (text.length % 5)) % 5));
}

// Turns pieces of text into octets, wherever they are cut.
export class Digits {
    constructor() {
        this.rest = '';
    }

    take(piece) {
        const text = this.rest + piece.replace(/\s+/g, '');
        const whole = text.length - (text.length % 5);
        this.rest = text.slice(whole);
        return octetsOfBase85(text.slice(0, whole));
    }

    end() {
        return octetsOfBase85(this.rest);
    }
}
