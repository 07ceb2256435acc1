import assert from "node:assert/strict";
import test from "node:test";
import { distinctNames, formats, plainNumbers } from "../js/formats.js";

test("numbers are written with a point, and what is no number stays", () => {
  const german = { decimal: ",", thousands: "." };
  const cases = [
    [german, "1.920,99", "1920.99"],
    [german, "-0,5", "-0.5"],
    [german, ",5", "0.5"],
    [german, "1.234.567", "1234567"],
    [german, "18.12.2023", "18.12.2023"],
    [german, "1.23,4", "1.23,4"],
    [german, "", ""],
    [german, "-", "-"],
    [{ decimal: ".", thousands: " " }, "12 345.50", "12345.50"],
    [{ decimal: null, thousands: null }, "1e-3", "1e-3"],
    [{ decimal: ".", thousands: null }, "1,234", "1,234"],
    [{ decimal: ".", thousands: null }, "5.", "5"],
  ];
  for (const [marks, text, plain] of cases) {
    assert.equal(plainNumbers(marks)(text), plain, `${JSON.stringify(marks)} ${text}`);
  }
});

test("names are made where there are none, and differ", () => {
  const names = ["a", "", "a", "a", "column 2"].map((name) => ({ name }));
  assert.deepEqual(distinctNames(names), ["a", "column 2", "a (2)", "a (3)", "column 2 (2)"]);
});

const layout = {
  decimal: ",",
  thousands: null,
  columns: [
    { name: "what", class: "text" },
    { name: "price", class: "number" },
  ],
};

function written(format, records) {
  const writer = formats[format].writer(layout);
  return writer.begin() + records.map((fields) => writer.record(fields)).join("") + writer.end();
}

const records = [['6" bolt, long', "0,12"], ["two\nlines", "007"], ["1,5"], ["more", "n/a", "extra"]];

test("CSV quotes what needs it, and keeps the cells that are too many", () => {
  const expected = 'what,price\r\n"6"" bolt, long",0.12\r\n"two\nlines",007\r\n"1,5",\r\nmore,n/a,extra\r\n';
  assert.equal(written("csv", records), expected);
});

test("JSON has numbers where JSON can have them, and null for what is not there", () => {
  const expected = [
    { what: '6" bolt, long', price: 0.12 },
    { what: "two\nlines", price: "007" },
    { what: "1,5", price: null },
    { what: "more", price: "n/a", "column 3": "extra" },
  ];
  assert.deepEqual(JSON.parse(written("json", records)), expected);
  assert.deepEqual(JSON.parse(written("json", [])), []);
});
