// The numbers beside the view, as tables.
import type { measurement } from "../numbers/measurement";
import { type group, type row, rowsOf } from "../numbers/rows";
import type { textKey } from "../texts/english";
import type { language } from "../texts/language";
import { byId, make, table } from "./elements";

type column = "first" | "second" | "difference";

export function showNumbers(
    first: measurement,
    second: measurement | undefined,
    speak: language,
): void {
    const rows = rowsOf(first, second);
    const columns: column[] = second === undefined ? ["first"] : ["first", "second", "difference"];
    const of = (group: group): row[] => rows.filter((each) => each.group === group);
    byId("numbers").replaceChildren(
        ...section("position", of("position"), speak, (list) => [plainTable(list, columns, speak)]),
        ...section("cylinders", of("cylinders"), speak, (list) =>
            cylinderTables(list, columns, speak),
        ),
        ...section("sides", of("sides"), speak, (list) => [plainTable(list, columns, speak)]),
        ...frameSection(of("frames"), columns, speak),
        ...hints([first, second], speak),
    );
}

function section(
    name: group,
    rows: row[],
    speak: language,
    content: (rows: row[]) => HTMLElement[],
): HTMLElement[] {
    return rows.length === 0
        ? []
        : [
              make(
                  "div",
                  { class: `group ${name}` },
                  make("h3", {}, speak.text(name)),
                  ...content(rows),
              ),
          ];
}

// Of two measurements these are many numbers, which few ask for.
function frameSection(rows: row[], columns: column[], speak: language): HTMLElement[] {
    if (columns.length === 1 || rows.length === 0)
        return section("frames", rows, speak, (list) => frameTables(list, columns, speak));
    const head = make("summary", {}, make("h3", {}, speak.text("frames")));
    return [make("details", { id: "framesOfTwo" }, head, ...frameTables(rows, columns, speak))];
}

function hints(shown: (measurement | undefined)[], speak: language): HTMLElement[] {
    const given = shown.filter((each) => each !== undefined);
    const keys: textKey[] = [];
    if (given.some(({ frames }) => frames === undefined)) keys.push("needsResult");
    if (given.some(({ corners }) => corners === undefined)) keys.push("needsMeasuring");
    return keys.map((key) => make("p", { class: "quiet" }, speak.text(key)));
}

function plainTable(rows: row[], columns: column[], speak: language): HTMLElement {
    return table({
        heads: [speak.text("quantity"), ...columns.map((each) => columnHead(each, columns, speak))],
        rows: rows.map((each) => ({
            head: speak.label(each),
            cells: columns.map((column) => valueCell(each, column, speak)),
            className: each.label,
        })),
    });
}

function columnHead(column: column, columns: column[], speak: language): string {
    if (column === "difference") return speak.text("difference");
    if (columns.length === 1) return speak.text("value");
    return speak.text(column === "first" ? "firstSet" : "secondSet");
}

function valueCell(of: row, column: column, speak: language): Node {
    const value = of[column];
    const cell = document.createDocumentFragment();
    if (value === undefined) return cell;
    // What stands between two measurements, such as a distance, has no direction.
    const signed = of.signed || (column === "difference" && of.first !== undefined);
    cell.append(speak.number(value, of.decimals, signed));
    if (of.unit === "mm") cell.append("\u00a0");
    if (of.unit !== "") cell.append(make("span", { class: "unit" }, of.unit));
    if (column !== "difference") cell.append(...leaning(of, value, speak));
    return cell;
}

// Which side stands higher, in words: signs alone are soon mixed up.
function leaning({ label, decimals }: row, value: number, speak: language): HTMLElement[] {
    if (label !== "tiltX" && label !== "tiltY") return [];
    if (Math.abs(value) < 0.5 * 10 ** -decimals) return [make("small", {}, speak.text("level"))];
    const positive = label === "tiltX" ? "1,\u00a02" : "1,\u00a04";
    const negative = label === "tiltX" ? "3,\u00a04" : "2,\u00a03";
    return [make("small", {}, speak.text("higher", { names: value > 0 ? positive : negative }))];
}

const cylinderColumns = [
    "cylinderX",
    "cylinderY",
    "cylinderZ",
    "deviation",
    "fromRectangle",
    "cornerAngle",
] as const;

function cylinderTables(rows: row[], columns: column[], speak: language): HTMLElement[] {
    const shown = cylinderColumns.filter((label) => rows.some((each) => each.label === label));
    return columns
        .filter((column) => rows.some((each) => each[column] !== undefined))
        .map((column) =>
            table({
                ...captionOf(column, columns, speak),
                heads: [
                    speak.text("cylinder"),
                    ...shown.map(
                        (label) => `${speak.text(label)} (${label === "cornerAngle" ? "°" : "mm"})`,
                    ),
                ],
                rows: ["1", "2", "3", "4"].map((detail) => ({
                    head: detail,
                    cells: shown.map((label) => number(rows, label, detail, column, speak)),
                })),
                className: "cylinders",
                wide: speak.text("cylinders"),
            }),
        );
}

function captionOf(column: column, columns: column[], speak: language): { caption?: string } {
    return columns.length === 1 ? {} : { caption: columnHead(column, columns, speak) };
}

function number(
    rows: row[],
    label: textKey,
    detail: string,
    column: column,
    speak: language,
): string {
    const found = rows.find((each) => each.label === label && each.detail === detail);
    const value = found?.[column];
    return found === undefined || value === undefined
        ? ""
        : speak.number(value, found.decimals, found.signed || column === "difference");
}

function frameTables(rows: row[], columns: column[], speak: language): HTMLElement[] {
    const axes = ["x", "y", "z"];
    return (["cs", "ncs"] as const).flatMap((name) =>
        columns
            .filter((column) => rows.some((each) => each[column] !== undefined))
            .map((column) => {
                const parts = captionOf(column, columns, speak).caption;
                return table({
                    caption:
                        parts === undefined ? speak.text(name) : `${speak.text(name)}: ${parts}`,
                    heads: [name, "X", "Y", "Z"],
                    rows: ["o", "x", "y", "z"].map((part) => ({
                        head: part === "o" ? "o (mm)" : part,
                        cells: axes.map((axis) =>
                            number(rows, name, `${part}.${axis}`, column, speak),
                        ),
                    })),
                    className: name,
                });
            }),
    );
}
