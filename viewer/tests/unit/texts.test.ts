// The nine languages: all texts with all places, numbers and dates in each language's form.
import assert from "node:assert/strict";
import { test } from "node:test";
import { chinese } from "../../src/texts/chinese";
import { czech } from "../../src/texts/czech";
import { english, type textKey, type texts } from "../../src/texts/english";
import { french } from "../../src/texts/french";
import { german } from "../../src/texts/german";
import { italian } from "../../src/texts/italian";
import { japanese } from "../../src/texts/japanese";
import { languageFor, languages } from "../../src/texts/languages";
import { polish } from "../../src/texts/polish";
import { spanish } from "../../src/texts/spanish";

const others: Record<string, texts> = {
    german,
    french,
    italian,
    spanish,
    polish,
    czech,
    japanese,
    chinese,
};
const speak = (code: string): (typeof languages)[number] =>
    languages.find((each) => each.code === code)!;

function places(text: string): string[] {
    return [...new Set(text.match(/\[\w+\]/g) ?? [])].sort();
}

test("every language has the places of every English text, and a text of its own", () => {
    // Names and signs, and words that two languages share.
    const shared: textKey[] = [
        "cylinderX",
        "cylinderY",
        "cylinderZ",
        "factorShort",
        "problemIn",
        "problemAt",
    ];
    for (const [name, own] of Object.entries(others)) {
        for (const key of Object.keys(english) as textKey[]) {
            assert.deepEqual(places(own[key]), places(english[key]), `${name} ${key}`);
            assert.ok(own[key].trim() === own[key] && own[key] !== "", `${name} ${key}`);
        }
        const same = (Object.keys(english) as textKey[]).filter(
            (key) => own[key] === english[key] && !shared.includes(key),
        );
        assert.ok(same.length <= 4, `${name} says in English: ${same.join(", ")}`);
    }
});

test("the browser's languages choose, by their main part, and English is the last resort", () => {
    const rows: [string[], string][] = [
        [["de-AT", "en"], "de"],
        [["pt-BR", "es-MX"], "es"],
        [["zh-CN"], "zh-Hans"],
        [["zh-TW"], "zh-Hans"],
        [["ja"], "ja"],
        [["cs-CZ"], "cs"],
        [["pl"], "pl"],
        [["it-CH"], "it"],
        [["fr-CA"], "fr"],
        [["EN-gb"], "en"],
        [["sv", "fi"], "en"],
        [[], "en"],
    ];
    for (const [wanted, code] of rows) assert.equal(languageFor(wanted).code, code, wanted.join());
});

test("numbers stand in the form of the language", () => {
    const rows: [string, string][] = [
        ["en", "12,345.5000"],
        ["de", "12.345,5000"],
        ["fr", "12\u202f345,5000"],
        ["it", "12.345,5000"],
        ["es", "12.345,5000"],
        ["pl", "12\u00a0345,5000"],
        ["cs", "12\u00a0345,5000"],
        ["ja", "12,345.5000"],
        ["zh-Hans", "12,345.5000"],
    ];
    for (const [code, text] of rows) assert.equal(speak(code).number(12345.5, 4), text, code);
});

test("what rounds to zero has no sign, other differences have one", () => {
    const of = speak("en");
    assert.deepEqual(
        [-0.00004, 0.00004, -0, -0.00005, 1.5].map((value) => of.number(value, 4, true)),
        ["0.0000", "0.0000", "0.0000", "-0.0001", "+1.5000"],
    );
    assert.equal(of.number(1.5, 4), "1.5000");
});

test("for other programs numbers have no marks for thousands", () => {
    assert.deepEqual(
        ["en", "de", "cs"].map((code) => speak(code).plainNumber(12345.678, 2)),
        ["12345.68", "12345,68", "12345,68"],
    );
});

test("the decimal mark of each language", () => {
    assert.deepEqual(languages.map((each) => each.decimalMark()).join(""), ".,,,,,,..");
});

test("places are filled, numbers in the form of the language, and what is not known stays", () => {
    assert.equal(
        speak("de").text("otherMeasurement", { distance: 1.25 }).includes("1,25 mm"),
        true,
    );
    assert.equal(speak("en").text("remove", {}), "Remove [name]");
    assert.equal(speak("en").text("remove", { name: "a[name]b" }), "Remove a[name]b");
});

test("a sentence tells line and column where there are some", () => {
    const problem = { key: "noNumber" as const, values: { axis: "x", text: "?" } };
    assert.equal(speak("en").problem(problem), "The x coordinate is no number: “?”.");
    assert.equal(
        speak("de").problem({ ...problem, place: { line: 1234, column: 5 } }),
        "Zeile 1234, Spalte 5: Die Koordinate x ist keine Zahl: „?“.",
    );
});
