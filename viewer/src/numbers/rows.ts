// All numbers as one list, for tables and for export: each with its unit, and for two measurements
// both values and their difference, second less first.
import type { textKey } from "../texts/english";
import type { corners } from "./corners";
import type { measurement } from "./measurement";
import { angleBetween, length, minus, type point } from "./vector";

export type unit = "mm" | "°" | "";

export type group = "position" | "cylinders" | "sides" | "frames";

export interface row {
    group: group;
    label: textKey;
    detail?: string; // behind the label: a cylinder, an axis
    values?: Record<string, number>; // numbers inside the label, in mm
    unit: unit;
    decimals: number;
    signed: boolean;
    first: number | undefined;
    second: number | undefined;
    difference: number | undefined;
}

type asked = Omit<row, "first" | "second" | "difference"> & {
    of: (from: measurement) => number | undefined;
    // What stands as difference instead of second less first, where there is none.
    between?: (first: measurement, second: measurement) => number | undefined;
};

const axes = ["x", "y", "z"] as const;
const lengthDecimals = 4;
const angleDecimals = 4;
const axisDecimals = 8; // as in the result document

export function rowsOf(first: measurement, second: measurement | undefined): row[] {
    return [...position(first.corners ?? second?.corners), ...cylinders(), ...sides(), ...frames()]
        .map((each) => answered(each, first, second))
        .filter((each) =>
            [each.first, each.second, each.difference].some((value) => value !== undefined),
        );
}

function answered(
    { of, between, ...rest }: asked,
    first: measurement,
    second: measurement | undefined,
): row {
    const [a, b] = [of(first), second === undefined ? undefined : of(second)];
    const plain = a === undefined || b === undefined ? undefined : turnless(b - a, rest.label);
    const difference =
        between !== undefined && second !== undefined ? between(first, second) : plain;
    return { ...rest, first: a, second: b, difference };
}

// From 179 to -179 degrees a platform has turned by 2.
function turnless(difference: number, label: textKey): number {
    if (label !== "rotationZ") return difference;
    return difference > 180 ? difference - 360 : difference <= -180 ? difference + 360 : difference;
}

function position(measured: corners | undefined): asked[] {
    const inMm = (label: textKey, of: asked["of"], detail?: string): asked => ({
        group: "position",
        label,
        ...(detail === undefined ? {} : { detail }),
        unit: "mm",
        decimals: lengthDecimals,
        signed: true,
        of,
    });
    const inDegrees = (label: textKey, of: asked["of"]): asked => ({
        ...inMm(label, of),
        unit: "°",
        decimals: angleDecimals,
    });
    const over = (label: textKey, size: number | undefined, of: asked["of"]): asked => ({
        ...inMm(label, of),
        values: { length: size ?? 0 },
    });
    return [
        inDegrees("tiltX", (from) => from.stand?.tiltX),
        over("riseX", measured?.lengthY, (from) => from.rise?.x),
        inDegrees("tiltY", (from) => from.stand?.tiltY),
        over("riseY", measured?.lengthX, (from) => from.rise?.y),
        inDegrees("rotationZ", (from) => from.stand?.rotationZ),
        ...axes.map((axis) =>
            inMm("origin", (from) => from.stand?.origin[axis], axis.toUpperCase()),
        ),
        inMm("heightOffset", (from) => from.heightOffset),
        { ...inDegrees("normalsApart", unasked), signed: false, between: normalsApart },
        { ...inMm("originsApart", unasked), signed: false, between: originsApart },
    ];
}

function unasked(): undefined {
    return undefined;
}

function normalsApart(first: measurement, second: measurement): number | undefined {
    if (first.frames === undefined || second.frames === undefined) return undefined;
    return angleBetween(first.frames.cs.z, second.frames.cs.z);
}

function originsApart(first: measurement, second: measurement): number | undefined {
    if (first.frames === undefined || second.frames === undefined) return undefined;
    return length(minus(second.frames.cs.o, first.frames.cs.o));
}

function cylinders(): asked[] {
    const each = (i: number): asked[] => {
        const detail = String(i + 1);
        const common = {
            group: "cylinders" as const,
            detail,
            unit: "mm" as const,
            decimals: lengthDecimals,
            signed: true,
        };
        return [
            ...axes.map(
                (axis): asked => ({
                    ...common,
                    label: `cylinder${axis.toUpperCase() as "X" | "Y" | "Z"}`,
                    signed: false,
                    of: (from) => from.corners?.points[i]![axis],
                }),
            ),
            { ...common, label: "deviation", of: (from) => from.corners?.fitted?.deviations[i] },
            {
                ...common,
                label: "fromRectangle",
                signed: false,
                of: (from) => from.corners?.fitted?.fromRectangle[i],
            },
            {
                ...common,
                label: "cornerAngle",
                unit: "°",
                decimals: angleDecimals,
                of: (from) =>
                    from.corners?.fitted === undefined ? undefined : from.corners.angles[i],
            },
        ];
    };
    return [0, 1, 2, 3].flatMap(each);
}

function sides(): asked[] {
    const common = {
        group: "sides" as const,
        unit: "mm" as const,
        decimals: lengthDecimals,
        signed: false,
    };
    const names = ["1-2", "4-3", "4-1", "3-2"] as const;
    const diagonals = ["1-3", "2-4"] as const;
    return [
        ...names.map(
            (name): asked => ({
                ...common,
                label: "side",
                detail: shownName(name),
                of: (from) => from.corners?.sides[name],
            }),
        ),
        ...diagonals.map(
            (name): asked => ({
                ...common,
                label: "diagonal",
                detail: shownName(name),
                of: (from) => from.corners?.diagonals[name],
            }),
        ),
        {
            ...common,
            label: "diagonalDifference",
            signed: true,
            of: ({ corners }) =>
                corners === undefined
                    ? undefined
                    : corners.diagonals["1-3"] - corners.diagonals["2-4"],
        },
    ];
}

function shownName(name: string): string {
    return name.replace("-", "–");
}

function frames(): asked[] {
    const one = (name: "cs" | "ncs", part: "o" | "x" | "y" | "z", axis: keyof point): asked => ({
        group: "frames",
        label: name,
        detail: `${part}.${axis}`,
        unit: part === "o" ? "mm" : "",
        decimals: axisDecimals,
        signed: false,
        of: (from) => from.frames?.[name][part][axis],
    });
    const parts = ["o", "x", "y", "z"] as const;
    return (["cs", "ncs"] as const).flatMap((name) =>
        parts.flatMap((part) => axes.map((axis) => one(name, part, axis))),
    );
}
