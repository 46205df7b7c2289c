// What is drawn: where the points stand under an exaggeration, and whose axes are shown.
import assert from "node:assert/strict";
import { test } from "node:test";
import { cross, dot, length, minus, normalized, type point } from "../../src/numbers/vector";
import { drawingOf, fittingFactor, pointsOf } from "../../src/scene/drawing";
import { lightPalette, darkPalette, type palette } from "../../src/scene/palette";
import { svgOf } from "../../src/scene/svg";
import { parseText } from "../../src/reading/xml";
import type { frame } from "../../src/reading/resultDocument";
import { at, measured, unitFrame } from "../support/measurements";

const points = [at(0, 20, 5), at(40, 20, 5.5), at(40, 0, 5), at(0, 0, 4.5)];
const cs: frame = { o: at(20, 10, 6), x: at(0.8, 0, 0.6), y: at(0, 1, 0), z: at(-0.6, 0, 0.8) };
// The inverse of it: rows and columns exchanged, the origin turned back.
const ncs: frame = {
    o: at(-19.6, -10, 7.2),
    x: at(0.8, 0, -0.6),
    y: at(0, 1, 0),
    z: at(0.6, 0, 0.8),
};

function close(got: point, expected: point): void {
    assert.ok(
        length(minus(got, expected)) < 1e-9,
        `${JSON.stringify(got)} is not ${JSON.stringify(expected)}`,
    );
}

test("heights count from the mean height and are exaggerated, plan is not", () => {
    for (const factor of [1, 10, 1000]) {
        const { cylinders } = drawingOf(measured(points), undefined, factor);
        close(cylinders[0]!.top, at(-20, 10, 0));
        close(cylinders[1]!.top, at(20, 10, 0.5 * factor));
        close(cylinders[3]!.top, at(-20, -10, -0.5 * factor));
    }
});

test("the plane is that of the points, exaggerated like them", () => {
    const { planes } = drawingOf(measured(points), undefined, 10);
    planes[0]!.corners.forEach((each, i) =>
        close(each, at([-20, 20, 20, -20][i]!, [10, 10, -10, -10][i]!, [0, 5, 0, -5][i]!)),
    );
});

test("without a result there are no axes", () => {
    const drawn = drawingOf(measured(points), undefined, 1);
    assert.deepEqual([drawn.arrows, drawn.labels], [[], []]);
});

test("the platform's axes are those of cs, whatever the points say", () => {
    const { arrows } = drawingOf(measured(points, cs, ncs), undefined, 1);
    const platform = arrows.filter(({ set }) => set === "first");
    [cs.x, cs.y, cs.z].forEach((axis, i) => {
        close(platform[i]!.from, at(0, 0, 1));
        close(normalized(minus(platform[i]!.to, platform[i]!.from)), axis);
    });
});

test("the machine's axes stand where ncs puts them", () => {
    const { arrows } = drawingOf(measured(points, cs, ncs), undefined, 1);
    const machine = arrows.filter(({ set }) => set === "machine");
    [at(1, 0, 0), at(0, 1, 0), at(0, 0, 1)].forEach((axis, i) => {
        close(machine[i]!.from, at(-20, -10, -5));
        close(normalized(minus(machine[i]!.to, machine[i]!.from)), axis);
    });
});

test("exaggerated axes lie in the exaggerated plane and at right angles to it", () => {
    const { arrows } = drawingOf(measured(points, cs, ncs), undefined, 7);
    const [x, y, z] = arrows
        .filter(({ set }) => set === "first")
        .map(({ from, to }) => normalized(minus(to, from)));
    close(x!, normalized(at(0.8, 0, 4.2)));
    close(z!, normalized(cross(x!, y!)));
    assert.ok(Math.abs(dot(x!, z!)) < 1e-12);
});

test("a machine's origin far away is not drawn, but told", () => {
    const away: frame = { ...unitFrame, o: at(5000, 0, 0) };
    const drawn = drawingOf(
        measured(undefined, away, { ...unitFrame, o: at(-5000, 0, 0) }),
        undefined,
        1,
    );
    assert.equal(drawn.machineAway, 5000);
    assert.ok(pointsOf(drawn).every((each) => length(each) < 500));
});

test("a plane of which only a result tells has an assumed size, which is told", () => {
    const drawn = drawingOf(measured(undefined, unitFrame), undefined, 1);
    assert.equal(drawn.assumedSize, 200);
    close(drawn.planes[0]!.corners[1]!, at(100, 100, 0));
    assert.equal(drawn.cylinders.length, 0);
});

test("a second measurement lies over the first, from the same height", () => {
    const raised = points.map((each) => ({ ...each, z: each.z + 2 }));
    const { cylinders, planes } = drawingOf(measured(points), measured(raised), 10);
    assert.deepEqual(cylinders.map(({ set, index }) => `${set} ${index}`).slice(3, 6), [
        "first 3",
        "second 0",
        "second 1",
    ]);
    close(cylinders[4]!.top, at(-20, 10, 20));
    assert.deepEqual(
        planes.map(({ set }) => set),
        ["first", "second"],
    );
});

test("the first exaggeration is a round one that keeps heights within a seventh of the extent", () => {
    const rows: [range: number, factor: number][] = [
        [100, 1],
        [10, 1],
        [1.4, 2],
        [1, 5],
        [0.5, 10],
        [0.05, 100],
        [0.0057, 1000],
        [0.00001, 1000],
        [0, 1],
    ];
    for (const [range, factor] of rows) {
        const tilted = points.map((each, i) => ({ ...each, z: i === 1 ? range : 0 }));
        assert.equal(fittingFactor(measured(tilted), undefined), factor, String(range));
    }
});

test("the SVG is well-formed and holds cylinders, axes, captions and what is exaggerated", () => {
    const drawn = drawingOf(measured(points, cs, ncs), measured(points, cs, ncs), 10);
    const project = (of: point): { x: number; y: number; depth: number } => ({
        x: 0.5 + of.x / 100,
        y: 0.5 - of.y / 100,
        depth: -of.z,
    });
    const svg = svgOf({
        drawing: drawn,
        palette: lightPalette,
        project,
        width: 400,
        height: 300,
        caption: ["Platform <&>"],
        note: "10×",
    });
    const parsing = parseText(svg);
    let next = parsing.next();
    while (next.done !== true) next = parsing.next();
    const root = next.value;
    const texts = root.children.filter(({ name }) => name === "text").map(({ text }) => text);
    assert.equal(root.name, "svg");
    for (const text of [
        "1",
        "2",
        "3",
        "4",
        "1′",
        "4′",
        "X",
        "Y",
        "Z",
        "X′",
        "x",
        "y",
        "z",
        "Platform <&>",
        "10×",
    ]) {
        assert.ok(texts.includes(text), text);
    }
    // Seen from above, cylinder 1 is at the left and up by 10 of 100 mm.
    assert.match(svg, /<polygon points="[^"]*"[^>]*fill="#1f5f99"/);
    assert.doesNotMatch(svg, /NaN|undefined/);
});

// By the usual formula for relative luminance.
function contrast(one: string, other: string): number {
    const luminance = (colour: string): number => {
        const [r, g, b] = [1, 3, 5]
            .map((at) => parseInt(colour.slice(at, at + 2), 16) / 255)
            .map((value) => (value <= 0.03928 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4));
        return 0.2126 * r! + 0.7152 * g! + 0.0722 * b!;
    };
    const [light, dark] = [luminance(one), luminance(other)].sort((a, b) => b - a);
    return (light! + 0.05) / (dark! + 0.05);
}

test("every colour of a drawing stands out from its background by three to one", () => {
    for (const colours of [lightPalette, darkPalette]) {
        for (const [role, colour] of Object.entries(colours) as [keyof palette, string][]) {
            if (role !== "background")
                assert.ok(contrast(colour, colours.background) >= 3, `${role} ${colour}`);
        }
    }
});
