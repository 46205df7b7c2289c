// Resolves the entities of a text or of an attribute's value by the rules of the tool: in passes,
// until nothing changes.
import { unreadable } from "./problem";

const named: [string, string][] = [
    ["&amp;", "&"],
    ["&apos;", "'"],
    ["&quot;", '"'],
    ["&lt;", "<"],
    ["&gt;", ">"],
];

// Units that may be gone through for one text. Escapes of escapes cost a pass for each level, and
// a file made of nothing else would keep the page busy for hours.
const mostWork = 100_000_000;

export function decodeEntities(source: string, index: number): string {
    if (!source.includes("&")) return source;
    let text = source;
    let before: number;
    let work = 0;
    const count = (): void => {
        work += text.length;
        if (work > mostWork) throw new unreadable("tooManyEntities", index);
    };
    do {
        before = text.length;
        for (const [form, unit] of named) {
            count();
            text = text.replaceAll(form, unit);
        }
        for (let hit = text.indexOf("&#x"); hit !== -1; hit = text.indexOf("&#x")) {
            count();
            text = withoutReference(text, hit, index);
        }
    } while (text.length !== before);
    return text;
}

// A reference has three, two or one digits. The tool does not come back from any other.
function withoutReference(text: string, hit: number, index: number): string {
    const last = [hit + 6, hit + 5, hit + 4].find((at) => text[at] === ";");
    if (last === undefined) throw new unreadable("endlessReference", index);
    const unit = hexadecimal(text.slice(hit + 3, last));
    return text.replaceAll(text.slice(hit, last + 1), () =>
        unit === 0 ? "" : String.fromCharCode(unit),
    );
}

// Read from the front, with blanks, a sign and "0x" as usual for whole numbers; 0 if there is none.
function hexadecimal(digits: string): number {
    const read = /^[ \t-\r]*([+-]?)(?:0[xX](?=[0-9a-fA-F]))?([0-9a-fA-F]+)/.exec(digits);
    if (read === null) return 0;
    const value = parseInt(read[2]!, 16);
    return (read[1] === "-" ? -value : value) & 0xffff;
}
