// Bundles the tests of a folder and runs them; the last line counts them.
//
//   node tests/run.mjs unit|browser
import { readdirSync, rmSync } from "node:fs";
import { dirname, join } from "node:path";
import { run } from "node:test";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

// So that a failure tells its line in the source.
process.env.NODE_OPTIONS = "--enable-source-maps";
const here = dirname(fileURLToPath(import.meta.url));

// Below node_modules, so that packages are found from there.
async function bundle(kind) {
    const target = join(here, "..", "node_modules", ".cache", "tests", kind);
    const tests = readdirSync(join(here, kind)).filter((name) => name.endsWith(".test.ts"));
    rmSync(target, { recursive: true, force: true });
    await build({
        entryPoints: tests.map((name) => join(here, kind, name)),
        outdir: target,
        outExtension: { ".js": ".mjs" },
        bundle: true,
        packages: "external",
        platform: "node",
        format: "esm",
        sourcemap: "inline",
        logLevel: "warning",
    });
    return tests.sort().map((name) => join(target, name.replace(/\.ts$/, ".mjs")));
}

function failureOf({ name, details }) {
    const { cause } = details.error;
    return `FAILED ${name}\n${cause?.stack ?? cause ?? details.error.message}\n`;
}

// One after the other: each browser wants the machine for itself.
async function runAll(files) {
    let passed = 0;
    let failed = 0;
    for await (const { type, data } of run({ files, concurrency: 1 })) {
        if (type === "test:pass") {
            ++passed;
            console.log(`ok ${data.name} (${Math.round(data.details.duration_ms)} ms)`);
        } else if (type === "test:fail") {
            ++failed;
            console.log(failureOf(data));
        }
    }
    console.log(`${passed} passed, ${failed} failed`);
    return failed === 0 && passed > 0;
}

process.exitCode = (await runAll(await bundle(process.argv[2]))) ? 0 : 1;
