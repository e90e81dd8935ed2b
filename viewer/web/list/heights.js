// How far down the entries of a long list are: most are of one height, a few are taller.

export class Heights {
    constructor(count, usual) {
        Object.assign(this, {count, usual, taller: new Map(), places: [], sums: [0]});
    }

    get total() {
        return this.count * this.usual + this.sums.at(-1);
    }

    get(place) {
        return this.usual + (this.taller.get(place) ?? 0);
    }

    set(place, height) {
        const more = height - this.usual;
        if ((this.taller.get(place) ?? 0) === more) return false;
        if (more === 0) this.taller.delete(place);
        else this.taller.set(place, more);
        this.places = [...this.taller.keys()].sort((one, other) => one - other);
        this.sums = [0];
        for (const other of this.places) this.sums.push(this.sums.at(-1) + this.taller.get(other));
        return true;
    }

    // How many of the taller ones stand before a place.
    tallerBefore(place) {
        let low = 0,
            high = this.places.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (this.places[middle] < place) low = middle + 1;
            else high = middle;
        }
        return low;
    }

    top(place) {
        return place * this.usual + this.sums[this.tallerBefore(place)];
    }

    // The entry that stands at a distance from the top.
    at(distance) {
        let low = 0,
            high = this.count - 1;
        while (low < high) {
            const middle = (low + high + 1) >> 1;
            if (this.top(middle) <= distance) low = middle;
            else high = middle - 1;
        }
        return low;
    }
}
