// The numbers as a table for spreadsheet programs: in the form of the language, so that numbers
// arrive as numbers, with a semicolon between where the comma is the decimal mark.
import type { row } from "../numbers/rows";
import type { language } from "../texts/language";

export interface csvHead {
    title: string;
    first: string;
    second: string | undefined; // with two measurements
}

export function csvOf(rows: readonly row[], head: csvHead, speak: language): string {
    const separator = speak.decimalMark() === "," ? ";" : ",";
    const compared = head.second !== undefined;
    const columns = [speak.text("group"), speak.text("quantity"), speak.text("unit"), head.first];
    if (head.second !== undefined) columns.push(head.second, speak.text("difference"));
    const lines = rows.map((each) => {
        const values = compared ? [each.first, each.second, each.difference] : [each.first];
        const numbers = values.map((value) =>
            value === undefined ? "" : speak.plainNumber(value, each.decimals),
        );
        return [speak.text(each.group), speak.label(each), each.unit, ...numbers];
    });
    const table = [[head.title], columns, ...lines];
    // The mark tells spreadsheet programs that this is UTF-8.
    return (
        "\ufeff" +
        table
            .map((line) => line.map((cell) => quoted(cell, separator)).join(separator) + "\r\n")
            .join("")
    );
}

function quoted(cell: string, separator: string): string {
    if (![separator, '"', "\n", "\r"].some((unit) => cell.includes(unit))) return cell;
    return `"${cell.replaceAll('"', '""')}"`;
}
