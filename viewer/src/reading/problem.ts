// What is wrong with a file, and where: a key of the texts with its values, so that the sentence
// can be said in every language.
import type { textKey } from "../texts/english";

export interface place {
    line: number;
    column: number;
}

export interface problem {
    key: textKey;
    values?: Record<string, string | number>;
    place?: place;
}

// Thrown by the readers; nothing else of theirs is meant to be caught.
export class unreadable extends Error {
    readonly problem: problem;
    // Where in the text, until somebody who knows the text makes a place of it.
    readonly index: number | undefined;

    constructor(key: textKey, index?: number, values?: Record<string, string | number>) {
        super(key);
        this.problem = values === undefined ? { key } : { key, values };
        this.index = index;
    }
}

// Lines end at a line feed, with or without a carriage return before it; both count from 1.
export function placeOf(text: string, index: number): place {
    let line = 1;
    let start = 0;
    for (
        let feed = text.indexOf("\n");
        feed !== -1 && feed < index;
        feed = text.indexOf("\n", start)
    ) {
        ++line;
        start = feed + 1;
    }
    return { line, column: index - start + 1 };
}

// Long or strange texts of a file are shown shortened, on one line.
export function shown(text: string): string {
    const plain = text.replace(/[\u0000-\u001f\u007f-\u009f]+/g, " ").trim();
    return plain.length > 60 ? plain.slice(0, 60) + "…" : plain;
}
