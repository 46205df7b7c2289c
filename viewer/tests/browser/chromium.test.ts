// The page in Chromium, as a person meets it.
import assert from "node:assert/strict";
import { existsSync, mkdirSync, readdirSync, readFileSync, statSync, writeFileSync } from "node:fs";
import { createServer, type IncomingMessage, type Server, type ServerResponse } from "node:http";
import type { AddressInfo } from "node:net";
import { createRequire } from "node:module";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { after, afterEach, before, test } from "node:test";
import { PNG } from "pngjs";
import type { Browser, Page } from "puppeteer-core";
import {
    cells,
    choose,
    clear,
    drawn,
    drop,
    folder,
    foreign,
    makeFiles,
    open,
    pageUrl,
    places,
    settled,
    type shown,
    startChromium,
    textOf,
} from "../support/browser";
import { differing, keepForReadme, looksAsKept, tolerance } from "../support/pictures";
import { measuringText, square } from "../support/samples";

let browser: Browser;
let files: Record<string, string>;
let common: shown; // an English page that the tests share and leave empty
let page: Page;
const opened: shown[] = [];

async function openMore(
    ...wished: Parameters<typeof open> extends [Browser, ...infer Rest] ? Rest : never
): Promise<shown> {
    const more = await open(browser, ...wished);
    opened.push(more);
    return more;
}

// file NAME CONTENT: one more file for a test.
function made(name: string, content: string | Uint8Array): string {
    const path = join(folder, name);
    writeFileSync(path, content);
    return path;
}

before(async () => {
    files = makeFiles();
    browser = await startChromium();
    common = await open(browser);
    page = common.page;
});
after(async () => {
    await browser.close();
});
// Whatever a test did: no request, no error, and the next one finds an empty page.
afterEach(async () => {
    const used = [common, ...opened.splice(0)];
    await Promise.all(used.slice(1).map((each) => each.page.close()));
    await clear(page);
    const errors = used.flatMap((each) => each.errors.splice(0));
    const requests = used.flatMap((each) => foreign(each.requests.splice(0)));
    assert.deepEqual({ errors, requests }, { errors: [], requests: [] });
});

function near(value: number, expected: number, tolerance: number, what: string): void {
    assert.ok(Math.abs(value - expected) <= tolerance, `${what}: ${value} is not ${expected}`);
}

async function setFactor(shownPage: Page, step: number): Promise<void> {
    await shownPage.$eval(
        "#factor",
        (slider, value) => {
            (slider as HTMLInputElement).value = String(value);
            slider.dispatchEvent(new Event("input", { bubbles: true }));
        },
        step,
    );
}

test("an empty page asks for files and shows neither view nor numbers", async () => {
    assert.match(await textOf(page, "#intro"), /Drop a measuring file, a result document, or both/);
    assert.equal(await page.$eval("#content", (each) => (each as HTMLElement).hidden), true);
});

test("a measuring file and its result, chosen together, show the numbers a technician uses", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    assert.equal(
        (await textOf(page, "#subtitle")).replace(/\s/g, " "),
        "Platform P400, Measured: May 17, 2024, 9:41:27 AM",
    );
    const expected: Record<string, string[]> = {
        "Tilt about X": ["+0.0428°higher at cylinders 1, 2"],
        "Tilt about X, over 300 mm": ["+0.2242 mm"],
        "Tilt about Y": ["-0.0473°higher at cylinders 2, 3"],
        "Tilt about Y, over 400 mm": ["-0.3299 mm"],
        "Rotation about Z": ["+0.1250°"],
        "Origin X": ["+212.8348 mm"],
        "Origin Y": ["+168.8834 mm"],
        "Origin Z": ["+151.6054 mm"],
        "Height offset in the result": ["+0.3500 mm"],
        "1": ["12.5182", "318.4466", "151.2037", "+0.0012", "0.0001", "0.0000"],
        "4": ["13.1727", "18.4473", "150.9771", "-0.0012", "0.0002", "-0.0001"],
        "Side 1–2": ["399.9798 mm"],
        "Side 3–2": ["299.9997 mm"],
        "Difference of the diagonals": ["-0.0006 mm"],
        "o (mm)": ["212.83480000", "168.88340000", "151.60535000"],
    };
    for (const [head, values] of Object.entries(expected))
        assert.deepEqual(await cells(page, head), values, head);
});

test("the coordinate systems stand there as in the result document", async () => {
    await choose(page, 0, files["P20-result"]!);
    const shownFrames = await page.$$eval("#numbers .frames table", (tables) =>
        tables.map((each) =>
            [...each.querySelectorAll("tbody tr")].map((row) =>
                [...row.querySelectorAll("td")].map((cell) => cell.textContent),
            ),
        ),
    );
    const document = readFileSync(files["P20-result"]!, "utf8");
    for (const [i, name] of ["cs", "ncs"].entries()) {
        const element = new RegExp(`<${name} ([^/]*)/>`).exec(document)![1]!;
        ["o", "x", "y", "z"].forEach((attribute, row) => {
            const values = new RegExp(`\\b${attribute}="([^"]*)"`).exec(element)![1]!.split(",");
            assert.deepEqual(
                shownFrames[i]![row]!.map(Number),
                values.map((value) => Number(value) + 0),
                `${name} ${attribute}`,
            );
        });
    }
});

test("files can be dropped, one, both or all four, and find their place", async () => {
    await drop(
        page,
        "h1",
        files["later-result"]!,
        files.P400!,
        files["P400-result"]!,
        files.later!,
    );
    await settled(page, [files.P400!, files["P400-result"]!, files.later!, files["later-result"]!]);
    const names = (set: string): Promise<string[]> =>
        page.$$eval(`.set.${set} .fileName`, (all) => all.map((each) => each.textContent!));
    assert.deepEqual(await names("one"), ["MeasuringData_P400.xml", "result_P400.xml"]);
    assert.deepEqual(await names("other"), ["P400_later.xml", "result_later.xml"]);
    assert.equal(await textOf(page, "#notices"), "");
    await clear(page);
    await drop(page, ".set.other", files.P20!);
    await settled(page, [files.P20!]);
    assert.deepEqual([await names("one"), await names("other")], [[], ["MeasuringData_P20.xml"]]);
});

test("with a measuring file alone, what needs the result is not shown", async () => {
    await choose(page, 0, files.P400!);
    const heads = await page.$$eval("#numbers h3", (all) => all.map((each) => each.textContent));
    assert.deepEqual(heads, ["Cylinders", "Sides"]);
    assert.deepEqual(Object.keys(await places(page)).sort(), ["1", "2", "3", "4"]);
    assert.match(await textOf(page, "#numbers"), /are shown with the result document/);
    assert.doesNotMatch(await textOf(page, "#legend"), /axes/);
    looksAsKept("measuring-only", await (await page.$("#figure"))!.screenshot());
});

test("with a result alone, what needs the measuring file is not shown", async () => {
    await choose(page, 0, files["P20-result"]!);
    const heads = await page.$$eval("#numbers h3", (all) => all.map((each) => each.textContent));
    assert.deepEqual(heads, ["How the platform stands", "Coordinate systems"]);
    assert.deepEqual(await cells(page, "Tilt about Y"), ["-2.8624°higher at cylinders 2, 3"]);
    assert.match(await textOf(page, "#legend"), /drawn 200 mm wide/);
    assert.deepEqual(Object.keys(await places(page)).sort(), ["X", "Y", "Z", "x", "y", "z"]);
});

test("the view shows four cylinders, the plane and both coordinate systems", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    assert.deepEqual(Object.keys(await places(page)).sort(), [
        "1",
        "2",
        "3",
        "4",
        "X",
        "Y",
        "Z",
        "x",
        "y",
        "z",
    ]);
    const picture = await (await page.$("#figure"))!.screenshot();
    looksAsKept("oblique", picture);
    // The tolerance is no blindness: a step of the exaggeration is more than it lets pass.
    await setFactor(page, 20);
    assert.ok(differing(picture, await (await page.$("#figure"))!.screenshot()).part > tolerance);
});

test("one click looks from above, with X to the right and Y away", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    await page.click("#above");
    const at = await places(page);
    near(at["1"]!.y, at["2"]!.y, 4, "1 and 2 are at one height");
    near(at["1"]!.x, at["4"]!.x, 4, "1 and 4 are in one column");
    assert.ok(at["2"]!.x > at["1"]!.x && at["4"]!.y > at["1"]!.y);
    const scale = (at["2"]!.x - at["1"]!.x) / 400;
    near((at["4"]!.y - at["1"]!.y) / scale, 300, 2, "the other side in scale");
    assert.ok(at.X!.x > at.Y!.x && at.Y!.y < at.X!.y);
    looksAsKept("above", await (await page.$("#figure"))!.screenshot());
});

test("a click draws one picture, whatever it changes", async () => {
    const { page: counted } = await openMore({
        before: () => {
            const context = WebGL2RenderingContext.prototype;
            const clear = context.clear;
            context.clear = function (mask: number) {
                document.title = String(1 + (Number(document.title) || 0));
                clear.call(this, mask);
            };
        },
    });
    await choose(counted, 0, files.P400!, files["P400-result"]!);
    for (const button of ["#above", "#right", "#zoomIn"]) {
        await counted.evaluate(() => (document.title = "0"));
        await counted.click(button);
        await drawn(counted);
        assert.equal(await counted.title(), "1", button);
    }
});

test("a window that changes its size never shows an empty view", async () => {
    const { page: sized } = await openMore();
    await choose(sized, 0, files.P400!, files["P400-result"]!);
    // Asked behind the page's own observer, and before the browser shows the frame.
    await sized.evaluate(() => {
        const canvas = document.querySelector<HTMLCanvasElement>("#canvas")!;
        const copy = document.createElement("canvas").getContext("2d")!;
        document.title = "";
        new ResizeObserver(() => {
            copy.clearRect(0, 0, 1, 1);
            copy.drawImage(canvas, 0, 0);
            document.title += copy.getImageData(0, 0, 1, 1).data[3] === 255 ? "drawn" : "empty";
        }).observe(canvas);
    });
    await drawn(sized);
    await sized.setViewport({ width: 900, height: 800 });
    await drawn(sized);
    assert.match(await sized.title(), /^(drawn){2,}$/);
});

test("the exaggeration goes from 1 to 1000, says so, and is what is drawn", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    await page.click("#front");
    const slope = async (): Promise<number> => {
        const at = await places(page);
        return (at["4"]!.y - at["2"]!.y) / (at["2"]!.x - at["4"]!.x);
    };
    // Cylinder 2 is 0.5541 mm higher than 4 and 399.3242 mm to the right, 300.872 mm farther; the
    // look is from 0.02 above, which lifts what is behind.
    const expected = (factor: number): number => (0.5541 * factor + 0.02 * 300.872) / 399.3242;
    for (const [step, factor, text] of [
        [0, 1, "Heights true to scale (1×)"],
        [18, 100, "Heights exaggerated 100×"],
        [27, 1000, "Heights exaggerated 1,000×"],
    ] as const) {
        await setFactor(page, step);
        assert.equal(await textOf(page, "#caption"), text);
        assert.equal(
            await page.$eval("#factor", (each) => each.getAttribute("aria-valuetext")),
            await textOf(page, "#factorText"),
        );
        near(await slope(), expected(factor), 0.02 * expected(factor) + 0.003, text);
    }
});

test("mouse and wheel turn, move and zoom", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    const canvas = (await (await page.$("#canvas"))!.boundingBox())!;
    const [x, y] = [canvas.x + canvas.width / 2, canvas.y + canvas.height * 0.9];
    const width = async (): Promise<number> => {
        const at = await places(page);
        return Math.hypot(at["1"]!.x - at["2"]!.x, at["1"]!.y - at["2"]!.y);
    };
    const drag = async (button: "left" | "right"): Promise<void> => {
        await page.mouse.move(x, y);
        await page.mouse.down({ button });
        await page.mouse.move(x + 80, y, { steps: 4 });
        await page.mouse.up({ button });
    };
    const first = await places(page);
    await drag("left");
    await page.waitForFunction(
        (was) =>
            parseFloat(document.querySelector<HTMLElement>("#labels button")!.style.left) !== was,
        {},
        first["1"]!.x,
    );
    const turned = await places(page);
    assert.ok(
        Math.abs(turned["1"]!.y - first["1"]!.y - (turned["3"]!.y - first["3"]!.y)) > 10,
        "turned",
    );
    await drag("right");
    await page.waitForFunction(
        (was) =>
            Math.abs(
                parseFloat(document.querySelector<HTMLElement>("#labels button")!.style.left) - was,
            ) > 40,
        {},
        turned["1"]!.x,
    );
    const moved = await places(page);
    for (const each of ["1", "2", "3", "4"])
        near(moved[each]!.x - turned[each]!.x, 80, 6, `${each} has moved along`);
    const before = await width();
    await page.mouse.wheel({ deltaY: -300 });
    await page.waitForFunction(
        (was) =>
            Math.abs(
                parseFloat(document.querySelector<HTMLElement>("#labels button")!.style.left) - was,
            ) > 2,
        {},
        moved["1"]!.x,
    );
    assert.ok((await width()) > before * 1.05, "zoomed in");
});

test("keys turn, move and zoom, and 0 shows all again", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    await page.focus("#canvas");
    const states = [JSON.stringify(await places(page))];
    const start = await places(page);
    for (const keys of [["ArrowLeft"], ["ArrowUp"], ["Shift", "ArrowRight"], ["+"], ["-"]]) {
        for (const key of keys.slice(0, -1)) await page.keyboard.down(key as "Shift");
        await page.keyboard.press(keys[keys.length - 1] as "ArrowLeft");
        for (const key of keys.slice(0, -1)) await page.keyboard.up(key as "Shift");
        const now = JSON.stringify(await places(page));
        assert.notEqual(now, states[states.length - 1], keys.join());
        states.push(now);
    }
    assert.equal(states[3], states[5], "minus takes back plus");
    await page.keyboard.press("ArrowRight");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("0");
    const end = await places(page);
    for (const each of Object.keys(start)) {
        near(end[each]!.x, start[each]!.x, 1, each);
        near(end[each]!.y, start[each]!.y, 1, each);
    }
});

test("a hover tells a point's values, a focus too, and Escape puts them away", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    const canvas = (await (await page.$("#canvas"))!.boundingBox())!;
    const label = (await places(page))["3"]!;
    const values =
        "Cylinder 3\nX\n413.1514 mm\nY\n19.3204 mm\nZ\n151.3094 mm\nDeviation from plane\n+0.0012 mm\nDistance from rectangle\n0.0002 mm\nAngle beyond 90°\n+0.0001°";
    const told = async (): Promise<string> =>
        (await textOf(page, "#tooltip")).replaceAll("\u00a0", " ");
    // The cylinder itself is below its label.
    await page.mouse.move(canvas.x + label.x, canvas.y + label.y + 28);
    await page.waitForSelector("#tooltip", { visible: true });
    assert.equal(await told(), values);
    await page.keyboard.press("Escape");
    await page.waitForSelector("#tooltip", { hidden: true });
    await page.mouse.move(canvas.x + 5, canvas.y + 5);
    await page.focus("#labels button:nth-of-type(3)");
    await page.waitForSelector("#tooltip", { visible: true });
    assert.equal(await told(), values);
    const name = await page.$eval(
        "#labels button:nth-of-type(3)",
        (each) => each.getAttribute("aria-label")!,
    );
    assert.match(name, /^3 Cylinder: X 413.1514/);
    await page.keyboard.press("Escape");
    await page.waitForSelector("#tooltip", { hidden: true });
});

test("two measurements lie over each other, with their differences", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    await choose(page, 1, files.later!, files["later-result"]!);
    const labels = Object.keys(await places(page));
    for (const each of ["1", "4", "1′", "4′", "X", "X′", "Z′", "x"])
        assert.ok(labels.includes(each), each);
    // One corner has gone up by 0.5: the mean by an eighth of a millimetre.
    assert.deepEqual(await cells(page, "Origin Z"), ["+151.6054 mm", "+151.7304 mm", "+0.1250 mm"]);
    assert.deepEqual(await cells(page, "Distance between the origins"), ["", "", "0.1250 mm"]);
    const differences = await page.$$eval("#numbers .cylinders.scrolled", (tables) =>
        [...tables[2]!.querySelectorAll("tbody tr")].map((row) =>
            [...row.querySelectorAll("td")].slice(0, 4).map((cell) => cell.textContent),
        ),
    );
    assert.deepEqual(
        differences.map((row) => row.slice(0, 3)),
        [
            ["0.0000", "0.0000", "+0.5000"],
            ["0.0000", "0.0000", "0.0000"],
            ["0.0000", "0.0000", "0.0000"],
            ["0.0000", "0.0000", "0.0000"],
        ],
    );
    assert.deepEqual(
        differences.map((row) => row[3]),
        ["+0.1250", "-0.1250", "+0.1250", "-0.1250"],
    );
    looksAsKept("compared", await (await page.$("#figure"))!.screenshot());
});

test("two platforms that differ, and a result of another measurement, are told", async () => {
    await choose(page, 0, files.P400!, files["P20-result"]!);
    assert.match(await textOf(page, "#notices"), /259\.4 mm off the middle of the cylinders/);
    await choose(page, 1, files.P20!);
    assert.match(
        await textOf(page, "#notices"),
        /Two different platforms are compared: “P400” and “P20”/,
    );
});

test("an error document shows its message and nothing else", async () => {
    await choose(page, 0, files.error!);
    assert.match(
        await textOf(page, ".message.error"),
        /Platform information for "P7" not found!\nPlease use build process/,
    );
    assert.equal(await page.$eval("#content", (each) => (each as HTMLElement).hidden), true);
});

test("files that can't be used give a sentence with what and where, and the page goes on", async () => {
    const good = measuringText(square);
    const rows: [name: string, content: string | Uint8Array, sentence: RegExp][] = [
        [
            "picture.xml",
            new PNG({ width: 9, height: 9 }) && PNG.sync.write(new PNG({ width: 9, height: 9 })),
            /^picture\.xml: This is no text file: there is a zero at byte 9\.$/,
        ],
        [
            "page.html",
            "<html><body>x</body></html>",
            /^page\.html: Line 1, column 1: This is neither a measuring file nor a result document: the root element is “html”/,
        ],
        [
            "cut.xml",
            good.slice(0, good.indexOf("</MeasuringData")),
            /^cut\.xml: Line 2, column 1: The element “MeasuringData” that begins here is not closed: the file is cut off\.$/,
        ],
        [
            "nonumber.xml",
            good.replace(">20<", ">about 20<"),
            /^nonumber\.xml: Line 4, column 49: The x coordinate is no number: “about 20”\.$/,
        ],
        [
            "three.xml",
            good.replace("cylinder3", "cylinder2"),
            /^three\.xml: Line 2, column 1: Not all four cylinders are there, or the file is cut off\. Missing: cylinder3\.$/,
        ],
        ["empty.xml", "", /^empty\.xml: The file is empty\.$/],
        [
            "script.xml",
            `<a b="<img src=x onerror=alert(1)>"><script>alert(2)</script></a>`,
            /^script\.xml: Line 1, column 1: This is neither/,
        ],
    ];
    const paths = rows.map(([name, content]) => made(name, content));
    await choose(page, 0, ...paths);
    const sentences = await page.$$eval(".problem span", (all) =>
        all.map((each) => each.textContent!),
    );
    rows.forEach(([, , sentence], i) => assert.match(sentences[i]!, sentence));
    assert.equal(await page.$eval("#problems", (each) => each.getAttribute("role")), "alert");
    await choose(page, 0, files.P20!);
    assert.deepEqual(await cells(page, "Side 1–2"), ["20.0250 mm"]);
});

test("a folder is no file, and that is told", async () => {
    mkdirSync(join(folder, "a folder.xml"), { recursive: true });
    await drop(page, "h1", join(folder, "a folder.xml"));
    await page.waitForSelector(".problem");
    assert.match(
        await textOf(page, ".problem span"),
        /^a folder\.xml: The file can't be opened for reading\.$/,
    );
});

test("ten megabytes of something else are refused, and the page answers meanwhile", async () => {
    const size = 10 * 1024 * 1024;
    const noise = new Uint8Array(size).map((_, i) => (i * 7919 + (i >> 8)) & 0xff);
    await choose(page, 0, made("noise.xml", noise));
    assert.match(await textOf(page, ".problem span"), /^noise\.xml: /);
    await clear(page);

    await page.evaluate(() => {
        const counted = window as unknown as { answers: number };
        counted.answers = 0;
        const count = (): void => {
            if (document.getElementById("status")!.textContent!.startsWith("Reading"))
                ++counted.answers;
            setTimeout(count, 0);
        };
        count();
    });
    await choose(page, 0, made("deep.xml", "<a>".repeat(size / 3)));
    assert.match(
        await textOf(page, ".problem span"),
        /^deep\.xml: Line 1, column \d+: The element “a” that begins here is not closed/,
    );
    const answers = await page.evaluate(() => (window as unknown as { answers: number }).answers);
    assert.ok(answers >= 3, `${answers} answers while the file was read`);
});

test("names with markup in them stay text", async () => {
    const platform = "&lt;b&gt;&lt;img src=x&gt;&amp;quot;";
    await choose(page, 0, made("odd.xml", measuringText(square, platform)));
    assert.match(await textOf(page, "#subtitle"), /^Platform <b><img src=x>", Measured/);
    assert.equal(await page.$("#subtitle img"), null);
});

test("coordinates beyond all measure do no harm", async () => {
    await choose(
        page,
        0,
        made(
            "huge.xml",
            measuringText(square.map(({ x, y }) => ({ x: x * 1e307, y: y * 1e307, z: -1e308 }))),
        ),
    );
    await choose(
        page,
        0,
        made("line.xml", measuringText(square.map(({ x }) => ({ x, y: x, z: x })))),
    );
    assert.match(await textOf(page, "#notices"), /there is no plane and no rectangle/);
});

// A download is complete when the browser has given it its name.
async function saved(from: Page, button: string, name: string): Promise<Buffer> {
    const target = join(folder, "saved");
    mkdirSync(target, { recursive: true });
    const session = await from.createCDPSession();
    await session.send("Browser.setDownloadBehavior", {
        behavior: "allow",
        downloadPath: target,
        eventsEnabled: true,
    });
    const done = new Promise<void>((resolve, reject) => {
        session.on("Browser.downloadProgress", ({ state }) => {
            if (state === "completed") resolve();
            if (state === "canceled") reject(new Error(`${name} was not saved`));
        });
    });
    await from.click(button);
    await done;
    await session.detach();
    assert.ok(existsSync(join(target, name)), readdirSync(target).join());
    return readFileSync(join(target, name));
}

test("the view is saved as PNG and SVG, the numbers as CSV", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    const png = PNG.sync.read(await saved(page, "#savePng", "P400.png"));
    const canvas = await page.$eval("#canvas", (each) => [each.clientWidth, each.clientHeight]);
    assert.deepEqual(
        [png.width, png.height],
        canvas.map((size) => 2 * size),
    );
    looksAsKept("saved", PNG.sync.write(png));

    const svg = (await saved(page, "#saveSvg", "P400.svg")).toString();
    for (const text of ["Heights exaggerated 100×", "Platform P400, Measured: May 17, 2024"])
        assert.ok(svg.includes(text), text);
    const seen = await browser.newPage();
    await seen.setViewport({ width: canvas[0]!, height: canvas[1]! });
    await seen.goto(pathToFileURL(join(folder, "saved", "P400.svg")).href);
    looksAsKept("saved-svg", await seen.screenshot());
    await seen.close();

    const csv = (await saved(page, "#saveCsv", "P400.csv")).toString().split("\r\n");
    assert.equal(csv[1], "Group,Quantity,Unit,Value");
    assert.ok(csv.includes("How the platform stands,Tilt about X,°,0.0428"));
    assert.ok(
        csv.includes('Coordinate systems,"ncs, the machine in the platform o.x",mm,-213.32782803'),
    );
});

function pagesOf(pdf: Uint8Array): number {
    return (
        Buffer.from(pdf)
            .toString("latin1")
            .match(/\/Type\s*\/Page\b/g)?.length ?? 0
    );
}

test("print fills one page, with one measurement and with two, also in wordy languages", async () => {
    const dark = await openMore({ dark: true });
    const print = async (): Promise<number> =>
        pagesOf(await dark.page.pdf({ preferCSSPageSize: true, printBackground: true }));
    const inLanguages = async (codes: string[], state: string): Promise<void> => {
        for (const code of codes) {
            await dark.page.select("#language", code);
            assert.equal(await print(), 1, `${state} in ${code}`);
        }
    };
    await choose(dark.page, 0, files.P400!, files["P400-result"]!);
    await inLanguages(["en", "de", "fr", "pl", "ja"], "one");
    await choose(dark.page, 1, files.later!, files["later-result"]!);
    await inLanguages(["fr", "es"], "two");
});

test("what is printed is the light picture, also from a dark page", async () => {
    const dark = await openMore({ dark: true });
    await choose(dark.page, 0, files.P400!, files["P400-result"]!);
    const colour = await dark.page.evaluate(() => {
        window.dispatchEvent(new Event("beforeprint"));
        const canvas = document.querySelector<HTMLCanvasElement>("#printed canvas")!;
        const corner = [...canvas.getContext("2d")!.getImageData(3, 3, 1, 1).data];
        window.dispatchEvent(new Event("afterprint"));
        return { corner, left: document.querySelector("#printed canvas") };
    });
    assert.deepEqual(colour, { corner: [0xf6, 0xf8, 0xfa, 255], left: null });
    looksAsKept("dark", await (await dark.page.$("#figure"))!.screenshot());
});

test("the page speaks the browser's language, each of the nine, and can be switched", async () => {
    const rows: [wanted: string, code: string, title: string, side: string][] = [
        ["de-CH,en", "de", "Gemessene Plattform", "20,0250 mm"],
        ["fr", "fr", "Plateforme mesurée", "20,0250 mm"],
        ["it", "it", "Piattaforma misurata", "20,0250 mm"],
        ["es-MX", "es", "Plataforma medida", "20,0250 mm"],
        ["pl", "pl", "Zmierzona platforma", "20,0250 mm"],
        ["cs", "cs", "Změřená platforma", "20,0250 mm"],
        ["ja", "ja", "測定したプラットフォーム", "20.0250 mm"],
        ["zh-CN", "zh-Hans", "已测量的平台", "20.0250 mm"],
        ["sv,en-GB", "en", "Measured platform", "20.0250 mm"],
    ];
    await choose(page, 0, files.P20!);
    for (const [wanted, code, title, side] of rows) {
        const other = await openMore({ languages: wanted });
        const read = (from: Page): Promise<string[]> =>
            from.evaluate(() => [
                document.documentElement.lang,
                document.querySelector("h1")!.textContent!,
            ]);
        assert.deepEqual(await read(other.page), [code, title]);
        await page.select("#language", code);
        assert.deepEqual(await read(page), [code, title]);
        const sides = await page.$$eval("#numbers .sides tbody td", (all) =>
            all.map((each) => each.textContent!.replaceAll("\u00a0", " ")),
        );
        assert.equal(sides[0], side, code);
    }
    await page.select("#language", "de");
    await choose(page, 0, made("leer.xml", ""));
    assert.equal(await textOf(page, ".problem span"), "leer.xml: Die Datei ist leer.");
    assert.equal(await textOf(page, "#caption"), "Höhen maßstäblich (1×)");
    await page.select("#language", "en");
});

test("each number's formula is told in the page", async () => {
    await page.$eval("#formulas", (each) => ((each as HTMLDetailsElement).open = true));
    const told = await textOf(page, "#formulaList");
    for (const formula of [
        "asin(cs.y.z)",
        "−cs.x.z · LX",
        "atan2(cs.x.y, cs.x.x)",
        "n · (Pᵢ − C)",
        "Σ |Qᵢ − Rᵢ|² → min",
        "cs.o.z − (P1.z",
        "z′ = k · (z − C.z)",
    ]) {
        assert.ok(told.includes(formula), formula);
    }
    assert.match(told, /cs and ncs stand in the result document and are shown as they are/);
    await page.$eval("#formulas", (each) => ((each as HTMLDetailsElement).open = false));
});

test("the licences of what the page contains are in it", async () => {
    const text = await page.$eval("#licences pre", (each) => each.textContent!);
    const { dependencies } = JSON.parse(readFileSync("package.json", "utf8")) as {
        dependencies: { three: string };
    };
    assert.ok(text.startsWith(`three ${dependencies.three}\n`));
    assert.match(text, /The MIT License/);
    assert.match(text, /three\.js authors/);
});

test("the page is one file of less than 1.5 MB that names no other", () => {
    const path = new URL(pageUrl).pathname;
    assert.ok(statSync(path).size < 1.5e6);
    assert.doesNotMatch(
        readFileSync(path, "utf8"),
        /<(?:script|link|img|iframe)[^>]+(?:src|href)="(?!data:)/,
    );
});

// Everything by which a page could send something, tried from inside it. Each is given the time to
// fail by itself: a violation of the policy, or an error.
function tryToConnect(base: string): Promise<string[]> {
    const violations: string[] = [];
    document.addEventListener("securitypolicyviolation", (event) =>
        violations.push(event.effectiveDirective),
    );
    const quietly = (attempt: () => unknown): void => {
        try {
            void Promise.resolve(attempt()).catch(() => undefined);
        } catch {
            // refused at once
        }
    };
    const element = (name: string, key: string): void => {
        const made = document.createElement(name);
        made.setAttribute(key, `${base}/${name}`);
        if (name === "link") made.setAttribute("rel", "stylesheet");
        document.body.append(made);
    };
    quietly(() => fetch(`${base}/fetch`, { mode: "no-cors" }));
    quietly(() => fetch(`${base}/post`, { mode: "no-cors", method: "POST", body: "data" }));
    quietly(() => navigator.sendBeacon(`${base}/beacon`, "data"));
    quietly(() => new WebSocket(base.replace("http", "ws")));
    quietly(() => new EventSource(`${base}/events`));
    quietly(() => new Worker(`${base}/worker`));
    quietly(() => {
        const request = new XMLHttpRequest();
        request.open("GET", `${base}/xhr`);
        request.send();
    });
    for (const name of ["img", "script", "iframe", "audio", "embed"])
        quietly(() => element(name, "src"));
    quietly(() => element("link", "href"));
    quietly(() => new FontFace("x", `url(${base}/font)`).load());
    return new Promise((resolve) => setTimeout(() => resolve(violations), 1000));
}

// The same tries in both pages; gives what arrived at a server of this machine.
async function arrivals(
    from: Page,
    server: Server,
): Promise<{ violations: string[]; arrived: string[] }> {
    const arrived: string[] = [];
    const note = (request: IncomingMessage, response: ServerResponse): void => {
        arrived.push(request.url!);
        response.end();
    };
    server.on("request", note);
    const base = `http://127.0.0.1:${(server.address() as AddressInfo).port}`;
    const violations = await from.evaluate(tryToConnect, base);
    server.off("request", note);
    return { violations, arrived };
}

test("nothing can be sent: the policy stops every way out, and without it the same would arrive", async () => {
    const server = createServer();
    await new Promise<void>((resolve) => server.listen(0, "127.0.0.1", resolve));
    const [guarded, unguarded] = [await browser.newPage(), await browser.newPage()];
    try {
        await guarded.goto(pageUrl);
        const { violations, arrived } = await arrivals(guarded, server);
        for (const directive of [
            "connect-src",
            "img-src",
            "script-src-elem",
            "frame-src",
            "style-src-elem",
            "font-src",
            "media-src",
            "object-src",
        ]) {
            assert.ok(
                violations.includes(directive),
                `${directive} of ${[...new Set(violations)].join()}`,
            );
        }
        assert.equal(arrived.join(), "");

        await unguarded.setBypassCSP(true);
        await unguarded.goto(pageUrl);
        const free = await arrivals(unguarded, server);
        for (const way of ["/fetch", "/post", "/xhr", "/img", "/script"])
            assert.ok(free.arrived.includes(way), `${way} of ${free.arrived.join()}`);
    } finally {
        await guarded.close();
        await unguarded.close();
        server.closeAllConnections();
        server.close();
    }
});

test("without WebGL the numbers are there, and a sentence in place of the view", async () => {
    const plain = await openMore({
        before: () => {
            HTMLCanvasElement.prototype.getContext = (() => null) as never;
        },
    });
    await choose(plain.page, 0, files.P20!, files["P20-result"]!);
    assert.match(await textOf(plain.page, "#noWebgl"), /can't draw in 3D/);
    assert.deepEqual(await cells(plain.page, "Side 1–2"), ["20.0250 mm"]);
    assert.equal(await plain.page.$("#savePng"), null);
    // The library says on the console that there is no WebGL.
    plain.errors.length = 0;
});

test("every control is reached by the Tab key and has a name", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    await page.focus("#language");
    const reached = ["language"];
    for (let i = 0; i < 60; ++i) {
        await page.keyboard.press("Tab");
        const name = await page.evaluate(() => {
            const at = document.activeElement;
            return at === null || at === document.body
                ? ""
                : at.id || at.getAttribute("aria-label") || at.textContent!.trim();
        });
        if (name === "" || name === reached[0]) break;
        reached.push(name);
    }
    for (const each of [
        "language",
        "Remove result_P400.xml",
        "Choose files …",
        "above",
        "canvas",
        "factor",
        "savePng",
        "print",
        "How the numbers are found",
    ]) {
        assert.ok(reached.includes(each), `${each} of ${reached.join(" | ")}`);
    }
    assert.equal(reached.filter((each) => /^[1-4] Cylinder/.test(each)).length, 4);
    const tree = await page.accessibility.snapshot();
    const nameless = (tree?.children ?? []).filter(
        ({ role, name }) =>
            ["button", "slider", "combobox", "image", "table"].includes(role) && !name,
    );
    assert.deepEqual(
        nameless.filter(({ role }) => role !== "table"),
        [],
    );
});

test("the accessibility checker finds nothing, light and dark, in every state", async () => {
    const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
    const check = async (of: Page, state: string): Promise<void> => {
        await of.evaluate(axe);
        const found = await of.evaluate(async () => {
            const run = (
                window as unknown as {
                    axe: {
                        run: (options: object) => Promise<{
                            violations: {
                                id: string;
                                nodes: { html: string; failureSummary: string }[];
                            }[];
                        }>;
                    };
                }
            ).axe.run;
            const tags = ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "best-practice"];
            const { violations } = await run({ runOnly: { type: "tag", values: tags } });
            return violations.map(
                ({ id, nodes }) =>
                    `${id}: ${nodes.map(({ html, failureSummary }) => `${html} ${failureSummary}`).join("\n")}`,
            );
        });
        assert.deepEqual(found, [], state);
    };
    for (const dark of [false, true]) {
        const scheme = dark ? "dark" : "light";
        const other = await openMore({ dark });
        await check(other.page, `${scheme}, empty`);
        await choose(other.page, 0, files.P400!, files["P20-result"]!, made("leer.xml", ""));
        await other.page.evaluate(() =>
            document.querySelectorAll("details").forEach((each) => (each.open = true)),
        );
        await other.page.focus("#labels button");
        await check(other.page, `${scheme}, one measurement, a problem and a notice`);
        await choose(other.page, 1, files.later!, files.error!);
        await check(other.page, `${scheme}, two measurements and an error document`);
    }
});

test("the whole page looks as it did, in German", async () => {
    const whole = await openMore({ languages: "de", width: 1200, height: 960 });
    await choose(whole.page, 0, files.P400!, files["P400-result"]!);
    looksAsKept("page", await whole.page.screenshot());
    await whole.page.select("#language", "en");
    keepForReadme(await whole.page.screenshot());
});
