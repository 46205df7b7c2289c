// One measurement of a platform: the files that are there, and every number that follows.
import type { measuringFile } from "../reading/measuringFile";
import type { problem } from "../reading/problem";
import type { frame, resultDocument } from "../reading/resultDocument";
import { type corners, cornersOf } from "./corners";
import { heightOffset, offMiddle, type rise, riseOf, type stand, standOf } from "./stand";

export interface measurement {
    measuring: measuringFile | undefined;
    result: resultDocument | undefined;
    corners: corners | undefined;
    frames: { cs: frame; ncs: frame } | undefined;
    stand: stand | undefined;
    rise: rise | undefined; // with both files only, as the next
    heightOffset: number | undefined;
    notices: problem[];
}

// In mm; coordinates have 8 decimals in a result.
const middleTolerance = 1e-3;

export function measurementOf(
    measuring: measuringFile | undefined,
    result: resultDocument | undefined,
): measurement {
    const measured = measuring === undefined ? undefined : cornersOf(measuring.cylinders);
    const frames = result?.frames;
    const both = measured !== undefined && frames !== undefined;
    const made: measurement = {
        measuring,
        result,
        corners: measured,
        frames,
        stand: frames === undefined ? undefined : standOf(frames.cs),
        rise: both ? riseOf(frames.cs, measured) : undefined,
        heightOffset: both ? heightOffset(frames.cs, measured) : undefined,
        notices: [],
    };
    made.notices = [...(measuring?.notices ?? []), ...(result?.notices ?? []), ...noticesOn(made)];
    return made;
}

export function isEmpty(of: measurement): boolean {
    return of.measuring === undefined && of.result === undefined;
}

function noticesOn({ corners, frames, stand }: measurement): problem[] {
    const notices: problem[] = [];
    if (corners !== undefined && corners.fitted === undefined) notices.push({ key: "noPlane" });
    if (stand?.pointsDown === true) notices.push({ key: "pointsDown" });
    if (corners !== undefined && frames !== undefined) {
        const distance = offMiddle(frames.cs, corners);
        if (distance > middleTolerance)
            notices.push({ key: "otherMeasurement", values: { distance } });
    }
    return notices;
}
