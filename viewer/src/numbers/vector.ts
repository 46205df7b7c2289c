// Points and vectors in mm, and what is done with them.
export interface point {
    x: number;
    y: number;
    z: number;
}

export function plus(a: point, b: point): point {
    return { x: a.x + b.x, y: a.y + b.y, z: a.z + b.z };
}

export function minus(a: point, b: point): point {
    return { x: a.x - b.x, y: a.y - b.y, z: a.z - b.z };
}

export function times(a: point, factor: number): point {
    return { x: a.x * factor, y: a.y * factor, z: a.z * factor };
}

export function dot(a: point, b: point): number {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

export function cross(a: point, b: point): point {
    return { x: a.y * b.z - a.z * b.y, y: a.z * b.x - a.x * b.z, z: a.x * b.y - a.y * b.x };
}

export function length(a: point): number {
    return Math.hypot(a.x, a.y, a.z);
}

export function distance(a: point, b: point): number {
    return length(minus(a, b));
}

export function normalized(a: point): point {
    return times(a, 1 / length(a));
}

export function mean(points: readonly point[]): point {
    const sum = points.reduce(plus, { x: 0, y: 0, z: 0 });
    return times(sum, 1 / points.length);
}

// In degrees, between 0 and 180; by both products, as the cosine alone is blind for small angles.
export function angleBetween(a: point, b: point): number {
    return degrees(Math.atan2(length(cross(a, b)), dot(a, b)));
}

export function degrees(radians: number): number {
    return (radians * 180) / Math.PI;
}
