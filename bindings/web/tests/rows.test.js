// The records: their values, places and faults, in one piece and in many, and to the end of any file.

import assert from "node:assert/strict";
import * as fs from "node:fs";
import { mkdtemp, open, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import test from "node:test";
import { pathToFileURL } from "node:url";

import { fieldsOf, textio, wasmFile } from "./support.js";

const { Detector, detect, rows } = textio;
const detector = await Detector.load();

const odd = 'name,height\n"Smith, John", 1.80 \n"say ""hi""",1.75\n\nshort\nlong,1.6,x\n"two\nlines",1.7\nlast,2\n';

test("values, lines and faults", () => {
  const layout = detector.detect(odd, { delimiter: ",", quote: '"', names_line: 0, first_data_line: 1 });
  const found = detector.rows(odd, layout);
  assert.deepEqual([...found], [
    { fields: ["Smith, John", "1.80"], line: 1, fault: "none" },
    { fields: ['say "hi"', "1.75"], line: 2, fault: "none" },
    { fields: ["short"], line: 4, fault: "too_few_fields" },
    { fields: ["long", "1.6", "x"], line: 5, fault: "too_many_fields" },
    { fields: ["two\nlines", "1.7"], line: 6, fault: "none" },
    { fields: ["last", "2"], line: 8, fault: "none" },
  ]);
  assert.deepEqual([found.end, found.irregular], ["of_text", 2]);
});

test("policies", async () => {
  const layout = await detect(odd, { delimiter: ",", quote: '"', names_line: 0, first_data_line: 1 });
  const cases = [
    ["keep", 6, "short", "of_text"],
    ["pad", 6, "short,", "of_text"],
    ["skip", 4, "two\nlines,1.7", "of_text"],
    ["stop", 2, undefined, "stopped"],
  ];
  for (const [policy, count, third, end] of cases) {
    for (const found of [detector.rows(odd, layout, { policy }), rows(new Blob([odd]), layout, { policy })]) {
      const fields = await fieldsOf(found);
      assert.deepEqual([fields.length, fields[2]?.join(), found.end], [count, third, end], policy);
    }
  }
  assert.throws(() => rows(odd, layout, { policy: "guess" }), { status: "bad_value", message: /guess/ });
  assert.throws(() => rows(odd, layout, { proposal: 99 }), { status: "bad_argument" });
});

test("a proposal other than the best", async () => {
  const text = "Stock, main store\nitem;price\nbolt;0,12\nnut;0,08\npin;0,05\n";
  const layout = await detect(text);
  const at = layout.proposals.findIndex(({ kind }) => kind === "line");
  assert.ok(at > 0);
  const lines = await fieldsOf(rows(text, layout, { proposal: at }));
  assert.equal(`${lines.join("\n")}\n`, text);
});

/** A table of so many bytes at least, whose rows tell where they stand. */
function longTable(bytes) {
  let text = "number;words;sum\n";
  for (let row = 0; text.length < bytes; ++row) {
    text += `${row};"größer; ${"\u{1F529}".repeat(row % 150)}";${row * 7}\n`;
  }
  return text;
}

test("pieces make no difference", async () => {
  const text = longTable(3e6);
  const bytes = new TextEncoder().encode(text);
  const layout = detector.detect(text, { delimiter: ";", quote: '"', first_data_line: 1 });
  const whole = [...detector.rows(text, layout)];
  assert.ok(whole.length > 10000 && whole.every(({ fields: [row, , sum] }) => row * 7 === Number(sum)));
  const wide = Uint8Array.from(Buffer.from(text, "utf16le"));
  assert.deepEqual([...detector.rows(bytes, layout)], whole);
  assert.deepEqual([...detector.rows(wide, layout, { encoding: "utf-16le" })], whole);
  const waited = [];
  for await (const row of rows(new Blob([bytes]), layout)) {
    waited.push(row);
  }
  assert.deepEqual(waited, whole);
});

/** A detector whose memory can be looked at, and the calls of its module counted. */
async function watched() {
  const { Instance } = WebAssembly;
  const module = await wasmFile("plain");
  const counts = {};
  let memory;
  WebAssembly.Instance = class {
    constructor(...given) {
      const { exports } = new Instance(...given);
      ({ memory } = exports);
      const counted = ([name, call]) => {
        counts[name] = 0;
        return [name, (...values) => (++counts[name], call(...values))];
      };
      const calls = Object.entries(exports).filter(([, value]) => typeof value === "function");
      this.exports = { ...exports, ...Object.fromEntries(calls.map(counted)) };
    }
  };
  try {
    return { watchedDetector: Detector.from(module), counts, size: () => memory.buffer.byteLength };
  } finally {
    WebAssembly.Instance = Instance;
  }
}

test("memory is given back, and does not grow with the file", async () => {
  const { watchedDetector, counts, size } = await watched();
  const block = new TextEncoder().encode("12;some words;3.5\n".repeat(1 << 14));
  const file = new Blob(["a;b;c\n", ...new Array(30).fill(block)]);
  const use = async (bytes) => {
    const layout = watchedDetector.detect("a;b;c\n1;x;2.5\n2;y;3.5\n".repeat(3000), { first_data_line: 1 });
    assert.throws(() => watchedDetector.detect("a;b\n", { rows: "many" }), { status: "bad_value" });
    for (const row of watchedDetector.rows("a;b;c\n1;x;2\n2;y;3\n", layout)) {
      assert.equal(row.line, 1);
      break;
    }
    watchedDetector.rows("never;read;on\n".repeat(3000), layout).return();
    let count = 0;
    for await (const { line } of rows(file.slice(0, bytes), layout)) {
      count += line > 0;
    }
    layout.free();
    return count;
  };
  await use(1 << 20);
  const before = size();
  for (let time = 0; time < 10; ++time) {
    await use(1 << 16);
  }
  assert.equal(await use(file.size), 30 << 14);
  assert.equal(size(), before);
  const records = counts.records_of_text + counts.records_of_pieces;
  assert.deepEqual(
    [counts.free + counts.records_of_text, counts.textio_hints_free, counts.textio_layout_free, counts.records_free],
    [counts.malloc + counts.statement_tools, counts.textio_hints_new, counts.textio_detect_utf16, records],
  );
});

test("a record without an end is an error, and no end of the text", async () => {
  const layout = detector.detect('a,b\n1,2\n3,4\n5,6\n', { delimiter: ",", quote: '"', first_data_line: 1 });
  const endless = new Blob(['a,b\n1,2\n3,"', ...new Array(18).fill("x".repeat(1 << 20))]);
  const found = rows(endless, layout);
  assert.deepEqual((await found.next()).value.fields, ["1", "2"]);
  await assert.rejects(fieldsOf(found), { status: "too_long" });
  assert.equal(found.end, "too_long");
});

test("a loop can be left while it waits", async () => {
  const text = longTable(1e6);
  const layout = detector.detect(text, { delimiter: ";", quote: '"', first_data_line: 1 });
  const left = rows(new Blob([text]), layout);
  const [first, returned, after] = await Promise.all([left.next(), left.return(), left.next()]);
  assert.deepEqual([first.value.fields[0], returned.done, after.done], ["0", true, true]);
});

test("what cannot be fetched is an error", async () => {
  const broken = new (class extends Blob {
    slice() {
      throw new Error("the disk is gone");
    }
  })(["a,b\n1,2\n"]);
  const layout = await detect("a,b\n1,2\n", { delimiter: ",", first_data_line: 1 });
  await assert.rejects(detect(broken), /the disk is gone/);
  await assert.rejects(fieldsOf(rows(broken, layout)), /the disk is gone/);
});

test("a file of 3 GB is open at once", { skip: fs.openAsBlob === undefined && "no openAsBlob here" }, async (context) => {
  const folder = await mkdtemp(join(tmpdir(), "textio-"));
  context.after(() => rm(folder, { recursive: true }));
  const path = join(folder, "large.csv");
  const file = await open(path, "w");
  await file.write("id;price\n" + "4711;0,25\n".repeat(500000));
  await file.truncate(3e9);
  await file.close();
  const started = performance.now();
  const blob = await fs.openAsBlob(pathToFileURL(path));
  const layout = await detect(blob);
  const { value } = await rows(blob, layout).next();
  assert.deepEqual([layout.delimiter, layout.decimal, value.fields], [";", ",", ["4711", "0,25"]]);
  assert.ok(performance.now() - started < 1500);
});
