// One language of the page: its texts with their places filled, its numbers and dates.
import type { row } from "../numbers/rows";
import type { problem } from "../reading/problem";
import type { textKey, texts } from "./english";

export class language {
    constructor(
        readonly code: string, // as in the attribute `lang`
        readonly name: string, // in the language itself
        private readonly m_texts: texts,
    ) {}

    // Numbers among the values are lengths in mm or counts, and are written with few decimals.
    text(key: textKey, values: Record<string, string | number> = {}): string {
        return this.m_texts[key].replace(/\[(\w+)\]/g, (place, name: string) => {
            const value = values[name];
            if (value === undefined) return place;
            return typeof value === "number" ? this.shortNumber(value) : value;
        });
    }

    label({ label, detail, values }: Pick<row, "label" | "detail" | "values">): string {
        const text = this.text(label, values);
        return detail === undefined ? text : `${text} ${detail}`;
    }

    // For a table: fixed decimals, and a sign where it says something.
    number(value: number, decimals: number, signed = false): string {
        const rounded = withoutMinusZero(value, decimals);
        const sign = signed && rounded !== 0 ? "exceptZero" : "auto";
        return this.format(decimals, decimals, true, sign).format(rounded);
    }

    // For other programs: without marks for thousands.
    plainNumber(value: number, decimals: number): string {
        return this.format(decimals, decimals, false, "auto").format(
            withoutMinusZero(value, decimals),
        );
    }

    shortNumber(value: number): string {
        return this.format(0, Math.abs(value) < 10 ? 3 : 1, true, "auto").format(value);
    }

    decimalMark(): string {
        return this.format(1, 1, false, "auto").format(0.5).charAt(1);
    }

    // In the local time, as the tool shows it.
    date(value: Date): string {
        return new Intl.DateTimeFormat(this.code, {
            dateStyle: "medium",
            timeStyle: "medium",
        }).format(value);
    }

    problem({ key, values, place }: problem): string {
        const sentence = this.text(key, values);
        if (place === undefined) return sentence;
        return this.text("problemAt", {
            line: String(place.line),
            column: String(place.column),
            problem: sentence,
        });
    }

    private format(
        least: number,
        most: number,
        grouped: boolean,
        sign: "auto" | "exceptZero",
    ): Intl.NumberFormat {
        return new Intl.NumberFormat(this.code, {
            minimumFractionDigits: least,
            maximumFractionDigits: most,
            useGrouping: grouped,
            signDisplay: sign,
            numberingSystem: "latn",
        });
    }
}

// What rounds to zero is shown without a sign.
function withoutMinusZero(value: number, decimals: number): number {
    return Math.abs(value) < 0.5 * 10 ** -decimals ? 0 : value;
}
