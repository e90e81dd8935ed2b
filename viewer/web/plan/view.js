// What part of the plane is seen: the point in the middle of the canvas, and pixels per NM.

export class View {
    constructor() {
        this.x = this.y = 0;
        this.scale = 1;
        this.width = this.height = 1;
    }

    resize(width, height) {
        this.scale *= Math.min(width, height) / Math.min(this.width, this.height);
        this.width = width;
        this.height = height;
    }

    toScreen(x, y) {
        return [(x - this.x) * this.scale + this.width / 2, (this.y - y) * this.scale + this.height / 2];
    }

    toPlane(left, top) {
        return [(left - this.width / 2) / this.scale + this.x, this.y - (top - this.height / 2) / this.scale];
    }

    isInside(x, y, margin = 24) {
        const [left, top] = this.toScreen(x, y);
        return left >= margin && top >= margin && left <= this.width - margin && top <= this.height - margin;
    }

    centre(x, y) {
        this.x = x;
        this.y = y;
    }

    move(right, down) {
        this.x -= right / this.scale;
        this.y += down / this.scale;
    }

    // About a point of the canvas, which stays where it is.
    zoom(factor, left = this.width / 2, top = this.height / 2) {
        const [x, y] = this.toPlane(left, top);
        this.scale = Math.min(1e5, Math.max(1e-2, this.scale * factor));
        const [newX, newY] = this.toPlane(left, top);
        this.x += x - newX;
        this.y += y - newY;
    }

    // Brings a rectangle of the plane into the window, but for so many pixels at its top and at its right.
    fit({left, right, bottom, top}, {above = 0, beside = 0} = {}) {
        const margin = 36;
        const least = Math.max(right - left, top - bottom) < 0.02 ? 20 : 0.02; // one place alone, or a small one
        this.scale = Math.max(
            1e-2,
            Math.min(
                (this.width - 2 * margin - beside) / Math.max(right - left, least),
                (this.height - 2 * margin - above) / Math.max(top - bottom, least)
            )
        );
        this.centre((left + right + beside / this.scale) / 2, (bottom + top + above / this.scale) / 2);
    }
}

// The rectangle around points, but for those that are far off all others.
export function boundsOf(xs, ys) {
    const half = values => Float32Array.from(values).sort()[values.length >> 1];
    const middle = [half(xs), half(ys)];
    const far = i => Math.max(Math.abs(xs[i] - middle[0]), Math.abs(ys[i] - middle[1]));
    const limit = 4 * Float32Array.from(xs, (_, i) => far(i)).sort()[Math.floor(xs.length * 0.95)] + 1;
    const bounds = {left: Infinity, right: -Infinity, bottom: Infinity, top: -Infinity};
    for (let i = 0; i < xs.length; ++i) {
        if (far(i) > limit) continue;
        bounds.left = Math.min(bounds.left, xs[i]);
        bounds.right = Math.max(bounds.right, xs[i]);
        bounds.bottom = Math.min(bounds.bottom, ys[i]);
        bounds.top = Math.max(bounds.top, ys[i]);
    }
    return bounds;
}
