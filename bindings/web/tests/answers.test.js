// The answers are those of the library built for this machine, to the last figure.

import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import test from "node:test";

import { builds, exampleFiles, examplePath, nativeAnswer, textio } from "./support.js";

/** A proposal of the native program in the names of this one, which has one delimiter for several. */
function inOurNames({ delimiters, field_widths, ...others }) {
  return { ...others, delimiter: others.kind === "delimited" ? delimiters[0] : null, widths: field_widths };
}

/** Of the first object what the second one has too. */
function shared(answer, model) {
  return Object.fromEntries(Object.keys(model).map((key) => [key, answer[key]]));
}

// What the native program knows of the file and not of the text.
const ofTheFile = ["file", "charset", "charset_rival", "compression", "undecodable", "cut", "rules_agree"];

function withoutFile(answer) {
  const { proposals, ...others } = inOurNames(answer);
  ofTheFile.forEach((key) => delete others[key]);
  return { others, proposals: proposals?.map(inOurNames) };
}

for (const build of builds) {
  const detector = await textio.Detector.load({ build });
  for (const name of exampleFiles) {
    test(`${name}, ${build}`, async () => {
      const file = examplePath(name);
      const bytes = await readFile(file);
      const native = await nativeAnswer(file);
      const layout = detector.detect(bytes, { encoding: native.charset });
      const { others, proposals } = withoutFile(native);
      assert.deepEqual(shared(layout, others), others);
      assert.equal(layout.proposals.length, proposals.length);
      proposals.forEach((proposal, at) => assert.deepEqual(shared(layout.proposals[at], proposal), proposal));
      layout.free();
    });

    test(`${name} by rules, ${build}`, async () => {
      const file = examplePath(name);
      const native = await nativeAnswer(file, "--rules", "--rows", "20");
      const layout = detector.detect(await readFile(file), { encoding: native.charset, method: "rules", rows: 20 });
      const { others } = withoutFile(native);
      assert.deepEqual(shared(layout, others), others);
      layout.free();
    });
  }
}
