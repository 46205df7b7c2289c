// The numbers as CSV, as spreadsheet programs of each language read them.
import assert from "node:assert/strict";
import { test } from "node:test";
import { csvOf } from "../../src/export/csv";
import { rowsOf } from "../../src/numbers/rows";
import { languages } from "../../src/texts/languages";
import { at, measured } from "../support/measurements";

const points = [at(0, 20, 5), at(4000.5, 20, 5), at(4000.5, 0, 5), at(0, 0, 5)];
const moved = points.map((each) => ({ ...each, z: each.z - 0.25 }));
const speak = (code: string): (typeof languages)[number] =>
    languages.find((each) => each.code === code)!;
const head = { title: 'Platform "P", at', first: "Value", second: undefined };

test("commas and points in English, one row for each number, with a mark in front", () => {
    const lines = csvOf(rowsOf(measured(points), undefined), head, speak("en")).split("\r\n");
    assert.equal(lines[0], '\ufeff"Platform ""P"", at"');
    assert.equal(lines[1], "Group,Quantity,Unit,Value");
    assert.equal(lines[2], "Cylinders,X 1,mm,0.0000");
    assert.ok(lines.includes("Cylinders,X 2,mm,4000.5000"));
    assert.ok(lines.includes("Sides,Side 1–2,mm,4000.5000"));
    assert.equal(lines.length, 2 + 24 + 7 + 1);
});

test("semicolons and commas where the comma is the decimal mark", () => {
    const lines = csvOf(rowsOf(measured(points), undefined), head, speak("de")).split("\r\n");
    assert.ok(lines.includes("Zylinder;X 2;mm;4000,5000"));
});

test("two measurements have both values and the difference", () => {
    const rows = rowsOf(measured(points), measured(moved));
    const lines = csvOf(rows, { title: "t", first: "A", second: "B" }, speak("en")).split("\r\n");
    assert.equal(lines[1], "Group,Quantity,Unit,A,B,Difference");
    assert.ok(lines.includes("Cylinders,Z 1,mm,5.0000,4.7500,-0.2500"));
});
