// The import statements are those of the native program, but for its own command line inside them.

import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import test from "node:test";

import { exampleFiles, examplePath, nativeAnswer, nativeOutput, textio } from "./support.js";

const { Detector, detect, importStatement } = textio;
const detector = await Detector.load();

/** Without the command that rewrites the file, which tells here what was found. */
const withoutCommands = (text) => text.replace(/^.*detect_layout\W+convert.*$/gm, "").trimEnd();

for (const name of exampleFiles.filter((file) => file !== "empty.txt")) {
  test(`statements for ${name}`, async () => {
    const file = examplePath(name);
    const { charset } = await nativeAnswer(file);
    const layout = detector.detect(await readFile(file), { encoding: charset });
    for (const tool of detector.tools) {
      const native = await nativeOutput("import", "--for", tool, "--", file.pathname);
      const { text, obstacles } = importStatement(layout, tool, file.pathname);
      assert.equal(withoutCommands(text), withoutCommands(native));
      assert.equal(obstacles.length > 0, native.includes("cannot be told of this file"), tool);
    }
    layout.free();
  });
}

test("the command that rewrites a file says what was found and given", async () => {
  const text = "Stock\nitem;price\n'bo;lt';0,12\nnut;0,08\n'p;in';0,05\n";
  const layout = await detect(text, { quote: "'", comment: "#", comment_end: "*" });
  const { text: statement, obstacles } = importStatement(layout, "spark", "x.csv");
  assert.ok(obstacles.includes("the decimal mark"));
  for (const option of ["--delimiter=;", "--quote='", "--comment=#", "--comment-end=*", "--decimal=,",
    "--first-data-line=3", "--names-line=2"]) {
    assert.ok(statement.replaceAll("'\\''", "'").includes(option), option);
  }
});

test("what there is no statement for", async () => {
  const layout = await detect("a,b\n1,2\n");
  assert.throws(() => importStatement(layout, "abacus", "x"), { status: "bad_value", message: /abacus/ });
  assert.throws(() => importStatement(detector.detect(""), "pandas", "x"), { status: "bad_value", message: /no rows/ });
  assert.throws(() => importStatement(layout, "pandas", "x", { proposal: 99 }), { status: "bad_argument" });
  layout.free();
  assert.throws(() => importStatement(layout, "pandas", "x"), { status: "bad_argument", message: /freed/ });
});
