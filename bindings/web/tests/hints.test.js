// Hints reach the library under their names, and the table of texts that all languages share has the same answers.

import assert from "node:assert/strict";
import test from "node:test";

import { sharedCases, textio } from "./support.js";

const { detect } = textio;
const text = "# made by hand\nitem;1.000,5;NA\n'a;b';2.000,5;x\nc;3.000,25;-\nd;4.000;y\n";

test("each hint is followed", async () => {
  const table = { delimiter: ";", quote: "'", names_line: null, first_data_line: 1 };
  const cases = [
    [{ delimiter: "," }, (layout) => layout.delimiter, ","],
    [{ delimiter: undefined }, (layout) => layout.delimiter, ";"],
    [{ kind: "line" }, (layout) => layout.kind, "line"],
    [{ widths: [5, 7] }, (layout) => layout.widths.slice(0, 2), [5, 7]],
    [{ quote: "'" }, (layout) => layout.quote, "'"],
    [{ quote: null }, (layout) => layout.quote, null],
    [{ quote: "" }, (layout) => layout.quote, null],
    [{ comment: "#", comment_end: "hand" }, (layout) => [layout.comment, layout.comment_end], ["#", "hand"]],
    [{ comment: null }, (layout) => layout.comment, null],
    [{ decimal: "." }, (layout) => layout.decimal, "."],
    [{ decimal: ",", thousands: null }, (layout) => layout.thousands, null],
    [{ decimal: ",", thousands: "." }, (layout) => layout.thousands, "."],
    [{ first_data_line: 3, delimiter: ";" }, (layout) => layout.first_data_line, 3],
    [{ names_line: 1, delimiter: ";" }, (layout) => layout.names_line, 1],
    [{ names_line: null }, (layout) => layout.names_line, null],
    [{ method: "rules" }, (layout) => layout.confidence, null],
    [{ ...table, missing: ["x"] }, (layout) => layout.columns[2].missing, 3],
    [{ ...table, missing: ["x", "y"] }, (layout) => layout.columns[2].missing, 4],
  ];
  for (const [hints, property, expected] of cases) {
    const layout = await detect(text, hints);
    assert.deepEqual(property(layout), expected, JSON.stringify(hints));
    layout.free();
  }
});

test("rows are sampled as told", async () => {
  const layout = await detect("a;b\n".repeat(1000), { rows: 20 });
  assert.equal(layout.proposals[0].rows, 20);
});

test("what cannot be is refused by name", async () => {
  const cases = [
    [{ delimeter: ";" }, "unknown_name", /delimeter/],
    [{ kind: "square" }, "bad_value", /kind.*square/],
    [{ quote: "''" }, "bad_value", /quote/],
    [{ first_data_line: -1 }, "bad_value", /first_data_line.*-1/],
    [{ widths: [3, "wide"] }, "bad_value", /widths.*wide/],
    [{ delimiter: [";"] }, "bad_value", /delimiter/],
  ];
  for (const [hints, status, message] of cases) {
    await assert.rejects(detect(text, hints), { name: "TextioError", status, message });
  }
});

test("a layout goes anywhere as plain data", async () => {
  const layout = await detect(text);
  assert.deepEqual(structuredClone(layout), JSON.parse(JSON.stringify(layout)));
  assert.match(layout.why, /5 of 6 rows|against it/);
});
