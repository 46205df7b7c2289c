// What is read and what is refused, with the sentence's key and place.
import assert from "node:assert/strict";
import { test } from "node:test";
import { decodeEntities } from "../../src/reading/entities";
import type { measuringFile } from "../../src/reading/measuringFile";
import { readNumber } from "../../src/reading/number";
import type { problem } from "../../src/reading/problem";
import { isProblem, readFile } from "../../src/reading/readFile";
import type { resultDocument } from "../../src/reading/resultDocument";
import { axis, bytesOf, measuringText, pointElement, square, utf16 } from "../support/samples";

async function read(
    from: string | Uint8Array,
    name = "MeasuringData_P.xml",
): Promise<measuringFile> {
    const got = await readFile(typeof from === "string" ? bytesOf(from) : from, name);
    assert.ok(!isProblem(got) && got.kind === "measuring", JSON.stringify(got));
    return got;
}

async function refused(from: string | Uint8Array): Promise<problem> {
    const got = await readFile(typeof from === "string" ? bytesOf(from) : from, "x.xml");
    assert.ok(isProblem(got), JSON.stringify(got));
    return got;
}

async function result(from: string): Promise<resultDocument> {
    const got = await readFile(bytesOf(from), "answer.xml");
    assert.ok(!isProblem(got) && got.kind === "result", JSON.stringify(got));
    return got;
}

const good = measuringText(square);
const frameAttributes = 'o="1,2,3" x="1,0,0" y="0,1,0" z="0,0,1"';
const inverseAttributes = 'o="-1,-2,-3" x="1,0,0" y="0,1,0" z="0,0,1"';
const goodResult =
    '<getNCSResult><message type="confirm" title="T">M</message>' +
    `<ncs ${inverseAttributes}/><cs ${frameAttributes}/></getNCSResult>`;

test("a measuring file gives platform, date and the four points in their order", async () => {
    const got = await read(good);
    assert.equal(got.platform, "P");
    assert.deepEqual(got.cylinders, square);
    assert.deepEqual(got.notices, []);
});

test("the month counts from 0, and 12 is January of the next year", async () => {
    assert.equal((await read(good)).measuredAt?.toISOString(), "2024-05-17T09:41:27.000Z");
    const late = good.replace("2024-4-17Z", "2024-12-1Z");
    assert.equal((await read(late)).measuredAt?.toISOString(), "2025-01-01T09:41:27.000Z");
});

test("a date of another form does no harm", async () => {
    for (const date of ["17.4.2024", "", "x"]) {
        assert.equal((await read(good.replace("2024-4-17Z", date))).measuredAt, undefined, date);
    }
});

test("both encodings are read, with mark and UTF-8 without", async () => {
    for (const bytes of [bytesOf(good), bytesOf("\ufeff" + good), utf16(good)]) {
        assert.deepEqual((await read(bytes)).cylinders, square);
    }
});

test("letters outside ASCII arrive in every encoding", async () => {
    const named = measuringText(square, "Größe");
    const single = new Uint8Array(Buffer.from(named.replace("UTF-8", "ISO-8859-1"), "latin1"));
    for (const bytes of [bytesOf(named), utf16(named), single])
        assert.equal((await read(bytes)).platform, "Größe");
});

test("names of elements count in any case, and the root may have any name", async () => {
    const shouted = good
        .replaceAll("MeasuringPoint", "MEASURINGPOINT")
        .replaceAll("<Axis", "<aXiS")
        .replaceAll("</Axis", "</aXiS");
    assert.deepEqual((await read(shouted)).cylinders, square);
    assert.deepEqual((await read(good.replaceAll("MeasuringData", "Whatever"))).cylinders, square);
});

test("names of attributes and of cylinders count as they are written", async () => {
    assert.equal(
        (await refused(good.replace('Name="cylinder1"', 'Name="Cylinder1"'))).key,
        "unknownPoint",
    );
    assert.equal(
        (await refused(good.replace('Name="cylinder1"', 'name="cylinder1"'))).key,
        "unknownPoint",
    );
    assert.equal(
        (await refused(good.replace('PlatformName="P"', 'platformname="P"'))).key,
        "noPlatformName",
    );
});

test("numbers are read from their front with a point or a comma", () => {
    const rows: [string, number | undefined][] = [
        ["12.5", 12.5],
        ["12,5", 12.5],
        ["12,5 mm", 12.5],
        ["12.5mm", 12.5],
        ["\n 7", 7],
        ["1.25e2", 125],
        ["1,234.5", 1.234],
        ["-3", -3],
        ["+3", 3],
        [".5", 0.5],
        ["5.", 5],
        ["1e", 1],
        ["0x1F", 31],
        ["0x.8p1", 1],
        ["0xg", 0],
        ["1e400", Infinity],
        ["inf", Infinity],
        ["-infinity", -Infinity],
        ["nan", NaN],
        ["", undefined],
        ["mm 5", undefined],
        ["- 5", undefined],
        ["--5", undefined],
        ["e5", undefined],
        [".", undefined],
    ];
    for (const [text, value] of rows) assert.equal(readNumber(text), value, text);
});

test("of two axes or points of one name the last counts, and a point is replaced whole", async () => {
    const twice = good.replace(axis("X", 0), axis("X", 99) + axis("x", 0));
    assert.deepEqual((await read(twice)).cylinders, square);
    const again = good.replace(
        "</MeasuringData>",
        pointElement("cylinder2", { x: 7, y: 8, z: 9 }) + "</MeasuringData>",
    );
    const got = await read(again);
    assert.deepEqual(got.cylinders[1], { x: 7, y: 8, z: 9 });
    assert.deepEqual(got.notices, [{ key: "pointTwice", values: { name: "cylinder2" } }]);
});

test("other elements, other axes, comments and any order are passed over", async () => {
    const points = square.map((each, i) => pointElement(`cylinder${i + 1}`, each)).reverse();
    const mixed = `<r PlatformName="P"><!-- c --><Other/>${points.join("<?p?>")}</r>`.replace(
        axis("X", 0),
        axis("W", "w") + axis("X", 0),
    );
    assert.deepEqual((await read(mixed)).cylinders, square);
});

test("a file whose name tells another platform is shown with a notice", async () => {
    const got = await read(good, "MeasuringData_Q.xml");
    assert.deepEqual(got.notices, [
        { key: "otherPlatform", values: { platform: "P", expected: "Q" } },
    ]);
    assert.deepEqual((await read(good, "copy of P.xml")).notices, []);
});

test("what is wrong is told with its line and column", async () => {
    const rows: [string, string, number, number][] = [
        [good.replace(axis("X", 0), axis("X", "none")), "noNumber", 3, 49],
        [good.replace(axis("X", 0), axis("X", "")), "noNumber", 3, 49],
        [good.replace(axis("X", 0), axis("X", "1e999")), "notFinite", 3, 49],
        [good.replace(axis("Y", 10), ""), "axesMissing", 3, 1],
        [good.replace("cylinder2", "cylinder5"), "unknownPoint", 4, 1],
        [good.replace(pointElement("cylinder4", square[3]!), ""), "pointsMissing", 2, 1],
        [good.slice(0, good.indexOf("cylinder3")), "valueCutOff", 5, 22],
        [good.slice(0, good.indexOf(' Name="cylinder3')), "elementCutOff", 2, 1],
        [good.slice(0, good.indexOf("</MeasuringData")), "elementCutOff", 2, 1],
        [good.replace("</MeasuringData>", "</Measuring>"), "otherClosingTag", 7, 1],
        [good.replace('"cylinder1"', "cylinder1"), "valueWithoutQuote", 3, 22],
        [good.replace(' Name="cylinder1"', " Name"), "otherClosingTag", 3, 38],
        ["<a/", "slashInTag", 1, 3],
        ["<a/x>", "slashInTag", 1, 3],
        ["<a b", "attributeWithoutValue", 1, 4],
        ["\n\n  <", "tagCutOff", 3, 3],
        ["<a>\r\n<b>&#x1234;</b></a>", "endlessReference", 2, 4],
        ["<html><body>x</body></html>", "neitherFile", 1, 1],
        ['<r PlatformName="P"></r>', "pointsMissing", 1, 1],
    ];
    for (const [text, key, line, column] of rows) {
        const got = await refused(text);
        assert.deepEqual(
            { key: got.key, place: got.place },
            { key, place: { line, column } },
            text,
        );
    }
});

test("axes are missed before a name is", async () => {
    const got = await refused(good.replace("cylinder1", "cylinder5").replace(axis("Z", 1), ""));
    assert.deepEqual([got.key, got.values], ["axesMissing", { name: "cylinder5", axes: "z" }]);
});

test("files that are no text of ours are told apart", async () => {
    const png = new Uint8Array([0x89, 0x50, 0x4e, 0x47, 13, 10, 26, 10, 0, 0, 0, 13]);
    const plain = new Uint8Array(Buffer.from(good, "utf16le"));
    const big = new Uint8Array([0xfe, 0xff, ...Buffer.from(good, "utf16le").swap16()]);
    const rows: [Uint8Array | string, string][] = [
        [new Uint8Array(), "fileEmpty"],
        [new Uint8Array([0xef, 0xbb, 0xbf]), "noText"],
        [new Uint8Array([0xff, 0xfe]), "noText"],
        [png, "noTextFile"],
        [plain, "utf16WithoutMark"],
        [big, "utf16BigEndian"],
        [good.replace("UTF-8", "UTF-16"), "declaredUtf16"],
        [good.replace("UTF-8", "A".repeat(200)), "declarationTooLong"],
        ["just text", "noElement"],
        ["</a>", "noElement"],
        ["<!-- only", "noElement"],
    ];
    for (const [bytes, key] of rows) assert.equal((await refused(bytes)).key, key);
    assert.deepEqual((await refused(png)).values, { position: 9 });
});

test("every file that is cut off anywhere is read or refused with a sentence", async () => {
    const whole = bytesOf(good);
    for (let length = 0; length < whole.length - 2; ++length) {
        const got = await readFile(whole.subarray(0, length), "x.xml");
        assert.ok(isProblem(got), `${length} bytes`);
    }
});

test("entities are resolved in passes until nothing changes", () => {
    const rows: [string, string][] = [
        ["&lt;&gt;&amp;&quot;&apos;", "<>&\"'"],
        ["&amp;lt;", "<"],
        ["&amp;amp;amp;", "&"],
        ["&#x41;", "A"],
        ["&#xE4;&#xe4;", "ää"],
        ["&#x4G;", "\u0004"],
        ["&#x0;", ""],
        ["&#65;", "&#65;"],
        ["&foo;", "&foo;"],
        ["a&b", "a&b"],
        ["&#x26;lt;", "<"],
    ];
    for (const [text, decoded] of rows) assert.equal(decodeEntities(text, 0), decoded, text);
    for (const text of ["&#x1234;", "&#x;", "&#x4"])
        assert.throws(() => decodeEntities(text, 0), { message: "endlessReference" });
});

test("text escaped a million times over is given up, not waited for", async () => {
    const text = `<a b="&${"amp;".repeat(1_000_000)}"/>`;
    assert.equal((await refused(text)).key, "tooManyEntities");
});

test("ten megabytes of anything are read in steps that let the page answer", async () => {
    const size = 10 * 1024 * 1024;
    const rows: [Uint8Array | string, string][] = [
        [new Uint8Array(size).fill(0x41), "noElement"],
        [new Uint8Array(size), "noTextFile"],
        ["<a>".repeat(size / 3), "elementCutOff"],
        ["<a/>".repeat(size / 4), "neitherFile"],
        [`<r>${"<a b='1'>x</a>\n".repeat(size / 15)}</r>`, "neitherFile"],
        ["<" + "a".repeat(size), "noElement"],
        ["<!--".repeat(size / 4), "noElement"],
    ];
    for (const [bytes, key] of rows) {
        let breaths = 0;
        const got = await readFile(
            typeof bytes === "string" ? bytesOf(bytes) : bytes,
            "x.xml",
            async () => void ++breaths,
        );
        assert.ok(isProblem(got));
        if (key !== "noElement") assert.equal(got.key, key);
        if (key === "elementCutOff") assert.ok(breaths > 1000, `${breaths} breaths`);
    }
});

test("a result document gives its message and both coordinate systems as they stand", async () => {
    const got = await result(goodResult);
    assert.deepEqual([got.type, got.title, got.message], ["confirm", "T", "M"]);
    assert.deepEqual(got.frames?.cs.o, { x: 1, y: 2, z: 3 });
    assert.deepEqual(got.frames?.ncs, {
        o: { x: -1, y: -2, z: -3 },
        x: { x: 1, y: 0, z: 0 },
        y: { x: 0, y: 1, z: 0 },
        z: { x: 0, y: 0, z: 1 },
    });
    assert.deepEqual(got.notices, []);
});

test("an error document gives its message with its line feeds", async () => {
    const got = await result(
        '<GETNCSRESULT><Message type="error" title="T">no &quot;P&quot;!\nMeasure.</Message></GETNCSRESULT>',
    );
    assert.deepEqual(
        [got.type, got.message, got.frames],
        ["error", 'no "P"!\nMeasure.', undefined],
    );
});

test("a result document that lacks something is refused with what it lacks", async () => {
    const rows: [string, string, object][] = [
        ["<getNCSResult/>", "elementMissing", { element: "message" }],
        [goodResult.replace("confirm", "other"), "unknownType", { type: "other" }],
        [goodResult.replace("<cs ", "<c "), "elementMissing", { element: "cs" }],
        [goodResult.replace("<ncs ", "<n "), "elementMissing", { element: "ncs" }],
        [
            goodResult.replace('o="1,2,3"', 'o="1,2"'),
            "noCoordinates",
            { element: "cs", attribute: "o", text: "1,2" },
        ],
        [
            goodResult.replace('o="1,2,3"', 'o="1,2,x"'),
            "noCoordinates",
            { element: "cs", attribute: "o", text: "1,2,x" },
        ],
        [
            goodResult.replace('o="1,2,3"', ""),
            "noCoordinates",
            { element: "cs", attribute: "o", text: "" },
        ],
        [
            goodResult.replace('o="1,2,3"', 'o="1,2,inf"'),
            "coordinatesNotFinite",
            { element: "cs", attribute: "o", text: "1,2,inf" },
        ],
        [
            goodResult.replace('o="-1', 'o="-nan'),
            "coordinatesNotFinite",
            { element: "ncs", attribute: "o", text: "-nan,-2,-3" },
        ],
    ];
    for (const [text, key, values] of rows) {
        const got = await refused(text);
        assert.deepEqual([got.key, got.values], [key, values], text);
    }
});

test("a result whose axes or whose inverse can't be the tool's is shown with a notice", async () => {
    const skewed = goodResult.replace(
        frameAttributes,
        frameAttributes.replace('y="0,1,0"', 'y="0.1,1,0"'),
    );
    assert.deepEqual((await result(skewed)).notices, [
        { key: "axesNotSquare", values: { element: "cs" } },
        { key: "notInverse" },
    ]);
    const moved = goodResult.replace('o="-1,-2,-3"', 'o="-1,-2,-4"');
    assert.deepEqual((await result(moved)).notices, [{ key: "notInverse" }]);
});
