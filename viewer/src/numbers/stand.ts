// How a platform stands, from the coordinate system of its result document. Nothing here makes a
// coordinate system: angles and differences of what the document says, and no more.
import type { frame } from "../reading/resultDocument";
import type { corners } from "./corners";
import { degrees, type point } from "./vector";

export interface stand {
    origin: point;
    // In degrees, by the right-hand rule: positive about X lifts the +Y side, positive about Y
    // lowers the +X side.
    tiltX: number;
    tiltY: number;
    rotationZ: number;
    pointsDown: boolean; // so do cylinders numbered the other way round
}

export function standOf(cs: frame): stand {
    return {
        origin: cs.o,
        tiltX: degrees(Math.asin(limited(cs.y.z))),
        tiltY: -degrees(Math.asin(limited(cs.x.z))),
        rotationZ: degrees(Math.atan2(cs.x.y, cs.x.x)),
        pointsDown: cs.z.z < 0,
    };
}

// Rounding to 8 decimals may leave a little more than 1.
function limited(sine: number): number {
    return Math.min(1, Math.max(-1, sine));
}

// The same tilts as heights over the platform's sides, in mm.
export interface rise {
    x: number;
    y: number;
}

export function riseOf(cs: frame, measured: corners): rise {
    return { x: cs.y.z * measured.lengthY, y: -cs.x.z * measured.lengthX };
}

// What -zoffset: has added to the mean height of the cylinders.
export function heightOffset(cs: frame, measured: corners): number {
    return cs.o.z - measured.middle.z;
}

// The tool puts the origin over the middle of the cylinders. In mm, how far off that is: more than
// rounding says that result and measuring file are not of one measurement.
export function offMiddle(cs: frame, measured: corners): number {
    return Math.hypot(cs.o.x - measured.middle.x, cs.o.y - measured.middle.y);
}
