// The plane with the least sum of squared distances to some points, and those distances.
import { cross, dot, length, mean, minus, normalized, type point, times } from "./vector";

export interface plane {
    centre: point;
    normal: point; // of length 1, upwards
}

// Points that lie on one line to this part of their extent have no plane.
const lineTolerance = 1e-9;

// Undefined for points on one line or in one place.
export function fitPlane(points: readonly point[]): plane | undefined {
    const centre = mean(points);
    const around = points.map((each) => minus(each, centre));
    const { axes, values } = principalAxes(around);
    const order = [0, 1, 2].sort((a, b) => values[a]! - values[b]!);
    const [least, middle, most] = order as [number, number, number];
    if (!(Math.sqrt(values[middle]!) > lineTolerance * Math.sqrt(values[most]!))) return undefined;
    const normal = axes[least]!;
    return { centre, normal: normal.z < 0 ? times(normal, -1) : normal };
}

// Positive above the plane.
export function deviation(from: plane, of: point): number {
    return dot(from.normal, minus(of, from.centre));
}

export function projected(onto: plane, of: point): point {
    return minus(of, times(onto.normal, deviation(onto, of)));
}

// Eigenvectors and eigenvalues of the sums of products, by Jacobi's rotations. The points are
// scaled to their extent first, so that no unit of length matters.
function principalAxes(points: point[]): { axes: point[]; values: number[] } {
    const extent = Math.max(...points.map(length));
    const rows = points.map(({ x, y, z }) =>
        [x, y, z].map((value) => (extent > 0 ? value / extent : 0)),
    );
    const matrix = [0, 1, 2].map((i) =>
        [0, 1, 2].map((j) => rows.reduce((sum, row) => sum + row[i]! * row[j]!, 0)),
    );
    const vectors = [
        [1, 0, 0],
        [0, 1, 0],
        [0, 0, 1],
    ];
    const pairs: [number, number][] = [
        [0, 1],
        [0, 2],
        [1, 2],
    ];
    // Each round squares what is left beside the diagonal; a handful is plenty.
    for (let round = 0; round < 20; ++round)
        for (const [p, q] of pairs) rotate(matrix, vectors, p, q);
    return {
        axes: vectors.map((row) => normalized({ x: row[0]!, y: row[1]!, z: row[2]! })),
        values: [0, 1, 2].map((i) => Math.max(0, matrix[i]![i]!)),
    };
}

// Turns the axes p and q so that their product vanishes.
function rotate(matrix: number[][], vectors: number[][], p: number, q: number): void {
    const off = matrix[p]![q]!;
    if (off === 0) return;
    const angle = 0.5 * Math.atan2(2 * off, matrix[p]![p]! - matrix[q]![q]!);
    const c = Math.cos(angle);
    const s = Math.sin(angle);
    const turnRows = (rows: number[][]): void => {
        const [first, second] = [rows[p]!, rows[q]!];
        rows[p] = first.map((value, i) => c * value + s * second[i]!);
        rows[q] = second.map((value, i) => c * value - s * first[i]!);
    };
    turnRows(matrix);
    for (const row of matrix) {
        const [first, second] = [row[p]!, row[q]!];
        row[p] = c * first + s * second;
        row[q] = c * second - s * first;
    }
    turnRows(vectors);
}

// Two directions in the plane, for drawings and sums; which ones does not matter.
export function directionsIn(of: plane): [point, point] {
    const least = Math.abs(of.normal.x) < 0.5 ? { x: 1, y: 0, z: 0 } : { x: 0, y: 1, z: 0 };
    const first = normalized(cross(least, of.normal));
    return [first, cross(of.normal, first)];
}
