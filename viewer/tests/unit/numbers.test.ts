// Every number against a value that was worked out another way: by hand for figures of round
// numbers; for the example P400 with 50 decimals, the plane by inverse iteration on its equations
// and the rectangle by trying angles.
import assert from "node:assert/strict";
import { test } from "node:test";
import { cornersOf } from "../../src/numbers/corners";
import { fitPlane } from "../../src/numbers/plane";
import { type row, rowsOf } from "../../src/numbers/rows";
import { heightOffset, offMiddle, riseOf, standOf } from "../../src/numbers/stand";
import { minus, plus, type point, times } from "../../src/numbers/vector";
import type { four } from "../../src/reading/measuringFile";
import type { frame } from "../../src/reading/resultDocument";
import { at, measured, unitFrame } from "../support/measurements";

function near(value: number | undefined, expected: number, tolerance: number, what = ""): void {
    assert.ok(
        value !== undefined && Math.abs(value - expected) <= tolerance,
        `${what} ${value} is not ${expected}`,
    );
}

const p400: four<point> = [
    at(12.5182, 318.4466, 151.2037),
    at(412.4969, 319.3193, 151.5312),
    at(413.1514, 19.3204, 151.3094),
    at(13.1727, 18.4473, 150.9771),
];
const p20: four<point> = [at(1, 11, 2), at(21, 11, 3), at(21, 1, 2), at(1, 1, 1)];

// The tool's result for P20.
const cs20: frame = {
    o: at(11, 6, 2.25),
    x: at(0.99875234, 0, 0.04993762),
    y: at(-0.00496284, 0.99504947, 0.09925681),
    z: at(-0.0496904, -0.0993808, 0.99380799),
};

// A rectangle of 20 by 10 about a middle, in a plane that falls by 3 in 4, with every second corner
// `twist` above that plane and the others below.
const u = at(0.8, 0, 0.6);
const v = at(0, 1, 0);
const n = at(-0.6, 0, 0.8);
function twisted(twist: number, middle = at(100, 200, 300)): four<point> {
    const corner = (a: number, b: number, up: number): point =>
        plus(plus(middle, times(u, a)), plus(times(v, b), times(n, up)));
    return [
        corner(-10, 5, twist),
        corner(10, 5, -twist),
        corner(10, -5, twist),
        corner(-10, -5, -twist),
    ];
}

test("deviations of a twisted rectangle are the twist, upwards positive", () => {
    const { fitted } = cornersOf(twisted(0.25));
    [0.25, -0.25, 0.25, -0.25].forEach((expected, i) =>
        near(fitted!.deviations[i], expected, 1e-12),
    );
    near(fitted!.plane.normal.x, -0.6, 1e-12);
    near(fitted!.plane.normal.z, 0.8, 1e-12);
});

test("points in one plane deviate by nothing, also where it is upright", () => {
    for (const points of [
        p20,
        [at(0, 0, 10), at(0, 20, 10), at(0, 20, 0), at(0, 0, 0)] as four<point>,
    ]) {
        for (const each of cornersOf(points).fitted!.deviations) near(each, 0, 1e-12);
    }
});

test("the deviations of P400", () => {
    const expected = [0.001199923544, -0.001199925158, 0.001199925144, -0.001199923529];
    cornersOf(p400).fitted!.deviations.forEach((each, i) => near(each, expected[i]!, 1e-11));
});

test("the unit of length does not matter for the plane", () => {
    const far = twisted(0.25).map((each) => times(each, 1e-6)) as four<point>;
    cornersOf(far).fitted!.deviations.forEach((each, i) =>
        near(each, (i % 2 === 0 ? 1 : -1) * 0.25e-6, 1e-17),
    );
});

test("points on one line or in one place have no plane", () => {
    assert.equal(fitPlane([0, 1, 2, 3].map((i) => at(i, 2 * i, -i))), undefined);
    assert.equal(fitPlane([1, 1, 1, 1].map(() => at(5, 6, 7))), undefined);
    assert.equal(cornersOf([at(0, 0, 0), at(1, 0, 0), at(2, 0, 0), at(3, 0, 0)]).fitted, undefined);
});

test("sides, their means, diagonals", () => {
    const twist = 0.25;
    const got = cornersOf(twisted(twist));
    const [x, y] = [Math.hypot(20, 2 * twist), Math.hypot(10, 2 * twist)];
    near(got.sides["1-2"], x, 1e-12);
    near(got.sides["4-3"], x, 1e-12);
    near(got.sides["4-1"], y, 1e-12);
    near(got.sides["3-2"], y, 1e-12);
    near(got.lengthX, x, 1e-12);
    near(got.lengthY, y, 1e-12);
    near(got.diagonals["1-3"], Math.sqrt(500), 1e-12);
    near(got.diagonals["2-4"], Math.sqrt(500), 1e-12);
});

test("the sides and diagonals of P400", () => {
    const got = cornersOf(p400);
    near(got.sides["1-2"], 399.979786133287, 1e-11);
    near(got.sides["4-3"], 399.979790965231, 1e-11);
    near(got.sides["4-1"], 300.000099530483, 1e-11);
    near(got.sides["3-2"], 299.999695944346, 1e-11);
    near(got.diagonals["1-3"], 499.983455367445, 1e-11);
    near(got.diagonals["2-4"], 499.984083863127, 1e-11);
});

test("the corners of a rectangle are at no distance from one, wherever it stands", () => {
    const got = cornersOf(twisted(0));
    for (const each of got.fitted!.fromRectangle) near(each, 0, 1e-12);
    for (const each of got.angles) near(each, 0, 1e-12);
});

test("a square of half side L with axes off by an angle has corners L sqrt(2) sin(angle / 2) off", () => {
    const [half, skew] = [10, 0.01];
    const [a, b] = [at(half, 0, 0), times(at(-Math.sin(skew), Math.cos(skew), 0), half)];
    const points: four<point> = [minus(b, a), plus(a, b), minus(a, b), times(plus(a, b), -1)];
    const got = cornersOf(points);
    for (const each of got.fitted!.fromRectangle)
        near(each, half * Math.SQRT2 * Math.sin(skew / 2), 1e-12);
    const degrees = (skew * 180) / Math.PI;
    [-degrees, degrees, -degrees, degrees].forEach((expected, i) =>
        near(got.angles[i], expected, 1e-10),
    );
    // The diagonals of a rhombus: twice the side times the sines of half its angles.
    near(got.diagonals["1-3"], 40 * Math.sin(Math.PI / 4 + skew / 2), 1e-10);
    near(got.diagonals["2-4"], 40 * Math.cos(Math.PI / 4 + skew / 2), 1e-10);
});

test("the numbering the other way round does not change the distances", () => {
    const [a, b, c, d] = p400;
    const mirrored = [d, c, b, a] as four<point>;
    const expected = cornersOf(p400).fitted!.fromRectangle;
    const got = cornersOf(mirrored).fitted!.fromRectangle;
    [3, 2, 1, 0].forEach((from, i) => near(got[i], expected[from]!, 1e-12));
});

test("the distances from the rectangle and the angles of P400", () => {
    const got = cornersOf(p400);
    const distances = [0.00012707825, 0.00012466572, 0.00023149538, 0.0002328034575];
    distances.forEach((expected, i) => near(got.fitted!.fromRectangle[i], expected, 1e-9));
    const angles = [4.65749547e-5, -4.56577219e-5, 1.034645981e-4, -1.043928308e-4];
    angles.forEach((expected, i) => near(got.angles[i], expected, 1e-11));
});

test("a level frame has no tilt and no rotation", () => {
    const { tiltX, tiltY, rotationZ, pointsDown } = standOf(unitFrame);
    assert.deepEqual([tiltX + 0, tiltY + 0, rotationZ, pointsDown], [0, 0, 0, false]);
});

test("tilts follow the right-hand rule about each axis", () => {
    const [c, s] = [Math.cos(0.1), Math.sin(0.1)];
    const degrees = (0.1 * 180) / Math.PI;
    const aboutX: frame = { ...unitFrame, y: at(0, c, s), z: at(0, -s, c) };
    near(standOf(aboutX).tiltX, degrees, 1e-12);
    near(standOf(aboutX).tiltY, 0, 1e-12);
    const aboutY: frame = { ...unitFrame, x: at(c, 0, -s), z: at(s, 0, c) };
    near(standOf(aboutY).tiltY, degrees, 1e-12);
    near(standOf(aboutY).tiltX, 0, 1e-12);
    const aboutZ: frame = { ...unitFrame, x: at(c, s, 0), y: at(-s, c, 0) };
    near(standOf(aboutZ).rotationZ, degrees, 1e-12);
    near(standOf({ ...unitFrame, x: at(-1, 0, 0), y: at(0, -1, 0) }).rotationZ, 180, 1e-12);
});

test("P20 rises by 1 in 20 along X: arctan of a twentieth, 1 mm over the side", () => {
    const stand = standOf(cs20);
    near(stand.tiltY, -(Math.atan(1 / 20) * 180) / Math.PI, 1e-6);
    // Z is (-0.05, -0.1, 1) and X (1, 0, 0.05), both by their lengths: Y = Z x X rises by this sine.
    near(stand.tiltX, (Math.asin(0.1 / Math.sqrt(1.0125 * 1.0025)) * 180) / Math.PI, 1e-6);
    assert.equal(stand.rotationZ, 0);
    const rise = riseOf(cs20, cornersOf(p20));
    near(rise.y, -1, 1e-6);
    near(rise.x, 0.09925681 * Math.sqrt(101), 1e-12);
    assert.equal(heightOffset(cs20, cornersOf(p20)), 0.25);
    assert.equal(offMiddle(cs20, cornersOf(p20)), 0);
});

test("tilts and rotation of P400 from the axes of its result", () => {
    const cs: frame = {
        o: at(212.8348, 168.8834, 151.60535),
        x: at(0.99999728, 0.00218236, 0.00082479),
        y: at(-0.00218298, 0.99999734, 0.00074733),
        z: at(-0.00082316, -0.00074913, 0.99999938),
    };
    const stand = standOf(cs);
    near(stand.tiltX, 0.04281885888924976, 1e-12);
    near(stand.tiltY, -0.04725699134258242, 1e-12);
    near(stand.rotationZ, 0.12504015897772788, 1e-12);
    near(heightOffset(cs, cornersOf(p400)), 0.35, 1e-12);
});

test("a little more than 1 in an axis is an angle of 90 degrees", () => {
    near(standOf({ ...unitFrame, x: at(0, 0, 1.00000001) }).tiltY, -90, 1e-12);
});

test("what does not fit together or points down is a notice", () => {
    const keys = (of: { notices: { key: string }[] }): string[] => of.notices.map(({ key }) => key);
    assert.deepEqual(keys(measured(p20, cs20)), []);
    assert.deepEqual(keys(measured(p20, { ...cs20, o: at(11.002, 6, 2) })), ["otherMeasurement"]);
    assert.deepEqual(keys(measured(p20, { ...cs20, o: at(11.0005, 6, 99) })), []);
    assert.deepEqual(
        keys(measured(undefined, { ...unitFrame, y: at(0, -1, 0), z: at(0, 0, -1) })),
        ["pointsDown"],
    );
    assert.deepEqual(keys(measured([0, 1, 2, 3].map((i) => at(i, i, i)))), ["noPlane"]);
});

function labels(rows: row[]): string[] {
    return [...new Set(rows.map(({ label }) => label))];
}

const fromPoints = [
    "cylinderX",
    "cylinderY",
    "cylinderZ",
    "deviation",
    "fromRectangle",
    "cornerAngle",
    "side",
    "diagonal",
    "diagonalDifference",
];
const fromResult = ["tiltX", "tiltY", "rotationZ", "origin", "cs", "ncs"];

test("without a result nothing is listed that needs it, without a measuring file likewise", () => {
    assert.deepEqual(labels(rowsOf(measured(p20), undefined)), fromPoints);
    assert.deepEqual(labels(rowsOf(measured(undefined, cs20), undefined)), fromResult);
    const all = [...fromPoints, ...fromResult, "riseX", "riseY", "heightOffset"].sort();
    assert.deepEqual(labels(rowsOf(measured(p20, cs20), undefined)).sort(), all);
});

test("points on a line are listed without deviations and angles", () => {
    const rows = rowsOf(measured([0, 1, 2, 3].map((i) => at(i, 0, 0))), undefined);
    assert.deepEqual(labels(rows), [
        "cylinderX",
        "cylinderY",
        "cylinderZ",
        "side",
        "diagonal",
        "diagonalDifference",
    ]);
});

test("differences are second less first, and the shorter way round for a rotation", () => {
    const turned = (degrees: number): frame => {
        const [c, s] = [Math.cos((degrees * Math.PI) / 180), Math.sin((degrees * Math.PI) / 180)];
        return { o: at(0, 0, 0), x: at(c, s, 0), y: at(-s, c, 0), z: at(0, 0, 1) };
    };
    const find = (rows: row[], label: string, detail?: string): row =>
        rows.find((each) => each.label === label && each.detail === detail)!;
    const rows = rowsOf(measured(undefined, turned(179)), measured(undefined, turned(-179)));
    near(find(rows, "rotationZ").difference, 2, 1e-9);
    const back = rowsOf(measured(undefined, turned(-179)), measured(undefined, turned(179)));
    near(find(back, "rotationZ").difference, -2, 1e-9);

    const moved = p20.map((each) => plus(each, at(0.5, 0, -0.25)));
    const both = rowsOf(
        measured(p20, cs20),
        measured(moved, { ...cs20, o: plus(cs20.o, at(3, 0, 4)) }),
    );
    near(find(both, "cylinderX", "1").difference, 0.5, 1e-12);
    near(find(both, "cylinderZ", "4").difference, -0.25, 1e-12);
    near(find(both, "deviation", "2").difference, 0, 1e-12);
    near(find(both, "origin", "Z").difference, 4, 1e-12);
    near(find(both, "originsApart").difference, 5, 1e-12);
    assert.equal(find(both, "originsApart").first, undefined);
});

test("the angle between two Z axes is that of the tilt between them", () => {
    const [c, s] = [Math.cos(1e-6), Math.sin(1e-6)];
    const tilted: frame = { ...unitFrame, y: at(0, c, s), z: at(0, -s, c) };
    const rows = rowsOf(measured(undefined, unitFrame), measured(undefined, tilted));
    near(
        rows.find(({ label }) => label === "normalsApart")!.difference,
        (1e-6 * 180) / Math.PI,
        1e-15,
    );
});
