// Measuring files made for the tests, and the tool run on files.
import { spawnSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import type { point } from "../../src/numbers/vector";

export const tool = process.env.VIEWER_TOOL ?? "";
export const examples = process.env.VIEWER_EXAMPLES ?? "";
if (tool === "" || examples === "") throw new Error("run by scripts/check-viewer");

export const square: point[] = [
    { x: 0, y: 10, z: 1 },
    { x: 20, y: 10, z: 1 },
    { x: 20, y: 0, z: 1 },
    { x: 0, y: 0, z: 1 },
];

export function axis(name: string, text: string | number): string {
    return `<Axis Name="${name}">${text}</Axis>`;
}

export function pointElement(name: string, { x, y, z }: point): string {
    return `<MeasuringPoint Name="${name}">${axis("X", x)}${axis("Y", y)}${axis("Z", z)}</MeasuringPoint>`;
}

export function measuringText(points: point[], platform = "P"): string {
    const elements = points.map((each, i) => pointElement(`cylinder${i + 1}`, each));
    return (
        `<?xml version="1.0" encoding="UTF-8"?>\n` +
        `<MeasuringData PlatformName="${platform}" CreationDate="2024-4-17Z" CreationTime="9:41:27Z">\n` +
        `${elements.join("\n")}\n</MeasuringData>\n`
    );
}

export function bytesOf(text: string): Uint8Array {
    return new TextEncoder().encode(text);
}

export function utf16(text: string): Uint8Array {
    return new Uint8Array(Buffer.from("\ufeff" + text, "utf16le"));
}

// inFolder(work): with a folder that goes away afterwards.
export function inFolder<T>(work: (folder: string) => T): T {
    const folder = mkdtempSync(join(tmpdir(), "viewer-"));
    try {
        return work(folder);
    } finally {
        rmSync(folder, { recursive: true });
    }
}

export interface run {
    code: number;
    report: string; // of a box
    result: Uint8Array | undefined;
}

export function runTool(
    measuring: Uint8Array | undefined,
    platform: string,
    zoffset = "0",
    language = "english",
): run {
    return inFolder((folder) => {
        if (measuring !== undefined)
            writeFileSync(join(folder, `MeasuringData_${platform}.xml`), measuring);
        const out = join(folder, "answer.xml");
        const switches = [
            `-out:${out}`,
            `-tavenfldr:${folder}`,
            `-platform:${platform}`,
            `-zoffset:${zoffset}`,
        ];
        const ended = spawnSync(tool, ["-cmd:getncs", `-language:${language}`, ...switches], {
            input: "",
            env: { TZ: "UTC" },
        });
        if (ended.error !== undefined) throw ended.error;
        const result = ended.status === 1 ? new Uint8Array(readFileSync(out)) : undefined;
        return { code: ended.status ?? -1, report: ended.stderr.toString(), result };
    });
}

export function example(platform: string): Uint8Array {
    return new Uint8Array(readFileSync(join(examples, `MeasuringData_${platform}.xml`)));
}

export function resultOf(platform: string, zoffset: string): Uint8Array {
    const { result } = runTool(example(platform), platform, zoffset);
    if (result === undefined) throw new Error(`no result for ${platform}`);
    return result;
}
