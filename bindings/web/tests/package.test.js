// The package as others get it: installed without a network, small, with types, and as the page on it says.

import assert from "node:assert/strict";
import { execFile } from "node:child_process";
import { mkdtemp, readFile, readdir, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import test, { after, before } from "node:test";
import { promisify } from "node:util";
import { brotliCompressSync } from "node:zlib";

import { packageFolder, textio, tree } from "./support.js";

const run = promisify(execFile);
const most = 400_000;
let folder;

before(async () => {
  folder = await mkdtemp(join(tmpdir(), "textio-"));
  const { stdout } = await run("npm", ["pack", "--json", "--pack-destination", folder], { cwd: packageFolder });
  const [{ filename }] = JSON.parse(stdout);
  await writeFile(join(folder, "package.json"), '{ "name": "consumer", "type": "module" }\n');
  await run("npm", ["install", "--offline", "--no-audit", "--no-fund", join(folder, filename)], { cwd: folder });
});
after(() => rm(folder, { recursive: true }));

const node = (...given) => run(process.execPath, given, { cwd: folder });

test("the blocks of its page run and print what they claim", async () => {
  const page = await readFile(new URL("docs/javascript.md", tree), "utf8");
  const blocks = [...page.matchAll(/^```js\n(.*?)^```\n\n^```output\n(.*?)^```$/gms)];
  assert.equal(blocks.length, page.match(/^```js/gm).length);
  for (const [, program, output] of blocks) {
    await writeFile(join(folder, "block.js"), program);
    assert.equal((await node("block.js")).stdout, output);
  }
});

test("all of it is small enough", async () => {
  const installed = join(folder, "node_modules", "text-format-detection");
  const files = (await readdir(installed, { recursive: true })).filter((name) => /\.\w+$/.test(name));
  assert.ok(files.includes("textio-simd.wasm") && files.includes("textio-plain.wasm") && files.includes("index.d.ts"));
  let size = 0;
  for (const name of files) {
    size += brotliCompressSync(await readFile(join(installed, name))).length; // as web servers send them
  }
  assert.ok(size < most, `${size} bytes`);
});

test("its version is that of the library", async () => {
  const { version } = JSON.parse(await readFile(join(packageFolder, "package.json"), "utf8"));
  assert.equal((await textio.Detector.load()).version, version);
});

const typed = `
import { Detector, TextioError, detect, rows, sample } from "text-format-detection";
const layout = await detect(new Blob(["a,b"]), { delimiter: ",", names_line: null, widths: undefined });
const reasons: string[] = layout.proposals.map((proposal) => proposal.why);
for await (const { fields, line, fault } of rows(new Uint8Array(), layout, { policy: "skip" })) {
  const words: [string[], number, string] = [fields, line, fault];
}
const detector: Detector = await Detector.load({ build: "plain" });
for (const row of detector.rows("", detector.detectSample(await sample(""), { rows: 5 }))) row.fields.join();
// @ts-expect-error
await detect("", { delimeter: "," });
// @ts-expect-error
rows("", layout, { policy: "guess" });
// @ts-expect-error
await detect(7);
export { TextioError, reasons };
`;

test("its types fit programs, and refuse what is wrong", async () => {
  await writeFile(join(folder, "typed.mts"), typed);
  const options = ["--strict", "--noEmit", "--target", "es2022", "--module", "node16", "--moduleResolution", "node16"];
  await run("tsc", [...options, "--lib", "es2022,dom", "typed.mts"], { cwd: folder });
});

test("types name all that there is", async () => {
  const declared = await readFile(join(packageFolder, "index.d.ts"), "utf8");
  const names = [...declared.matchAll(/^export (?:class|function) (\w+)/gm)].map(([, name]) => name);
  assert.deepEqual(names.sort(), Object.keys(textio).sort());
});

const asInBrowser = `
import { readFile } from "node:fs/promises";
globalThis.fetch = async (url) => new Response(await readFile(url));
globalThis.process = undefined;
const { detect } = await import("text-format-detection");
console.log((await detect("a;b\\n1;2\\n3;4\\n5;6\\n")).delimiter);
`;

test("it does without what only Node has", async () => {
  await writeFile(join(folder, "browser.js"), asInBrowser);
  assert.equal((await node("browser.js")).stdout, ";\n");
});
