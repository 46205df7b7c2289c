// What follows from the four cylinders alone: sides, diagonals, angles, plane and rectangle.
import type { four } from "../reading/measuringFile";
import { deviation, fitPlane, type plane } from "./plane";
import { distancesFromRectangle } from "./rectangle";
import { angleBetween, distance, mean, minus, type point } from "./vector";

export interface corners {
    points: four<point>;
    middle: point;
    sides: { "1-2": number; "4-3": number; "4-1": number; "3-2": number };
    diagonals: { "1-3": number; "2-4": number };
    lengthX: number; // mean of the two sides along X
    lengthY: number;
    angles: four<number>; // in degrees, how much more than 90; NaN where two points are one
    // Undefined for points on one line.
    fitted: { plane: plane; deviations: four<number>; fromRectangle: four<number> } | undefined;
}

export function cornersOf(points: four<point>): corners {
    const [p1, p2, p3, p4] = points;
    const sides = {
        "1-2": distance(p1, p2),
        "4-3": distance(p4, p3),
        "4-1": distance(p4, p1),
        "3-2": distance(p3, p2),
    };
    return {
        points,
        middle: mean(points),
        sides,
        diagonals: { "1-3": distance(p1, p3), "2-4": distance(p2, p4) },
        lengthX: (sides["1-2"] + sides["4-3"]) / 2,
        lengthY: (sides["4-1"] + sides["3-2"]) / 2,
        angles: points.map((_, i) => cornerAngle(points, i) - 90) as four<number>,
        fitted: fit(points),
    };
}

function cornerAngle(points: four<point>, at: number): number {
    const before = minus(points[(at + 3) % 4]!, points[at]!);
    const behind = minus(points[(at + 1) % 4]!, points[at]!);
    return angleBetween(before, behind);
}

function fit(points: four<point>): corners["fitted"] {
    const plane = fitPlane(points);
    if (plane === undefined) return undefined;
    const deviations = points.map((each) => deviation(plane, each)) as four<number>;
    return { plane, deviations, fromRectangle: distancesFromRectangle(points, plane) };
}
