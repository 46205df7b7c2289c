// From the bytes of a file to a measuring file, a result document, or what is wrong with it.
import { decodeDocument } from "./bytes";
import { isMeasuringFile, type measuringFile, readMeasuringFile } from "./measuringFile";
import { placeOf, type problem, shown, unreadable } from "./problem";
import { isResultDocument, readResultDocument, type resultDocument } from "./resultDocument";
import { parseText, type xmlNode } from "./xml";

export type readDocument = measuringFile | resultDocument;

// Both kinds of file have a few thousand bytes.
export const mostBytes = 64 * 1024 * 1024;

// `breathe` is waited for now and then, so that a page answers meanwhile. Gives a problem for every
// file that can't be used and never throws for what a file holds.
export async function readFile(
    bytes: Uint8Array,
    fileName: string,
    breathe: () => Promise<void> = () => Promise.resolve(),
): Promise<readDocument | problem> {
    let text = "";
    try {
        text = decodeDocument(bytes);
        await breathe();
        const parsing = parseText(text);
        let next = parsing.next();
        for (; next.done !== true; next = parsing.next()) await breathe();
        return interpret(next.value, fileName);
    } catch (thrown) {
        if (!(thrown instanceof unreadable)) throw thrown;
        if (thrown.index === undefined) return thrown.problem;
        return { ...thrown.problem, place: placeOf(text, thrown.index) };
    }
}

export function isProblem(read: readDocument | problem): read is problem {
    return "key" in read;
}

function interpret(root: xmlNode, fileName: string): readDocument {
    if (root.name === "" && root.attributes.length === 0) throw new unreadable("noElement");
    if (isResultDocument(root)) return readResultDocument(root, fileName);
    if (isMeasuringFile(root)) return readMeasuringFile(root, fileName);
    throw new unreadable("neitherFile", root.at, { element: shown(root.name) });
}
