// The main views in Firefox.
import assert from "node:assert/strict";
import { writeFileSync } from "node:fs";
import { join } from "node:path";
import { after, before, test } from "node:test";
import type { Browser, Page } from "puppeteer-core";
import {
    cells,
    choose,
    folder,
    foreign,
    makeFiles,
    pageUrl,
    places,
    startFirefox,
    textOf,
} from "../support/browser";
import { type display, startDisplay } from "../support/display";
import { looksAsKept } from "../support/pictures";

let display: display;
let browser: Browser;
let page: Page;
let files: Record<string, string>;
const requests: string[] = [];
const errors: string[] = [];

before(async () => {
    files = makeFiles();
    display = await startDisplay();
    browser = await startFirefox(display.name);
    page = await browser.newPage();
    page.setDefaultTimeout(120_000);
    page.on("request", (request) => requests.push(request.url()));
    page.on("pageerror", (error) => errors.push(String(error)));
    await page.goto(pageUrl);
    await page.evaluate(() =>
        document.documentElement.style.setProperty("--font", '"DejaVu Sans"'),
    );
});
after(async () => {
    await browser.close();
    display.stop();
});

async function figure(): Promise<Uint8Array> {
    return (await page.$("#figure"))!.screenshot();
}

test("Firefox: a measuring file and its result are drawn in 3D, with their numbers", async () => {
    await choose(page, 0, files.P400!, files["P400-result"]!);
    assert.equal(await page.$eval("#noWebgl", (each) => (each as HTMLElement).hidden), true);
    assert.deepEqual(await cells(page, "Tilt about X"), ["+0.0428°higher at cylinders 1, 2"]);
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
    looksAsKept("firefox-oblique", await figure());
});

test("Firefox: from above with one click", async () => {
    await page.click("#above");
    const at = await places(page);
    assert.ok(
        Math.abs(at["1"]!.y - at["2"]!.y) < 4 &&
            at["2"]!.x > at["1"]!.x + 100 &&
            at["4"]!.y > at["1"]!.y + 100,
    );
    looksAsKept("firefox-above", await figure());
});

test("Firefox: a focus tells a point's values", async () => {
    await page.focus("#labels button");
    assert.match(
        (await textOf(page, "#tooltip")).replaceAll("\u00a0", " "),
        /^Cylinder 1\nX\n12\.5182 mm/,
    );
    await page.keyboard.press("Escape");
    assert.equal(await page.$eval("#tooltip", (each) => (each as HTMLElement).hidden), true);
});

test("Firefox: two measurements lie over each other", async () => {
    await choose(page, 1, files.later!, files["later-result"]!);
    assert.deepEqual(await cells(page, "Origin Z"), ["+151.6054 mm", "+151.7304 mm", "+0.1250 mm"]);
    looksAsKept("firefox-compared", await figure());
});

test("Firefox: a bad file gives its sentence, and German is spoken when chosen", async () => {
    await page.select("#language", "de");
    const wrong = join(folder, "seite.html");
    writeFileSync(wrong, "<html></html>");
    await choose(page, 0, wrong);
    assert.match(
        await textOf(page, ".problem span"),
        /^seite\.html: Zeile 1, Spalte 1: Dies ist weder eine Messdatei noch/,
    );
});

test("Firefox: no request was made and no script failed", () => {
    assert.deepEqual(errors, []);
    assert.deepEqual(foreign(requests), []);
});
