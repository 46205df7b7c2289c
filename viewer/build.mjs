// Makes the page: one file that holds its script, its style and the licences of what it contains.
//
//   node build.mjs FILE
import { createHash } from "node:crypto";
import { mkdir, readFile, writeFile } from "node:fs/promises";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

const here = dirname(fileURLToPath(import.meta.url));
const source = (...parts) => join(here, ...parts);

async function bundled(entry) {
    const made = await build({
        entryPoints: [source(entry)],
        absWorkingDir: here,
        bundle: true,
        minify: true,
        write: false,
        metafile: true,
        format: "iife",
        target: ["chrome100", "firefox100", "safari15"],
        charset: "utf8",
        legalComments: "none",
        logLevel: "warning",
    });
    return { text: made.outputFiles[0].text.trim(), inputs: Object.keys(made.metafile.inputs) };
}

// The licence of every package of which something is in the bundle.
async function licences(inputs) {
    const packages = new Set(
        inputs.map((path) => /node_modules\/((?:@[^/]+\/)?[^/]+)/.exec(path)?.[1]).filter(Boolean),
    );
    const texts = [...packages].sort().map(async (name) => {
        const { version } = JSON.parse(
            await readFile(source("node_modules", name, "package.json"), "utf8"),
        );
        return `${name} ${version}\n\n${(await readFile(source("node_modules", name, "LICENSE"), "utf8")).trim()}`;
    });
    return (await Promise.all(texts)).join("\n\n");
}

function hashOf(text) {
    return `'sha256-${createHash("sha256").update(text, "utf8").digest("base64")}'`;
}

function escaped(text) {
    return text.replaceAll("&", "&amp;").replaceAll("<", "&lt;");
}

// Nothing is loaded and nothing is connected to: only this very script and style run, and pictures
// come from the page itself.
function policy(script, style) {
    return [
        "default-src 'none'",
        `script-src ${hashOf(script)}`,
        `style-src ${hashOf(style)}`,
        "img-src data: blob:",
        "connect-src 'none'",
        "base-uri 'none'",
        "form-action 'none'",
    ].join("; ");
}

async function page() {
    const { text, inputs } = await bundled("src/page/main.ts");
    // A closing tag in a string of the script would end it.
    const script = text.replaceAll("</script", "<\\/script");
    const style = (await bundled("src/page/page.css")).text;
    const parts = {
        policy: policy(script, style),
        style,
        script,
        licences: escaped(await licences(inputs)),
    };
    const template = await readFile(source("src/page/page.html"), "utf8");
    return template.replace(/\{\{(\w+)\}\}/g, (_, name) => parts[name]);
}

const target = process.argv[2] ?? source("..", "build", "viewer", "tavenMorrelViewer.html");
await mkdir(dirname(target), { recursive: true });
await writeFile(target, await page());
