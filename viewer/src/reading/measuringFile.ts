// Reads a measuring file: the four cylinders, in the order of checks that the tool has, and the
// platform and date that go with them.
import type { point } from "../numbers/vector";
import { readNumber, readWholeNumbers } from "./number";
import { type problem, shown, unreadable } from "./problem";
import { asciiLower, attributeOf, foldedName, type xmlNode } from "./xml";

export type four<T> = [T, T, T, T];

export interface measuringFile {
    kind: "measuring";
    fileName: string;
    platform: string;
    measuredAt: Date | undefined;
    cylinders: four<point>;
    notices: problem[];
}

const cylinderNames = ["cylinder1", "cylinder2", "cylinder3", "cylinder4"];

export function isMeasuringFile(root: xmlNode): boolean {
    return attributeOf(root, "PlatformName") !== undefined || root.children.some(isPoint);
}

export function readMeasuringFile(root: xmlNode, fileName: string): measuringFile {
    const notices: problem[] = [];
    const platform = readPlatform(root, fileName, notices);
    const cylinders = readCylinders(root, notices);
    return {
        kind: "measuring",
        fileName,
        platform,
        measuredAt: readDate(root),
        cylinders,
        notices,
    };
}

function isPoint(node: xmlNode): boolean {
    return foldedName(node) === "measuringpoint";
}

// The tool compares the name with that of the platform it is asked for, which a file in the taven
// folder carries in its own name.
function readPlatform(root: xmlNode, fileName: string, notices: problem[]): string {
    const platform = attributeOf(root, "PlatformName");
    if (platform === undefined) throw new unreadable("noPlatformName", root.at);
    const expected = /^MeasuringData_(.*)\.xml$/.exec(fileName)?.[1];
    if (expected !== undefined && expected !== platform) {
        notices.push({
            key: "otherPlatform",
            values: { platform: shown(platform), expected: shown(expected) },
        });
    }
    return platform;
}

// The month counts from 0, as the tool has always shown it: "2024-4-17" is a day in May.
function readDate(root: xmlNode): Date | undefined {
    const date = readWholeNumbers(attributeOf(root, "CreationDate") ?? "", "-");
    const time = readWholeNumbers(attributeOf(root, "CreationTime") ?? "", ":");
    if (date === undefined || time === undefined) return undefined;
    const read = new Date(0);
    read.setUTCFullYear(...date);
    read.setUTCHours(...time);
    return Number.isNaN(read.getTime()) ? undefined : read;
}

function readCylinders(root: xmlNode, notices: problem[]): four<point> {
    const found: (point | undefined)[] = [undefined, undefined, undefined, undefined];
    for (const node of root.children.filter(isPoint)) {
        const read = readPoint(node);
        const name = attributeOf(node, "Name") ?? "";
        const index = cylinderNames.indexOf(name);
        if (index === -1) throw new unreadable("unknownPoint", node.at, { name: shown(name) });
        if (found[index] !== undefined) notices.push({ key: "pointTwice", values: { name } });
        found[index] = read;
    }
    const missing = cylinderNames.filter((_, index) => found[index] === undefined);
    if (missing.length > 0)
        throw new unreadable("pointsMissing", root.at, { names: missing.join(", ") });
    return found as four<point>;
}

// An axis that lacks is told before a name that is not known.
function readPoint(node: xmlNode): point {
    const read: Partial<point> = {};
    for (const child of node.children) {
        if (foldedName(child) !== "axis") continue;
        const axis = asciiLower(attributeOf(child, "Name") ?? "");
        if (axis === "x" || axis === "y" || axis === "z") read[axis] = readCoordinate(child, axis);
    }
    const { x, y, z } = read;
    if (x === undefined || y === undefined || z === undefined) {
        throw new unreadable("axesMissing", node.at, {
            name: shown(attributeOf(node, "Name") ?? ""),
            axes: (["x", "y", "z"] as const).filter((axis) => read[axis] === undefined).join(", "),
        });
    }
    return { x, y, z };
}

function readCoordinate(node: xmlNode, axis: string): number {
    const value = readNumber(node.text);
    if (value === undefined)
        throw new unreadable("noNumber", node.textAt, { axis, text: shown(node.text) });
    // The tool reads it, and can't make a coordinate system of it.
    if (!Number.isFinite(value))
        throw new unreadable("notFinite", node.textAt, { axis, text: shown(node.text) });
    return value;
}
