// What is drawn of one or two measurements, as shapes in mm around the middle of the platform, with
// the heights exaggerated. It knows no renderer: the view on the screen and the SVG draw the same.
import type { measurement } from "../numbers/measurement";
import { projected } from "../numbers/plane";
import { length, minus, normalized, plus, type point, times } from "../numbers/vector";
import type { frame } from "../reading/resultDocument";

export type set = "first" | "second";
export type role = set | "machine" | "level" | "axisX" | "axisY" | "axisZ";

export interface drawnCylinder {
    set: set;
    index: number; // 0 to 3
    top: point; // the measured point
    foot: point;
    radius: number;
}
export interface drawnPlane {
    set: set;
    corners: point[];
}
export interface drawnLine {
    role: role;
    points: point[];
}
export interface drawnArrow {
    role: role;
    set: set | "machine";
    from: point;
    to: point;
}
export interface drawnLabel {
    role: role;
    text: string;
    at: point;
}
export interface drawing {
    size: number; // extent of the platform in plan
    cylinders: drawnCylinder[];
    planes: drawnPlane[];
    lines: drawnLine[];
    arrows: drawnArrow[];
    labels: drawnLabel[];
    // How far the machine's origin is, where that is too far to draw: its axes then stand beside.
    machineAway: number | undefined;
    // Width of a plane whose extent no measuring file tells.
    assumedSize: number | undefined;
}

// In mm, of a platform that only a result tells of.
const assumedSize = 200;

interface situation {
    first: measurement;
    second: measurement | undefined;
    middle: point;
    size: number;
    factor: number;
}

export function drawingOf(
    first: measurement,
    second: measurement | undefined,
    factor: number,
): drawing {
    const about: situation = {
        first,
        second,
        middle: middleOf(first, second),
        size: sizeOf(first, second),
        factor,
    };
    const made: drawing = {
        size: about.size,
        cylinders: [],
        planes: [],
        lines: [],
        arrows: [],
        labels: [],
        machineAway: undefined,
        assumedSize: undefined,
    };
    addPlatform(made, about, first, "first");
    if (second !== undefined) addPlatform(made, about, second, "second");
    addLevel(made);
    addMachine(made, about);
    return made;
}

// The greatest of 1, 2, 5, 10 to 1000 by which heights stay within a seventh of the extent.
export function fittingFactor(first: measurement, second: measurement | undefined): number {
    const middle = middleOf(first, second);
    const heights = [first, second].flatMap((each) => heightsOf(each, middle.z));
    const range = Math.max(...heights) - Math.min(...heights);
    const steps = [1000, 500, 200, 100, 50, 20, 10, 5, 2];
    const limit = sizeOf(first, second) / 7;
    return (range > 0 ? steps.find((step) => step * range <= limit) : undefined) ?? 1;
}

function heightsOf(of: measurement | undefined, middle: number): number[] {
    if (of?.corners !== undefined) return of.corners.points.map((each) => each.z - middle);
    if (of?.frames === undefined) return [0];
    const { o, x, y } = of.frames.cs;
    const lift = ((Math.abs(x.z) + Math.abs(y.z)) * assumedSize) / 2;
    return [o.z - middle - lift, o.z - middle + lift];
}

function middleOf(first: measurement, second: measurement | undefined): point {
    const corners = first.corners ?? second?.corners;
    return corners?.middle ?? first.frames?.cs.o ?? second?.frames?.cs.o ?? { x: 0, y: 0, z: 0 };
}

function sizeOf(first: measurement, second: measurement | undefined): number {
    const points = [first, second].flatMap((each) => each?.corners?.points ?? []);
    const extent = (values: number[]): number => Math.max(...values) - Math.min(...values);
    const size =
        points.length === 0
            ? 0
            : Math.max(extent(points.map(({ x }) => x)), extent(points.map(({ y }) => y)));
    return size > 0 ? size : assumedSize;
}

// Heights are drawn from the mean height of the first measurement.
function placed({ middle, factor }: situation, at: point): point {
    const { x, y, z } = minus(at, middle);
    return { x, y, z: z * factor };
}

function addPlatform(to: drawing, about: situation, of: measurement, set: set): void {
    if (of.corners !== undefined) addCylinders(to, about, of.corners.points, set);
    const plane = planeCorners(about, of);
    if (plane !== undefined)
        to.planes.push({ set, corners: plane.map((each) => placed(about, each)) });
    if (of.corners === undefined && of.frames !== undefined) to.assumedSize = about.size;
    if (of.frames !== undefined) addAxes(to, about, of.frames.cs, set);
}

function addCylinders(to: drawing, about: situation, points: point[], set: set): void {
    points.forEach((each, index) => {
        const top = placed(about, each);
        const foot = { ...top, z: top.z - 0.07 * about.size };
        const radius = (set === "first" ? 0.022 : 0.016) * about.size;
        to.cylinders.push({ set, index, top, foot, radius });
    });
}

// The plane fitted to the cylinders, or that of `cs` where no cylinders are known.
function planeCorners(about: situation, { corners, frames }: measurement): point[] | undefined {
    if (corners !== undefined) {
        const { fitted } = corners;
        return fitted === undefined
            ? undefined
            : corners.points.map((each) => projected(fitted.plane, each));
    }
    if (frames === undefined) return undefined;
    const { o, x, y } = frames.cs;
    const half = about.size / 2;
    const signs: [number, number][] = [
        [-half, half],
        [half, half],
        [half, -half],
        [-half, -half],
    ];
    return signs.map(([alongX, alongY]) => plus(o, plus(times(x, alongX), times(y, alongY))));
}

// X and Y as directions in the exaggerated plane, Z at right angles to it, all of one length.
function addAxes(to: drawing, about: situation, { o, x, y, z }: frame, set: set): void {
    const { factor, size } = about;
    const from = placed(about, o);
    const directions: [string, role, point][] = [
        ["X", "axisX", { ...x, z: x.z * factor }],
        ["Y", "axisY", { ...y, z: y.z * factor }],
        ["Z", "axisZ", { x: z.x * factor, y: z.y * factor, z: z.z }],
    ];
    for (const [name, role, direction] of directions) {
        addArrow(
            to,
            role,
            set,
            from,
            times(normalized(direction), 0.3 * size),
            name + (set === "first" ? "" : "′"),
        );
    }
}

function addArrow(
    to: drawing,
    role: role,
    set: drawnArrow["set"],
    from: point,
    way: point,
    text: string,
): void {
    to.arrows.push({ role, set, from, to: plus(from, way) });
    to.labels.push({ role, text, at: plus(from, times(way, 1.1)) });
}

// The machine's axes stand where `ncs` puts them, seen from the platform.
function addMachine(to: drawing, about: situation): void {
    const frames = about.first.frames ?? about.second?.frames;
    if (frames === undefined) return;
    const { cs, ncs } = frames;
    const direction = (of: point): point =>
        plus(times(cs.x, of.x), plus(times(cs.y, of.y), times(cs.z, of.z)));
    const origin = minus(plus(cs.o, direction(ncs.o)), about.middle);
    const far = length(origin) > 2.5 * about.size;
    if (far) to.machineAway = length(origin);
    const from = far ? { x: -0.75 * about.size, y: -0.75 * about.size, z: 0 } : origin;
    const axes: [string, point][] = [
        ["x", ncs.x],
        ["y", ncs.y],
        ["z", ncs.z],
    ];
    for (const [name, axis] of axes) {
        addArrow(
            to,
            "machine",
            "machine",
            from,
            times(normalized(direction(axis)), 0.22 * about.size),
            name,
        );
    }
}

// A horizontal frame at the mean height, against which a tilt shows, with a line down or up to it
// from every cylinder.
function addLevel(to: drawing): void {
    const around =
        to.cylinders.length > 0
            ? to.cylinders.map(({ top }) => top)
            : to.planes.flatMap(({ corners }) => corners);
    if (around.length === 0) return;
    const [xs, ys] = [around.map(({ x }) => x), around.map(({ y }) => y)];
    const margin = 0.06 * to.size;
    const [left, right] = [Math.min(...xs) - margin, Math.max(...xs) + margin];
    const [front, back] = [Math.min(...ys) - margin, Math.max(...ys) + margin];
    const points = [
        { x: left, y: back, z: 0 },
        { x: right, y: back, z: 0 },
        { x: right, y: front, z: 0 },
        { x: left, y: front, z: 0 },
        { x: left, y: back, z: 0 },
    ];
    to.lines.push({ role: "level", points });
    for (const each of around) to.lines.push({ role: "level", points: [each, { ...each, z: 0 }] });
}

// All points that a view should hold.
export function pointsOf(drawn: drawing): point[] {
    return [
        ...drawn.cylinders.flatMap(({ top, foot }) => [top, foot]),
        ...drawn.planes.flatMap(({ corners }) => corners),
        ...drawn.lines.flatMap(({ points }) => points),
        ...drawn.arrows.flatMap(({ from, to }) => [from, to]),
        ...drawn.labels.map(({ at }) => at),
    ];
}
