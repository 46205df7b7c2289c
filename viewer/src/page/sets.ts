// Which files belong to which of the two measurements that can be laid over each other.
import { cornersOf } from "../numbers/corners";
import { type measurement, measurementOf } from "../numbers/measurement";
import { offMiddle } from "../numbers/stand";
import { angleBetween } from "../numbers/vector";
import type { measuringFile } from "../reading/measuringFile";
import type { readDocument } from "../reading/readFile";
import type { resultDocument } from "../reading/resultDocument";

export interface fileSet {
    measuring: measuringFile | undefined;
    result: resultDocument | undefined;
}
export type setIndex = 0 | 1;

export class fileSets {
    private readonly m_sets: [fileSet, fileSet] = [emptySet(), emptySet()];

    at(index: setIndex): fileSet {
        return this.m_sets[index];
    }

    isEmpty(index: setIndex): boolean {
        const { measuring, result } = this.m_sets[index];
        return measuring === undefined && result === undefined;
    }

    // What is shown: where only the second set has files, it is the first measurement.
    measurements(): [measurement | undefined, measurement | undefined] {
        const made = ([0, 1] as const)
            .filter((index) => !this.isEmpty(index))
            .map((index) => measurementOf(this.m_sets[index].measuring, this.m_sets[index].result));
        return [made[0], made[1]];
    }

    // Without a wanted set: the free one whose other file fits, else the first free one, else the
    // first, whose file is replaced. Gives the set.
    add(read: readDocument, wanted?: setIndex): setIndex {
        const index = wanted ?? this.fittingSet(read) ?? this.freeSets(read)[0] ?? 0;
        if (read.kind === "measuring") this.m_sets[index].measuring = read;
        else this.m_sets[index].result = read;
        return index;
    }

    remove(index: setIndex, kind: readDocument["kind"]): void {
        this.m_sets[index][kind] = undefined;
    }

    clear(): void {
        this.m_sets[0] = emptySet();
        this.m_sets[1] = emptySet();
    }

    private freeSets(read: readDocument): setIndex[] {
        return ([0, 1] as const).filter((index) => this.m_sets[index][read.kind] === undefined);
    }

    // Two measurements of one platform may have one middle; then the axes decide.
    private fittingSet(read: readDocument): setIndex | undefined {
        const fits = this.freeSets(read)
            .map((index) => ({
                index,
                angle: misfit({ ...this.m_sets[index], [read.kind]: read }),
            }))
            .filter((each) => each.angle !== undefined)
            .sort((a, b) => a.angle! - b.angle!);
        return fits[0]?.index;
    }
}

function emptySet(): fileSet {
    return { measuring: undefined, result: undefined };
}

// In mm: the origin of a result lies over the middle of the measured cylinders.
const tolerance = 1e-3;

// In degrees, between the Z axis and the plane's normal; undefined for files that can't belong
// together.
function misfit({ measuring, result }: fileSet): number | undefined {
    if (measuring === undefined || result?.frames === undefined) return undefined;
    const measured = cornersOf(measuring.cylinders);
    if (measured.fitted === undefined || offMiddle(result.frames.cs, measured) > tolerance)
        return undefined;
    return angleBetween(measured.fitted.plane.normal, result.frames.cs.z);
}
