// Whatever a text comes as, it is the same text.

import assert from "node:assert/strict";
import test from "node:test";

import { fieldsOf, textio } from "./support.js";

const { detect, rows, sample } = textio;

const text = "item;price\nbolt;0,12\nMünze;0,08\nscrew;1,05\nrivet;0,31\n";
const beyond = text.replace("screw", "\u{1F529}");

const utf8 = new TextEncoder().encode(beyond);
const bytesOfUnits = (string, isBig) =>
  Uint8Array.from(string.split("").flatMap((unit) => {
    const code = unit.charCodeAt(0);
    return isBig ? [code >> 8, code & 255] : [code & 255, code >> 8];
  }));

const forms = [
  ["UTF-8", utf8, {}, "utf-8"],
  ["UTF-8 with a mark", Uint8Array.from([0xef, 0xbb, 0xbf, ...utf8]), {}, "utf-8"],
  ["an ArrayBuffer", utf8.buffer, {}, "utf-8"],
  ["a part of a buffer", Uint8Array.from([59, 59, ...utf8, 59]).subarray(2, utf8.length + 2), {}, "utf-8"],
  ["UTF-16LE with a mark", bytesOfUnits(`\uFEFF${beyond}`, false), {}, "utf-16le"],
  ["UTF-16BE with a mark", bytesOfUnits(`\uFEFF${beyond}`, true), {}, "utf-16be"],
  ["UTF-16LE as is said", bytesOfUnits(beyond, false), { encoding: "utf-16le" }, "utf-16le"],
  ["Windows-1252", Uint8Array.from(text, (sign) => sign.charCodeAt(0)), { encoding: "latin1" }, "windows-1252"],
].flatMap(([name, input, ...others]) => [
  [name, input, ...others],
  [`${name} in a Blob`, new Blob([input]), ...others],
]);
forms.push(["a string", beyond, {}, null]);

for (const [name, input, hints, encoding] of forms) {
  test(name, async () => {
    const layout = await detect(input, hints);
    assert.deepEqual(
      [layout.delimiter, layout.decimal, layout.names_line, layout.encoding],
      [";", ",", 0, encoding],
    );
    const lines = (encoding === "windows-1252" ? text : beyond).split("\n").slice(1, -1);
    assert.deepEqual(await fieldsOf(rows(input, layout)), lines.map((line) => line.split(";")));
    layout.free();
  });
}

test("lone halves of pairs stay as they are", async () => {
  const strange = "a,b\n\uD83D,1\n\uDD29x,2\n\0,3\n";
  const layout = await detect(strange, { delimiter: ",", names_line: 0, first_data_line: 1 });
  const found = await fieldsOf(rows(strange, layout));
  assert.deepEqual(found, [["\uD83D", "1"], ["\uDD29x", "2"], ["\0", "3"]]);
});

test("bytes that are no text are replaced alike in the sample and in the rows", async () => {
  const bytes = Uint8Array.from([97, 59, 98, 10, 0xe2, 0x82, 59, 49, 10, 0xff, 0xfe, 59, 50, 10, 0xf0, 59, 51, 10]);
  const beginning = await sample(bytes);
  const layout = await detect(bytes, { delimiter: ";", first_data_line: 1 });
  const lines = ["a;b", ...(await fieldsOf(rows(bytes, layout))).map((fields) => fields.join(";"))];
  assert.equal(`${lines.join("\n")}\n`, beginning.text);
  assert.equal((await sample(Uint8Array.of(97, 0xe2, 0x82))).text, "a\uFFFD");
});

test("only whole lines of the beginning are looked at", async () => {
  const cases = [
    ["one,two\r\nthree,four\r\n", 12, "one,two\r\n", true],
    ["one,two\nthree,four\n", 19, "one,two\nthree,four\n", false],
    ["one,two,three", 5, "one,t", true],
    ["äöü\näöü\n", 8, "äöü\n", true],
  ];
  for (const [whole, limit, begin, cut] of cases) {
    for (const input of [new TextEncoder().encode(whole), new Blob([whole])]) {
      assert.deepEqual(await sample(input, { limit }), { text: begin, encoding: "utf-8", mark: false, cut });
    }
  }
  assert.deepEqual(await sample("one\ntwo\n", { limit: 6 }), { text: "one\n", encoding: null, mark: false, cut: true });
});

test("what is no input, no encoding, no layout is refused by name", async () => {
  const layout = await detect(text);
  await assert.rejects(detect(7), TypeError);
  await assert.rejects(detect(utf8, { encoding: "klingon" }), { status: "bad_value", message: /klingon/ });
  assert.throws(() => rows(utf8, layout, { encoding: "klingon" }), { status: "bad_value", message: /klingon/ });
  assert.throws(() => rows(text, structuredClone(layout)), { status: "bad_argument", message: /copy/ });
  layout.free();
  layout.free();
  assert.throws(() => rows(text, layout), { status: "bad_argument", message: /freed/ });
});
