import assert from "node:assert/strict";
import { mkdtemp, open, rm, unlink, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, test } from "node:test";
import { choose, examples, names, openExample, openPage, records, table, title } from "./page.js";

let folder;
before(async () => {
  folder = await mkdtemp(join(tmpdir(), "dialog-"));
});
after(async () => {
  await rm(folder, { recursive: true });
});

test("every example opens and shows its layout", async () => {
  const page = await openPage();
  const cases = [
    ["rechnungen.csv", "Delimited by semicolon, 6 columns", ["R-2301", "18.12.2023", "Bäckerei Sommer"]],
    ["pool_tickets.csv", "Delimited by comma, 5 columns", ["2024-06-10", "Westbad", "205"]],
    ["stations.txt", "Fixed widths, 5 columns", ["10384DE", "Hallig Nordoog", "9.66"]],
    ["orbit.dat", "Aligned with blanks, 5 columns", ["0.000", "1.000000", "0.000000"]],
    ["reviews.csv", "Delimited by comma, 5 columns", ["1", "5", "Sturdy, and light"]],
    ["wind_tunnel.txt", "Delimited by semicolon, 4 columns", ["0.00", "11.506", "-0.3480"]],
    ["wohnungen_cp1252.csv", "Delimited by semicolon, 4 columns", ["Köln", "Rheinufer 62", "154"]],
    ["cities_utf16.txt", "Delimited by tab, 3 columns", ["Тверь", "416216", "1135"]],
    ["letter.txt", "One field a line, 1 column", ["Dear Miriam"]],
  ];
  assert.equal(await page.locator("#examples button").count(), cases.length);
  for (const [name, layout, cells] of cases) {
    await openExample(page, name);
    assert.equal(await title(page), layout, name);
    const first = (await records(page))[0];
    assert.deepEqual(first.slice(0, cells.length), cells, name);
    await page.getByRole("button", { name: "Another file" }).click();
  }
  assert.deepEqual(page.faults, []);
});

test("a dropped file is opened, names and passed-over lines are told apart", async () => {
  const page = await openPage();
  const dropped = await page.evaluateHandle(() => {
    const transfer = new DataTransfer();
    const text = "Prices of spring\nitem;price\nbolt;0,12\n# note\nnut;0,08\npin;1,05\nrivet;0,31\n";
    transfer.items.add(new File([text], "prices.txt"));
    return transfer;
  });
  for (const event of ["dragover", "drop"]) {
    await page.dispatchEvent("body", event, { dataTransfer: dropped });
  }
  await page.locator("#work table").waitFor();
  assert.equal(await page.locator("#file-name").textContent(), "prices.txt");
  assert.deepEqual(await names(page), ["item", "price"]);
  assert.deepEqual((await records(page))[1], ["nut", "0,08"]);
  const passed = await page.locator("#preview tr.passed").allTextContents();
  assert.deepEqual(passed, ["1passed overPrices of spring", "4passed over# note"]);
});

test("the encoding can be set, and is found anew for the next file", async () => {
  const page = await openPage();
  await choose(page, join(examples, "wohnungen_cp1252.csv"));
  const encoding = page.getByLabel("Encoding");
  assert.match(await encoding.locator("option:checked").textContent(), /Windows-1252.*found/);
  await encoding.selectOption("windows-1251");
  await page.getByRole("cell", { name: "Kцln" }).waitFor();
  await encoding.selectOption("utf-8");
  await page.getByText(/can't be read as UTF-8/).waitFor();
  await encoding.selectOption("");
  await page.getByRole("cell", { name: "Köln" }).waitFor();
  assert.ok(await page.locator("#decoding").isHidden());
});

test("a file of 2 GB opens, for only its beginning is read", async () => {
  const path = join(folder, "large.csv");
  const rows = Array.from({ length: 60_000 }, (_, row) => `${row};measured;${row / 8}\n`).join("");
  const file = await open(path, "w");
  await file.write(`number;what;value\n${rows}`);
  await file.truncate(2 ** 31);
  await file.close();
  const page = await openPage();
  await choose(page, path); // all of it would be more than a text can hold
  assert.equal(await page.locator("#file-size").textContent(), "2.1 GB");
  assert.equal(await page.locator("#preview-note").textContent(), "the first 250 records");
  assert.deepEqual(await names(page), ["number", "what", "value"]);
});

test("what cannot be opened is told, and what was there stays", async () => {
  const page = await openPage();
  await choose(page, table("a;b\n1;2\n3;4\n5;6\n"));
  const cases = [
    ["an empty file", { ...table(""), name: "empty.csv" }, /empty\.csv: The file is empty/],
    [
      "no text",
      { ...table("\x89PNG\r\n\x1a\n\0\0\0\rIHDR"), name: "p.png" },
      /p\.png: This does not look like a text/,
    ],
  ];
  for (const [name, file, message] of cases) {
    await page.locator("#pick").setInputFiles(file);
    await page.getByRole("alert").filter({ hasText: message }).waitFor();
    assert.equal(await page.locator("#file-name").textContent(), "table.csv", name);
    assert.deepEqual((await records(page))[0], ["1", "2"], name);
  }
  await page.getByLabel("Quote", { exact: true }).selectOption({ label: "none" });
  await page.locator("[data-name=quote].given").waitFor();
  await choose(page, table("c;d\n7;8\n9;1\n"));
  assert.deepEqual(await names(page), ["c", "d"]);
  assert.ok(await page.locator("#alert").isHidden());
});

test("a file that goes away while it is shown stays shown", async () => {
  const path = join(folder, "gone.csv");
  await writeFile(path, "a;b\n1;2\n3;4\n5;6\n");
  const page = await openPage();
  await choose(page, path);
  await unlink(path);
  const gone = /The file (can't be read|is no longer there)/;
  await page.getByLabel("Encoding").selectOption("windows-1252");
  await page.getByRole("alert").filter({ hasText: gone }).waitFor();
  assert.equal(await page.getByLabel("Encoding").inputValue(), "");
  await page.getByRole("button", { name: "Save as CSV" }).click();
  await page
    .getByRole("alert")
    .filter({ hasText: /nothing was written/ })
    .waitFor();
  assert.deepEqual((await records(page))[0], ["1", "2"]);
});
