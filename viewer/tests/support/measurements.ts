// Measurements made for the tests, from points and frames.
import { type measurement, measurementOf } from "../../src/numbers/measurement";
import type { point } from "../../src/numbers/vector";
import type { four, measuringFile } from "../../src/reading/measuringFile";
import type { frame, resultDocument } from "../../src/reading/resultDocument";

export function at(x: number, y: number, z: number): point {
    return { x, y, z };
}

export const unitFrame: frame = { o: at(0, 0, 0), x: at(1, 0, 0), y: at(0, 1, 0), z: at(0, 0, 1) };

export function measuringOf(cylinders: point[], platform = "P"): measuringFile {
    return {
        kind: "measuring",
        fileName: "m.xml",
        platform,
        measuredAt: undefined,
        cylinders: cylinders as four<point>,
        notices: [],
    };
}

export function resultWith(cs: frame, ncs: frame): resultDocument {
    return {
        kind: "result",
        fileName: "r.xml",
        type: "confirm",
        title: "",
        message: "",
        frames: { cs, ncs },
        notices: [],
    };
}

export function measured(
    cylinders: point[] | undefined,
    cs?: frame,
    ncs: frame = unitFrame,
): measurement {
    return measurementOf(
        cylinders === undefined ? undefined : measuringOf(cylinders),
        cs === undefined ? undefined : resultWith(cs, ncs),
    );
}
