// Hints reach the library under their names, and the texts that all languages share have the same answers.

import assert from "node:assert/strict";
import test from "node:test";

import { fieldsOf, sharedCases, textio } from "./support.js";

const { detect, rows } = textio;
const { texts, faults } = await sharedCases();

/** Of a layout what the shared cases tell. */
function told(layout, expected) {
  const lists = {
    names: layout.columns.map(({ name }) => name),
    classes: layout.columns.map((column) => column.class),
    missing: layout.columns.map(({ missing }) => missing),
  };
  return Object.fromEntries(Object.keys(expected).map((key) => [key, lists[key] ?? layout[key]]));
}

for (const { name, text, hints, expected, records } of texts) {
  test(name, async () => {
    const layout = await detect(text, hints);
    assert.deepEqual(told(layout, expected), expected);
    assert.deepEqual(await fieldsOf(rows(text, layout)), records);
    layout.free();
  });
}

for (const { hints, status, says } of faults) {
  test(`refused: ${JSON.stringify(hints)}`, async () => {
    await assert.rejects(detect("a,b\n1,2\n", hints), ({ name, status: found, message }) => {
      assert.deepEqual([name, found], ["TextioError", status]);
      return message.includes(says);
    });
  });
}

test("what JavaScript has for nothing, and for lists", async () => {
  const text = "item;1.000,5;NA\n'a;b';2.000,5;x\nc;3.000,25;?\nd;4.000;y\n";
  const known = { delimiter: ";", quote: "'", first_data_line: 0 };
  const cases = [
    [{ ...known, delimiter: undefined }, (layout) => layout.delimiter, ";"],
    [{ kind: "fixed_width", widths: [] }, (layout) => layout.kind, "fixed_width"],
    [{ quote: null }, (layout) => layout.quote, null],
    [{ quote: "" }, (layout) => layout.quote, null],
    [{ comment: null }, (layout) => layout.comment, null],
    [{ ...known, decimal: ",", thousands: null }, (layout) => layout.thousands, null],
    [{ ...known, first_data_line: 1, names_line: null }, (layout) => layout.names_line, null],
    [{ ...known, missing: ["x"] }, (layout) => layout.columns[2].missing, 3],
    [{ ...known, missing: ["x", "y"] }, (layout) => layout.columns[2].missing, 4],
  ];
  for (const [hints, property, expected] of cases) {
    const layout = await detect(text, hints);
    assert.deepEqual(property(layout), expected, JSON.stringify(hints));
    layout.free();
  }
});

test("a layout goes anywhere as plain data", async () => {
  const layout = await detect(texts[0].text);
  assert.deepEqual(structuredClone(layout), JSON.parse(JSON.stringify(layout)));
  assert.match(layout.why, /rows have 3 fields/);
});
