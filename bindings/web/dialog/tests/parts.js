import assert from "node:assert/strict";
import test from "node:test";
import { hintsOfReading } from "../js/assumptions.js";
import { addCut, middleOfWidest, moveCut, removeCut } from "../js/cuts.js";
import { foundEncoding, looksBinary } from "../js/encodings.js";
import { previewEntries } from "../js/preview_entries.js";

test("a cut moves between its neighbours, and the whole stays as wide", () => {
  const cases = [
    ["moved", moveCut([8, 23, 9], 0, 10), [10, 21, 9]],
    ["not beyond the start", moveCut([8, 23, 9], 0, -4), [1, 30, 9]],
    ["not onto the next cut", moveCut([8, 23, 9], 0, 99), [30, 1, 9]],
    ["the last one", moveCut([8, 23, 9], 1, 99), [8, 31, 1]],
    ["removed", removeCut([8, 23, 9], 1), [8, 32]],
    ["the only one removed", removeCut([8, 23], 0), [31]],
    ["added", addCut([8, 23, 9], 20), [8, 12, 11, 9]],
    ["added where one is", addCut([8, 23, 9], 31), [8, 23, 9]],
    ["added behind the end", addCut([8, 23, 9], 40), [8, 23, 9]],
    ["the middle of the widest", middleOfWidest([8, 23, 9]), 19],
    ["the middle of the first", middleOfWidest([9, 8]), 4],
  ];
  for (const [name, result, expected] of cases) {
    assert.deepEqual(result, expected, name);
  }
});

test("the encoding is found by mark, zeros and validity", () => {
  const utf16 = (text) => new Uint8Array(Uint16Array.from(text, (unit) => unit.charCodeAt(0)).buffer);
  const bytes = (...list) => Uint8Array.from(list.flatMap((part) => [...Buffer.from(part)]));
  const cases = [
    ["ASCII", bytes("a,b\n1,2\n"), "utf-8"],
    ["UTF-8", bytes("Köln;1\n"), "utf-8"],
    ["a character torn by the end of the sample", bytes("ä", [0xc3]), "utf-8", true],
    ["one damaged byte between good ones", bytes("Größe ", [0xff], " Länge\n"), "utf-8"],
    ["Windows-1252", bytes("K", [0xf6], "ln;1\n"), "windows-1252"],
    ["UTF-16 by its mark", bytes([0xff, 0xfe, 0x41, 0x04]), "utf-16le"],
    ["UTF-16 by its zeros", utf16("a;b\n1;2\n"), "utf-16le"],
    ["big-endian", utf16("a;b\n1;2\n").reverse(), "utf-16be"],
  ];
  for (const [name, text, encoding, more = false] of cases) {
    assert.equal(foundEncoding(text, more), encoding, name);
  }
  assert.ok(looksBinary(bytes("\x89PNG", [0]), "utf-8"));
  assert.ok(!looksBinary(bytes("a\tb\r\n"), "utf-8"));
  assert.ok(!looksBinary(utf16("a;b\n"), "utf-16le"));
});

test("lines that no record covers are shown as passed over", () => {
  const lines = ["Title", "a;b", '1;"x', 'y"', "# note", "2;z", "Sum", ""];
  const records = [
    { line: 2, fields: ["1", "x\ny"], fault: "none" },
    { line: 5, fields: ["2", "z"], fault: "none" },
  ];
  const told = (most) => {
    const layout = { first_data_line: 2, names_line: 1 };
    const { entries, rest } = previewEntries({ lines, cut: false }, layout, records, most);
    return [entries.map(({ kind, line }) => `${line} ${kind}`), rest];
  };
  const first = ["0 passed", "1 names", "2 record"];
  assert.deepEqual(told(250), [[...first, "4 passed", "5 record", "6 passed"], false]);
  assert.deepEqual(told(1), [first, true]);
});

test("a reading is taken by what tells it from the best one", () => {
  const best = {
    kind: "delimited",
    delimiter: ",",
    widths: [],
    quote: '"',
    comment: null,
    comment_end: null,
  };
  const cases = [
    [best, {}],
    [{ ...best, delimiter: ";" }, { delimiter: ";" }],
    [
      { ...best, delimiter: ";", quote: null },
      { delimiter: ";", quote: null },
    ],
    [
      { ...best, quote: null, comment: "#" },
      { delimiter: ",", quote: null, comment: "#" },
    ],
    [{ ...best, kind: "fixed_width", delimiter: null, widths: [3, 4] }, { widths: [3, 4] }],
    [{ ...best, kind: "line", delimiter: null }, { kind: "line" }],
  ];
  for (const [reading, expected] of cases) {
    const said = JSON.parse(JSON.stringify(hintsOfReading(reading, best)));
    assert.deepEqual(said, expected, JSON.stringify(expected));
  }
});
