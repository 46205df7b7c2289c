// Bundles the tests of a folder and runs them.
//
//   node tests/run.mjs unit|browser
import { spawnSync } from "node:child_process";
import { readdirSync, rmSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

const here = dirname(fileURLToPath(import.meta.url));
const kind = process.argv[2];
// Below node_modules, so that packages are found from there.
const target = join(here, "..", "node_modules", ".cache", "tests", kind);
const tests = readdirSync(join(here, kind)).filter((name) => name.endsWith(".test.ts")).sort();
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
const files = tests.map((name) => join(target, name.replace(/\.ts$/, ".mjs")));
const ended = spawnSync(process.execPath, ["--enable-source-maps", "--test", "--test-reporter=spec", ...files], { stdio: "inherit" });
process.exitCode = ended.status ?? 1;
