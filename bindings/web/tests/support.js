// What the tests have in common: the package under test, the example files, the native program.

import { execFile } from "node:child_process";
import { readFile, readdir } from "node:fs/promises";
import { promisify } from "node:util";

export const packageFolder = process.env.TEXTIO_PACKAGE;
const program = process.env.TEXTIO_PROGRAM;
export const tree = new URL("../../../", import.meta.url);

export const textio = await import(new URL("index.js", `file://${packageFolder}/`));
export const builds = textio.Detector.simd ? ["simd", "plain"] : ["plain"];

export const wasmFile = (build) => readFile(`${packageFolder}/textio-${build}.wasm`);

export const exampleFiles = (await readdir(new URL("examples/data/", tree))).filter((name) => name !== "README.md");
export const examplePath = (name) => new URL(`examples/data/${name}`, tree);

/** What detect_layout prints. */
export const nativeOutput = async (...words) => (await promisify(execFile)(program, words)).stdout;

/** What it tells of a file, as an object. */
export const nativeAnswer = async (file, ...options) =>
  JSON.parse(await nativeOutput("--json", ...options, file.pathname));

export const sharedCases = async () => JSON.parse(await readFile(new URL("bindings/cases.json", tree), "utf8"));

/** The cells of all rows of either kind of loop. */
export async function fieldsOf(rows) {
  const found = [];
  for await (const { fields } of rows) {
    found.push(fields);
  }
  return found;
}
