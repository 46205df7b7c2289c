// The tool's reader of element trees, with its leniencies: a text that it takes is taken here with
// the same tree, and one that it refuses is refused, with the place. It goes through the text once
// and stops for breath now and then, so that the page answers while a large file is read.
import { decodeEntities } from "./entities";
import { unreadable } from "./problem";

export interface xmlNode {
    name: string;
    text: string;
    attributes: readonly (readonly [name: string, value: string])[];
    children: readonly xmlNode[];
    at: number; // its "<"
    textAt: number; // where the text begins, or would
}

// The first attribute of that name counts, written exactly so.
export function attributeOf(node: xmlNode, name: string): string | undefined {
    return node.attributes.find((each) => each[0] === name)?.[1];
}

// Element names are compared without regard to the case of A to Z.
export function foldedName(node: xmlNode): string {
    return asciiLower(node.name);
}

export function asciiLower(text: string): string {
    return text.replace(/[A-Z]/g, (letter) => letter.toLowerCase());
}

const stepsAtOnce = 2000;
const none: readonly never[] = [];

// The root element; a nameless one if the text has none. Where the text ends inside a comment, the
// children read so far are lost, as they are for the tool.
export function* parseText(text: string): Generator<void, xmlNode, void> {
    const reader = new treeReader(text);
    for (let steps = 1; reader.step(); ++steps) if (steps % stepsAtOnce === 0) yield;
    return reader.root;
}

const blanks = /[^ \t-\r]/g;
const nameEnds = /[ \t-\r>/]/g;
const attributeNameEnds = /[ \t-\r=]/g;
const passedOver: [opening: string, closing: string][] = [
    ["<!--", "-->"],
    ["<?", "?>"],
    ["<!", ">"],
];

class treeReader {
    readonly root = emptyNode();
    private readonly m_open: { node: xmlNode; firstChild: number }[] = [];
    private readonly m_pending: xmlNode[] = []; // open elements' children so far
    private m_at: number | null = 0; // null: the text ended where that is no fault
    private m_started = false;

    constructor(private readonly m_text: string) {}

    // One element's beginning or end; false when there is no more.
    step(): boolean {
        if (!this.m_started) {
            this.m_started = true;
            if (this.readStart(this.root)) this.m_open.push({ node: this.root, firstChild: 0 });
        } else {
            this.readContent();
        }
        return this.m_at !== null && this.m_open.length > 0;
    }

    private readContent(): void {
        const at = this.findMarkup(this.m_at!, this.innermost().node);
        const inside = this.skipBlanks(at + 1);
        if (this.m_text[inside] === "/") {
            this.m_at = this.readClosingTag(inside + 1, this.innermost().node, at);
            this.closeElement();
            return;
        }
        this.m_at = at;
        const child = emptyNode();
        this.m_pending.push(child);
        if (this.readStart(child))
            this.m_open.push({ node: child, firstChild: this.m_pending.length });
        else this.dropIfNameless();
    }

    private innermost(): { node: xmlNode; firstChild: number } {
        return this.m_open[this.m_open.length - 1]!;
    }

    // Up to the first child or other markup inside, or to the element's end; true if more follows.
    private readStart(node: xmlNode): boolean {
        this.m_at = this.findTag(this.m_at!);
        if (this.m_at === null) return false;
        node.at = this.m_at;
        const inside = this.skipBlanks(this.m_at + 1);
        if (inside === this.m_text.length) throw new unreadable("tagCutOff", this.m_at);
        if (this.m_text[inside] === "/") return false; // the closing tag of the element around
        let at = this.readName(node, inside);
        at = this.readAttributes(node, at);
        this.m_at = at;
        if (this.m_text[at] !== ">") return false;
        return this.readFirstText(node, at + 1);
    }

    // The next "<" that begins a tag; null if the text ends first, also inside a comment.
    private findTag(from: number): number | null {
        for (
            let at = this.m_text.indexOf("<", from);
            at !== -1;
            at = this.m_text.indexOf("<", at)
        ) {
            const markup = passedOver.find(([opening]) => this.m_text.startsWith(opening, at));
            if (markup === undefined) return at;
            const end = this.m_text.indexOf(markup[1], at + markup[0].length);
            if (end === -1) return null;
            at = end + markup[1].length;
        }
        return null;
    }

    private readName(node: xmlNode, from: number): number {
        const end = this.findOneOf(nameEnds, from);
        node.name = this.m_text.slice(from, end);
        if (this.m_text[end] === "/" && this.m_text[end + 1] !== ">")
            throw new unreadable("slashInTag", end);
        return end;
    }

    private readAttributes(node: xmlNode, from: number): number {
        const attributes: [string, string][] = [];
        let at = from;
        while (at < this.m_text.length) {
            at = this.skipBlanks(at);
            if (this.m_text[at] === ">" || this.m_text.startsWith("/>", at)) break;
            at = this.readAttribute(attributes, at);
        }
        if (attributes.length > 0) node.attributes = attributes;
        return at;
    }

    // The "=" may be anywhere behind the name: what stands between is lost.
    private readAttribute(attributes: [string, string][], from: number): number {
        const name = this.m_text.slice(from, this.findOneOf(attributeNameEnds, from));
        const equals = this.m_text.indexOf("=", from + name.length);
        if (equals === -1) throw new unreadable("attributeWithoutValue", from);
        const quote = this.skipBlanks(equals + 1);
        const mark = this.m_text[quote];
        if (mark !== '"' && mark !== "'") throw new unreadable("valueWithoutQuote", quote);
        const end = this.m_text.indexOf(mark, quote + 1);
        if (end === -1) throw new unreadable("valueCutOff", quote);
        attributes.push([name, decodeEntities(this.m_text.slice(quote + 1, end), quote + 1)]);
        return end + 1;
    }

    // Text is only what stands before the first markup.
    private readFirstText(node: xmlNode, begin: number): boolean {
        node.textAt = begin;
        const markup = this.findMarkup(begin, node);
        if (this.m_text[markup + 1] === "/") {
            this.m_at = this.readClosingTag(markup + 2, node, markup);
            this.storeText(node, begin, markup);
            return false;
        }
        this.m_at = markup;
        this.storeText(node, this.skipBlanks(begin), markup);
        return markup + 1 < this.m_text.length;
    }

    private storeText(node: xmlNode, begin: number, end: number): void {
        const trimmed = this.m_text.slice(begin, end).replace(/^[ \t]+/, "");
        let last = trimmed.length;
        while (last > 0 && (trimmed[last - 1] === " " || trimmed[last - 1] === "\t")) --last;
        node.text = decodeEntities(trimmed.slice(0, last), begin);
    }

    private findMarkup(from: number, around: xmlNode): number {
        const found = this.m_text.indexOf("<", from);
        if (found === -1)
            throw new unreadable("elementCutOff", around.at, { element: around.name });
        return found;
    }

    // From behind the "/".
    private readClosingTag(from: number, node: xmlNode, at: number): number {
        const begin = this.skipBlanks(from);
        const fits = this.m_text.startsWith(node.name, begin);
        const end = this.skipBlanks(begin + node.name.length);
        if (!fits || this.m_text[end] !== ">")
            throw new unreadable("otherClosingTag", at, { element: node.name });
        return end + 1;
    }

    private closeElement(): void {
        const closed = this.m_open.pop()!;
        if (this.m_pending.length > closed.firstChild) {
            closed.node.children = this.m_pending.slice(closed.firstChild);
            this.m_pending.length = closed.firstChild;
        }
        if (this.m_open.length > 0) this.dropIfNameless();
    }

    private dropIfNameless(): void {
        if (this.m_pending[this.m_pending.length - 1]!.name === "") this.m_pending.pop();
    }

    private skipBlanks(from: number): number {
        return this.findOneOf(blanks, from);
    }

    private findOneOf(expression: RegExp, from: number): number {
        expression.lastIndex = from;
        return expression.exec(this.m_text)?.index ?? this.m_text.length;
    }
}

function emptyNode(): xmlNode {
    return { name: "", text: "", attributes: none, children: none, at: 0, textAt: 0 };
}
