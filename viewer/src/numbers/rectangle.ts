// The rectangle in the fitted plane with the least sum of squared distances to the four corners,
// each to its own, and those distances.
import type { four } from "../reading/measuringFile";
import { directionsIn, type plane, projected } from "./plane";
import { cross, distance, dot, minus, plus, type point, times } from "./vector";

// Corners in the order of the cylinders: on the side of +X or -X, and of +Y or -Y.
const alongX = [-1, 1, 1, -1] as const;
const alongY = [1, 1, -1, -1] as const;

// In the plane: a distance from it is told by the deviations.
export function distancesFromRectangle(points: four<point>, fitted: plane): four<number> {
    const corners = points.map((each) => projected(fitted, each));
    const best = nearestRectangle(corners, fitted);
    return corners.map((each, i) => distance(each, best[i]!)) as four<number>;
}

// With A and B, the means of the half sides along X and Y, the corners c -+ a u +- b v with u and v
// at right angles are nearest for a = A u and b = B v, where (A u)^2 + (B v)^2 is greatest. The
// latter is (A u)^2 + (B' u)^2 with B' = B turned by a right angle, so u comes from half an angle.
export function nearestRectangle(corners: readonly point[], fitted: plane): point[] {
    const half = (signs: readonly number[]): point =>
        corners.reduce(
            (sum, each, i) => plus(sum, times(minus(each, fitted.centre), signs[i]! / 4)),
            origin,
        );
    const a = half(alongX);
    const b = half(alongY);
    const turned = cross(b, fitted.normal);
    const [e, f] = directionsIn(fitted);
    const [ae, af, te, tf] = [dot(a, e), dot(a, f), dot(turned, e), dot(turned, f)];
    const angle = 0.5 * Math.atan2(2 * (ae * af + te * tf), ae * ae + te * te - af * af - tf * tf);
    const u = plus(times(e, Math.cos(angle)), times(f, Math.sin(angle)));
    const v = cross(fitted.normal, u);
    const alongU = times(u, dot(a, u));
    const alongV = times(v, dot(b, v));
    return corners.map((_, i) =>
        plus(fitted.centre, plus(times(alongU, alongX[i]!), times(alongV, alongY[i]!))),
    );
}

const origin = { x: 0, y: 0, z: 0 };
