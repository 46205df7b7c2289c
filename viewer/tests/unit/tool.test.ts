// The page reads what the tool reads: each file goes to both, and both take it with the same points
// or refuse it for the same reason.
import assert from "node:assert/strict";
import { test } from "node:test";
import { measurementOf } from "../../src/numbers/measurement";
import { mean } from "../../src/numbers/vector";
import type { textKey } from "../../src/texts/english";
import { isProblem, readFile } from "../../src/reading/readFile";
import {
    axis,
    bytesOf,
    example,
    measuringText,
    pointElement,
    resultOf,
    runTool,
    square,
    utf16,
} from "../support/samples";

const uneven = square.map(({ x, y, z }, i) => ({ x: x + i / 8, y: y + i * i, z: z + i / 4 }));
const good = measuringText(uneven);
const first = pointElement("cylinder1", uneven[0]!);
const latin = (text: string): Uint8Array => new Uint8Array(Buffer.from(text, "latin1"));

// Reads of 12,5, 1e1 and the like differ in x of the origin.
const withX = (text: string): string => good.replace(axis("X", 0), axis("X", text));

const files: [name: string, content: string | Uint8Array][] = [
    ["plain", good],
    ["UTF-8 with mark", "\ufeff" + good],
    ["UTF-16 with mark", utf16(good)],
    ["UTF-16 with an odd byte behind", new Uint8Array([...utf16(good), 0x20])],
    ["UTF-16 without mark", utf16(good).subarray(2)],
    ["UTF-16, high byte first", new Uint8Array(Buffer.from(utf16(good)).swap16())],
    ["declared Latin 1", latin(good.replace("UTF-8", "ISO-8859-1"))],
    ["declared in lower case", good.replace("UTF-8", "utf-8")],
    ["declared in single quotes", good.replace('"UTF-8"', "'UTF-16'")],
    ["declared UTF-16", good.replace("UTF-8", "UTF-16")],
    ["no declaration", good.replace(/^.*\n/, "")],
    ["blanks in front", "  \n" + good],
    ["a zero behind the root", good + "\0<junk"],
    ["a zero inside", good.replace("cylinder3", "cyl\0inder3")],
    ["a second root", good + good],
    ["junk behind the root", good + "<<<"],
    ["a document type", good.replace("?>\n", '?>\n<!DOCTYPE r SYSTEM "x.dtd">\n')],
    [
        "a document type with a subset",
        good.replace("?>\n", "?>\n<!DOCTYPE r [ <!ELEMENT a (b)> ]>\n"),
    ],
    [
        "elements in capitals",
        good.replaceAll("MeasuringPoint", "MEASURINGPOINT").replaceAll("Axis", "AXIS"),
    ],
    ["another root", good.replaceAll("MeasuringData", "x")],
    ["an axis in lower case", good.replace('Name="X"', 'Name="x"')],
    [
        "an unknown axis besides",
        good.replace(first, first.replace(axis("X", 0), axis("W", "?") + axis("X", 0))),
    ],
    ["an axis twice", good.replace(axis("X", 0), axis("X", 3) + axis("x", 4))],
    [
        "an axis twice, the first without number",
        good.replace(axis("X", 0), axis("X", "?") + axis("x", 4)),
    ],
    ["a point twice", good.replace(first, pointElement("cylinder1", { x: 1, y: 2, z: 3 }) + first)],
    [
        "a point twice, the second incomplete",
        good.replace("</MeasuringData>", '<MeasuringPoint Name="cylinder1"/></MeasuringData>'),
    ],
    [
        "a fifth point",
        good.replace(
            "</MeasuringData>",
            pointElement("cylinder5", uneven[0]!) + "</MeasuringData>",
        ),
    ],
    ["a point without name", good.replace(' Name="cylinder1"', "")],
    ["a point in another case", good.replace("cylinder1", "Cylinder1")],
    ["three points", good.replace(first, "")],
    ["no points", '<r PlatformName="P"></r>'],
    ["no points and an empty element", '<r PlatformName="P"/>'],
    ["an axis missing", good.replace(axis("X", 0), "")],
    ["a point in a point", good.replace(first, `<other>${first}</other>`)],
    ["no platform", good.replace(' PlatformName="P"', "")],
    ["single quotes", good.replaceAll(/="([^"]*)"/g, "='$1'")],
    [
        "blanks in tags",
        good
            .replaceAll("<Axis ", "< Axis  \n")
            .replaceAll("</MeasuringPoint>", "< / MeasuringPoint >"),
    ],
    ["attributes without blanks", good.replace('PlatformName="P" ', 'a="1"PlatformName="P"')],
    [
        "an attribute without value in front of another",
        good.replace(" PlatformName", " lost PlatformName"),
    ],
    ["a comment in an axis", withX("<!-- c -->12")],
    ["a child in an axis", withX("12<b/>")],
    ["text on its own line", withX("\n   12\n")],
    ["a comma", withX("12,5")],
    ["a unit", withX("12,5 mm")],
    ["an exponent", withX("1.25e1mm")],
    ["an exponent without digits", withX("3e+")],
    ["a point in front", withX(".5")],
    ["a point behind", withX("5.")],
    ["two marks", withX("1.234,5")],
    ["hexadecimal", withX("0x1F")],
    ["hexadecimal with a fraction", withX("0x1.8p3")],
    ["hexadecimal without digits", withX("0xyz")],
    ["a plus", withX("+7")],
    ["two signs", withX("+-7")],
    ["a no-break space in front", withX("\u00a07")],
    ["no number", withX("none")],
    ["no text", withX("")],
    ["an entity in a number", withX("1&#x32;.5")],
    ["an entity of an entity", withX("1&amp;#x2e;5")],
    ["a decimal reference", withX("1&#50;")],
    ["infinity", withX("inf")],
    ["not a number", withX("nan")],
    ["too large", withX("1e999")],
    ["all in one place", measuringText([0, 0, 0, 0].map(() => ({ x: 1, y: 2, z: 3 })))],
    ["all on one line", measuringText([0, 1, 2, 3].map((i) => ({ x: i, y: 2 * i, z: 0 })))],
    ["cut off in an element", good.slice(0, -20)],
    ["cut off in a tag", good.slice(0, good.indexOf("cylinder3"))],
    ["cut off in a comment behind points", good.replace("</MeasuringData>", "<!-- c")],
    ["another closing tag", good.replace("</MeasuringData>", "</Measuring>")],
    ["a closing tag in another case", good.replace("</MeasuringData>", "</measuringdata>")],
    ["a web page", "<!DOCTYPE html><html><body><p>x<br>y</body></html>"],
    ["plain text", "x,y,z\n1,2,3\n"],
    ["a mark alone", new Uint8Array([0xef, 0xbb, 0xbf])],
    ["nothing", ""],
];

// For each report of the tool what the page may say.
const parsing: textKey[] = [
    "tagCutOff",
    "slashInTag",
    "attributeWithoutValue",
    "valueWithoutQuote",
    "valueCutOff",
    "elementCutOff",
    "otherClosingTag",
    "utf16WithoutMark",
    "noText",
];
const otherPlatform: textKey[] = [
    "noPlatformName",
    "neitherFile",
    "noElement",
    "declaredUtf16",
    "utf16BigEndian",
    "fileEmpty",
    "noTextFile",
];
const reasons: [report: RegExp, keys: textKey[]][] = [
    [/^Error parsing file/, parsing],
    [/doesn't contain data from platform/, otherPlatform],
    [/unknown values for axis/, ["noNumber"]],
    [/incomplete axis values/, ["axesMissing"]],
    [/unknown pointdata/, ["unknownPoint"]],
    [/all required four/, ["pointsMissing"]],
    [/invalid measuring points/, ["notFinite"]],
];

for (const [name, content] of files) {
    test(`as the tool: ${name}`, async () => {
        const bytes = typeof content === "string" ? bytesOf(content) : content;
        const ended = runTool(bytes, "P");
        const got = await readFile(bytes, "MeasuringData_P.xml");
        if (ended.result !== undefined) {
            assert.ok(
                !isProblem(got) && got.kind === "measuring",
                `the tool reads it, the page says ${JSON.stringify(got)}`,
            );
            const answer = await readFile(ended.result, "answer.xml");
            assert.ok(
                !isProblem(answer) && answer.kind === "result" && answer.frames !== undefined,
            );
            const middle = mean(got.cylinders);
            const { o } = answer.frames.cs;
            for (const each of ["x", "y", "z"] as const)
                assert.ok(Math.abs(o[each] - middle[each]) < 1e-7, each);
            return;
        }
        assert.equal(ended.code, 0);
        const report = ended.report.split("\n")[1]!;
        const keys = reasons.find(([pattern]) => pattern.test(report))?.[1];
        assert.ok(keys !== undefined, report);
        if (!isProblem(got)) {
            // Points without a plane are a notice, as there is something to see.
            assert.match(report, /invalid measuring points/);
            assert.deepEqual(measurementOf(got as never, undefined).notices, [{ key: "noPlane" }]);
        } else {
            assert.ok(keys.includes(got.key), `the tool says ${report}, the page ${got.key}`);
        }
    });
}

test("the results of both examples are read with nothing to note", async () => {
    for (const platform of ["P20", "P400"]) {
        const measuring = await readFile(example(platform), `MeasuringData_${platform}.xml`);
        const result = await readFile(resultOf(platform, "0.35"), "result.xml");
        assert.ok(
            !isProblem(measuring) &&
                measuring.kind === "measuring" &&
                !isProblem(result) &&
                result.kind === "result",
        );
        const made = measurementOf(measuring, result);
        assert.deepEqual(made.notices, []);
        assert.ok(Math.abs(made.heightOffset! - 0.35) < 1e-8);
    }
});

test("an offset of three hundred digits is read to the last", async () => {
    const got = await readFile(
        runTool(bytesOf(measuringText(square)), "P", "1e300").result!,
        "result.xml",
    );
    assert.ok(!isProblem(got) && got.kind === "result");
    assert.equal(got.frames?.cs.o.z, 1e300);
});

test("the tool's error document is read with its message", async () => {
    const got = await readFile(runTool(undefined, "NONE").result!, "result.xml");
    assert.ok(!isProblem(got) && got.kind === "result");
    assert.equal(got.type, "error");
    assert.match(got.message, /^Platform information for "NONE" not found!\n/);
});

test("a result document of the tool is read in every language", async () => {
    for (const language of [
        "english",
        "german",
        "french",
        "italian",
        "spanish",
        "polish",
        "czech",
        "japanese",
        "chinese",
    ]) {
        const got = await readFile(
            runTool(example("P20"), "P20", "0", language).result!,
            "result.xml",
        );
        assert.ok(!isProblem(got) && got.kind === "result", language);
        assert.match(got.message, /P20/, language);
    }
});
