// Pictures of the page against kept ones. With VIEWER_KEEP=1 they are kept instead.
import assert from "node:assert/strict";
import { existsSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import pixelmatch from "pixelmatch";
import { PNG } from "pngjs";
import { folder } from "./browser";

const kept = process.env.VIEWER_KEPT ?? "";
const keeping = process.env.VIEWER_KEEP === "1";

// The part of pixels that differ more than smoothed edges and another version's fonts do.
export function differing(one: Uint8Array, other: Uint8Array): { part: number; diff: Buffer } {
    const [a, b] = [PNG.sync.read(Buffer.from(one)), PNG.sync.read(Buffer.from(other))];
    if (a.width !== b.width || a.height !== b.height) return { part: 1, diff: Buffer.from(one) };
    const diff = new PNG({ width: a.width, height: a.height });
    const count = pixelmatch(a.data, b.data, diff.data, a.width, a.height, { threshold: 0.15 });
    return { part: count / (a.width * a.height), diff: PNG.sync.write(diff) };
}

export const tolerance = 0.003;

export function looksAsKept(name: string, picture: Uint8Array): void {
    const path = join(kept, `${name}.png`);
    if (keeping) {
        mkdirSync(kept, { recursive: true });
        writeFileSync(path, picture);
        return;
    }
    assert.ok(existsSync(path), `no picture ${path} is kept`);
    const { part, diff } = differing(picture, readFileSync(path));
    if (part <= tolerance) return;
    writeFileSync(join(folder, `${name}.png`), picture);
    writeFileSync(join(folder, `${name}-diff.png`), diff);
    assert.fail(`${name} differs in ${(100 * part).toFixed(2)} % of its pixels; see ${folder}`);
}

// The README shows the page as it is when pictures are kept.
export function keepForReadme(picture: Uint8Array): void {
    if (keeping) writeFileSync(process.env.VIEWER_README!, picture);
}
