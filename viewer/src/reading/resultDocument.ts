// Reads a result document of getncs: its message and, where the platform was measured, the two
// coordinate systems as they stand there.
import { cross, distance, dot, length, minus, type point } from "../numbers/vector";
import { readNumber } from "./number";
import { type problem, shown, unreadable } from "./problem";
import { attributeOf, foldedName, type xmlNode } from "./xml";

// Origin and axes, in the coordinates of the other system.
export interface frame {
    o: point;
    x: point;
    y: point;
    z: point;
}

export interface resultDocument {
    kind: "result";
    fileName: string;
    type: "confirm" | "error";
    title: string;
    message: string;
    frames: { cs: frame; ncs: frame } | undefined; // with "confirm" only
    notices: problem[];
}

// The document has 8 decimals; what differs by more was not written by the tool.
const axisTolerance = 1e-6;

export function isResultDocument(root: xmlNode): boolean {
    return foldedName(root) === "getncsresult";
}

export function readResultDocument(root: xmlNode, fileName: string): resultDocument {
    const message = childOf(root, "message");
    if (message === undefined)
        throw new unreadable("elementMissing", root.at, { element: "message" });
    const type = attributeOf(message, "type");
    if (type !== "confirm" && type !== "error") {
        throw new unreadable("unknownType", message.at, { type: shown(type ?? "") });
    }
    const notices: problem[] = [];
    const frames = type === "confirm" ? readFrames(root, notices) : undefined;
    const title = attributeOf(message, "title") ?? "";
    return { kind: "result", fileName, type, title, message: message.text, frames, notices };
}

// The last one counts, as in a measuring file.
function childOf(root: xmlNode, name: string): xmlNode | undefined {
    return root.children.filter((child) => foldedName(child) === name).pop();
}

function readFrames(root: xmlNode, notices: problem[]): { cs: frame; ncs: frame } {
    const cs = readFrame(root, "cs");
    const ncs = readFrame(root, "ncs");
    for (const [name, each] of Object.entries({ cs, ncs })) {
        if (!isRightHanded(each)) notices.push({ key: "axesNotSquare", values: { element: name } });
    }
    if (!areInverse(cs, ncs)) notices.push({ key: "notInverse" });
    return { cs, ncs };
}

function readFrame(root: xmlNode, name: string): frame {
    const node = childOf(root, name);
    if (node === undefined) throw new unreadable("elementMissing", root.at, { element: name });
    const read = (attribute: string): point => readCoordinates(node, name, attribute);
    return { o: read("o"), x: read("x"), y: read("y"), z: read("z") };
}

// Commas separate here, so the decimal mark is always a point.
function readCoordinates(node: xmlNode, element: string, attribute: string): point {
    const text = attributeOf(node, attribute) ?? "";
    const values = text.split(",").map((part) => readNumber(part));
    const told = { element, attribute, text: shown(text) };
    const [x, y, z] = values;
    if (values.length !== 3 || x === undefined || y === undefined || z === undefined) {
        throw new unreadable("noCoordinates", node.at, told);
    }
    if (![x, y, z].every(Number.isFinite))
        throw new unreadable("coordinatesNotFinite", node.at, told);
    return { x, y, z };
}

function isRightHanded(axes: frame): boolean {
    const units = [axes.x, axes.y, axes.z].every(
        (axis) => Math.abs(length(axis) - 1) < axisTolerance,
    );
    return units && distance(cross(axes.x, axes.y), axes.z) < axisTolerance;
}

// With axes at right angles, the rows of one are the columns of the other.
function areInverse(cs: frame, ncs: frame): boolean {
    const transposed: [point, point][] = [
        [ncs.x, { x: cs.x.x, y: cs.y.x, z: cs.z.x }],
        [ncs.y, { x: cs.x.y, y: cs.y.y, z: cs.z.y }],
        [ncs.z, { x: cs.x.z, y: cs.y.z, z: cs.z.z }],
    ];
    const back = { x: -dot(cs.o, cs.x), y: -dot(cs.o, cs.y), z: -dot(cs.o, cs.z) };
    const originTolerance = axisTolerance * (1 + length(cs.o));
    return (
        transposed.every(([axis, expected]) => distance(axis, expected) < axisTolerance) &&
        length(minus(ncs.o, back)) < originTolerance
    );
}
