// The page in a real browser: opened from its file, given files as a person gives them, and watched
// for requests and errors.
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { setTimeout as pause } from "node:timers/promises";
import { pathToFileURL } from "node:url";
import puppeteer, {
    type Browser,
    type CDPSession,
    type ElementHandle,
    type Page,
} from "puppeteer-core";
import { examples, resultOf, runTool } from "./samples";

const pageFile = process.env.VIEWER_PAGE ?? "";
export const folder = process.env.VIEWER_WORK ?? "";
if (pageFile === "" || folder === "") throw new Error("run by scripts/check-viewer");
export const pageUrl = pathToFileURL(pageFile).href;

// In software, so that every machine draws the same.
const chromiumSwitches = [
    "--no-sandbox",
    "--disable-dev-shm-usage",
    "--disable-gpu",
    "--use-angle=swiftshader",
    "--enable-unsafe-swiftshader",
    "--force-device-scale-factor=1",
    "--font-render-hinting=none",
    "--disable-lcd-text",
];

export function startChromium(): Promise<Browser> {
    return puppeteer.launch({
        executablePath: "/usr/bin/chromium",
        args: chromiumSwitches,
        env: { ...process.env, TZ: "UTC" },
        protocolTimeout: 90_000,
    });
}

// On a display, as without one it does not draw in 3D.
export function startFirefox(display: string): Promise<Browser> {
    return puppeteer.launch({
        browser: "firefox",
        executablePath: "/usr/bin/firefox-esr",
        headless: false,
        // A size of the page apart from the window's is what older ones can't be told.
        defaultViewport: null,
        args: ["--width=1280", "--height=1100"],
        extraPrefsFirefox: {
            "webgl.force-enabled": true,
            "intl.accept_languages": "en",
            "ui.systemUsesDarkTheme": 0,
        },
        env: { ...process.env, TZ: "UTC", DISPLAY: display, LIBGL_ALWAYS_SOFTWARE: "1" },
        protocolTimeout: 180_000,
        timeout: 120_000,
    });
}

export interface shown {
    page: Page;
    errors: string[]; // of scripts and of the console
    requests: string[];
}

export interface wishes {
    width?: number;
    height?: number;
    dark?: boolean;
    languages?: string;
    before?: () => void; // runs in the page before its own script
}

export async function open(browser: Browser, wished: wishes = {}): Promise<shown> {
    const page = await browser.newPage();
    page.setDefaultTimeout(60_000);
    const got: shown = { page, errors: [], requests: [] };
    page.on("pageerror", (error) => got.errors.push(String(error)));
    page.on("console", (message) => {
        if (message.type() === "error") got.errors.push(message.text());
    });
    page.on("request", (request) => got.requests.push(request.url()));
    await page.setViewport({ width: wished.width ?? 1280, height: wished.height ?? 1000 });
    await page.emulateMediaFeatures([
        { name: "prefers-color-scheme", value: wished.dark === true ? "dark" : "light" },
    ]);
    const session = await page.createCDPSession();
    const userAgent = await browser.userAgent();
    await session.send("Emulation.setUserAgentOverride", {
        userAgent,
        acceptLanguage: wished.languages ?? "en",
    });
    if (wished.before !== undefined) await page.evaluateOnNewDocument(wished.before);
    await page.goto(pageUrl);
    await page.evaluate(() =>
        document.documentElement.style.setProperty("--font", '"DejaVu Sans"'),
    );
    return got;
}

// What the page may load: itself, and what it makes.
export function foreign(requests: string[]): string[] {
    return requests.filter(
        (url) => url !== pageUrl && !url.startsWith("data:") && !url.startsWith("blob:"),
    );
}

// Files of the examples, with results of the tool, under names that a taven folder has.
export function makeFiles(): Record<string, string> {
    mkdirSync(folder, { recursive: true });
    const files: Record<string, string> = {};
    const keep = (key: string, name: string, content: Uint8Array | string): void => {
        mkdirSync(join(folder, key), { recursive: true });
        files[key] = join(folder, key, name);
        writeFileSync(files[key], content);
    };
    for (const platform of ["P20", "P400"]) {
        keep(
            platform,
            `MeasuringData_${platform}.xml`,
            readFileSync(join(examples, `MeasuringData_${platform}.xml`)),
        );
        keep(
            `${platform}-result`,
            `result_${platform}.xml`,
            resultOf(platform, platform === "P20" ? "0.25" : "0.35"),
        );
    }
    // The same platform three weeks later, with a corner that has gone up by half a millimetre.
    const later = readFileSync(join(examples, "MeasuringData_P400.xml"), "utf8")
        .replace("2024-4-17Z", "2024-5-8Z")
        .replace("151.2037", "151.7037");
    keep("later", "P400_later.xml", later);
    keep("later-result", "result_later.xml", runTool(Buffer.from(later), "P400", "0.35").result!);
    keep("error", "result_error.xml", runTool(undefined, "P7").result!);
    return files;
}

// Chooses files by the button of the first or the second place, and waits until they are shown.
export async function choose(page: Page, set: 0 | 1, ...paths: string[]): Promise<void> {
    const input = (await page.$(`#choose${set}`)) as ElementHandle<HTMLInputElement>;
    await input.uploadFile(...paths);
    await settled(page, paths);
}

export async function settled(page: Page, paths: string[]): Promise<void> {
    const names = paths.map((path) => path.split("/").pop()!);
    await until(() =>
        page.evaluate((wanted: string[]) => {
            const all = [...document.querySelectorAll(".fileName, .problem span")].map(
                (each) => each.textContent ?? "",
            );
            const reading = (document.getElementById("status")?.textContent ?? "").includes("…");
            return !reading && wanted.every((name) => all.some((text) => text.startsWith(name)));
        }, names),
    );
    await drawn(page);
}

// Until a frame has been drawn in the size that the contents have now; behind another page there
// would be none.
export async function drawn(page: Page): Promise<void> {
    await page.bringToFront();
    await page.evaluate(
        () => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))),
    );
}

// Asks from here, again and again: to wait inside the page, older browsers would need what its
// policy forbids.
async function until(holds: () => Promise<boolean>): Promise<void> {
    for (const end = Date.now() + 120_000; !(await holds()); await pause(50))
        if (Date.now() > end) throw new Error("what was waited for did not come");
}

// Real files, dragged from outside over the middle of an element and dropped there.
export async function drop(page: Page, selector: string, ...paths: string[]): Promise<void> {
    const session: CDPSession = await page.createCDPSession();
    const box = (await (await page.$(selector))!.boundingBox())!;
    const [x, y] = [box.x + box.width / 2, box.y + box.height / 2];
    const data = { items: [], files: paths, dragOperationsMask: 1 };
    for (const type of ["dragEnter", "dragOver", "drop"] as const)
        await session.send("Input.dispatchDragEvent", { type, x, y, data });
    await session.detach();
}

export async function clear(page: Page): Promise<void> {
    await page.evaluate(() => {
        for (const each of document.querySelectorAll<HTMLElement>(".problem button")) each.click();
        for (
            let each = document.querySelector<HTMLElement>(".set li button");
            each !== null;
            each = document.querySelector<HTMLElement>(".set li button")
        )
            each.click();
    });
    await until(() => page.$eval("#content", (each) => !each.checkVisibility()));
}

export function textOf(page: Page, selector: string): Promise<string> {
    return page.$eval(selector, (each) => (each as HTMLElement).innerText);
}

// The cells of the row with that class or head in the tables.
export function cells(page: Page, head: string): Promise<string[]> {
    return page.evaluate((wanted) => {
        const rows = [...document.querySelectorAll("#numbers tbody tr")];
        const row = rows.find((each) => each.querySelector("th")!.textContent === wanted);
        return [...(row?.querySelectorAll("td") ?? [])].map((each) =>
            each.textContent!.replaceAll("\u00a0", " "),
        );
    }, head);
}

// Where the labels stand on the canvas, by their text.
export function places(page: Page): Promise<Record<string, { x: number; y: number }>> {
    return page.evaluate(() => {
        const labels = [...document.querySelectorAll<HTMLElement>("#labels > *")];
        return Object.fromEntries(
            labels.map((each) => [
                each.textContent!,
                { x: parseFloat(each.style.left), y: parseFloat(each.style.top) },
            ]),
        );
    });
}
