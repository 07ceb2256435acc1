import assert from "node:assert/strict";
import { mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, test } from "node:test";
import { choose, holdAnswers, moduleHas, openExample, openPage, table } from "./page.js";

let folder;
before(async () => {
  folder = await mkdtemp(join(tmpdir(), "dialog-"));
});
after(async () => {
  await rm(folder, { recursive: true });
});

/** Saves in a format, and gives the name and the path of what was downloaded. */
async function save(page, format) {
  const [download] = await Promise.all([
    page.waitForEvent("download", { timeout: 60_000 }),
    page.getByRole("button", { name: `Save as ${format}` }).click(),
  ]);
  return { name: download.suggestedFilename(), path: await download.path() };
}

/** Does something in the page as the next export begins: a browser that is late would find it done. */
async function asItBegins(page, act) {
  await page.evaluate(`new MutationObserver((_, observer) => {
    observer.disconnect();
    (${act})();
  }).observe(document.querySelector("#progress"), { attributes: true })`);
}

/** A file with so many rows, and one record that does not fit. */
async function largeFile(name, count) {
  const rows = Array.from({ length: count }, (_, row) => `${row};wörk ${row};${row},5\n`);
  const path = join(folder, name);
  await writeFile(path, `number;what;value\n${rows.join("")}left over\n`);
  return path;
}

test("CSV and JSON hold every record as the reader gives it", async () => {
  const page = await openPage();
  await openExample(page, "rechnungen.csv");
  const csv = await save(page, "CSV");
  assert.equal(csv.name, "rechnungen.table.csv");
  const lines = (await readFile(csv.path, "utf-8")).split("\r\n");
  assert.equal(lines[0], "Beleg,Datum,Kunde,Netto,Steuer,Brutto");
  assert.equal(lines[1], "R-2301,18.12.2023,Bäckerei Sommer,1614.28,306.71,1920.99");
  assert.equal(lines.length, 20);
  const json = await save(page, "JSON");
  const objects = JSON.parse(await readFile(json.path, "utf-8"));
  assert.equal(objects.length, 18);
  const expected = { Beleg: "R-2318", Datum: "12.03.2023", Kunde: "Radladen Süd" };
  assert.deepEqual(objects[17], { ...expected, Netto: 3955.47, Steuer: 751.54, Brutto: 4707.01 });
  await page.getByRole("button", { name: "Another file" }).click();
  await openExample(page, "wohnungen_cp1252.csv");
  const other = await readFile((await save(page, "CSV")).path, "utf-8");
  assert.match(other, /^Ort,Straße,/);
});

test("a large file is written to the end, and the odd records are counted", async () => {
  const page = await openPage();
  const count = 400_000;
  await choose(page, await largeFile("large.txt", count));
  const { path } = await save(page, "CSV");
  const told = "400,001 records written to large.table.csv. 1 record did not fit, the first on line 400002.";
  await page.locator("#exported", { hasText: told }).waitFor();
  const written = await readFile(path, "utf-8");
  assert.ok(written.endsWith(`\r\n399999,wörk 399999,399999.5\r\nleft over,,\r\n`));
  assert.equal(written.split("\n").length, count + 3);
});

test("an export can be cancelled, and goes into the file of the user whatever is set meanwhile", async () => {
  const page = await openPage();
  await choose(page, await largeFile("longer.txt", 60_000));
  await asItBegins(page, () => document.querySelector("#cancel").click());
  await page.getByRole("button", { name: "Save as JSON" }).click();
  await page.getByText("The export was cancelled. Nothing was written.").waitFor({ state: "attached" });
  assert.ok(await page.getByRole("button", { name: "Save as JSON" }).isEnabled());

  await choose(page, table("a;b\n1;2\n3;4\n5;6\n"));
  await page.evaluate(async () => {
    const root = await navigator.storage.getDirectory();
    window.target = await root.getFileHandle("mine.csv", { create: true });
    window.showSaveFilePicker = async () => window.target;
  });
  await page.getByRole("button", { name: "Save as CSV" }).click();
  await page.locator("#exported", { hasText: "3 records written to mine.csv." }).waitFor();
  const content = () => page.evaluate(async () => (await window.target.getFile()).text());
  assert.equal(await content(), "a,b\r\n1,2\r\n3,4\r\n5,6\r\n");

  await asItBegins(page, () => {
    const quote = document.querySelector("#assumption-quote");
    quote.selectedIndex = 0;
    quote.dispatchEvent(new Event("change"));
  });
  await page.getByRole("button", { name: "Save as JSON" }).click();
  await page.locator("[data-export=json]:enabled").waitFor();
  assert.ok(await page.locator("#alert").isHidden());
  assert.match(await content(), /^\[\n\{"a": 1, "b": 2\}/);
});

test("an export has what was set just before, and leaves the focus where the user has gone", async () => {
  const page = await openPage();
  await choose(page, table("a;b\n1;2\n3;4\n5;6\n"));
  const line = page.getByLabel("Data begin on line", { exact: true });
  const answers = await holdAnswers(page);
  await line.fill("3");
  await line.fill("4");
  await page.getByRole("button", { name: "Save as CSV" }).click();
  await line.focus();
  const download = page.waitForEvent("download");
  await answers.giveAll();
  assert.equal(await readFile(await (await download).path(), "utf-8"), "a,b\r\n5,6\r\n");
  await page.locator("#exported").waitFor();
  assert.ok(await line.evaluate((input) => input === document.activeElement));
  await page.getByRole("button", { name: "Save as CSV" }).press("Enter");
  await page.locator("[data-export=csv]:focus").waitFor();
});

test("the import statement follows the tool and the assumptions, and can be copied", async () => {
  const page = await openPage({ permissions: ["clipboard-read", "clipboard-write"] });
  await openExample(page, "wohnungen_cp1252.csv");
  if (!(await moduleHas("importStatement"))) {
    assert.ok(await page.locator("#statement").isHidden());
    return;
  }
  await page.getByLabel("Import statement for").selectOption("pandas");
  const shown = page.locator("#statement-text");
  await shown.filter({ hasText: /read_csv\([^]*wohnungen_cp1252\.csv[^]*cp1252/ }).waitFor();
  await page.getByLabel("Delimiter", { exact: true }).selectOption({ label: "bar |" });
  await shown.filter({ hasText: "|" }).waitFor();
  await page.getByRole("button", { name: "Copy the statement" }).click();
  await page.getByText("Copied.").waitFor({ state: "attached" });
  const copied = await page.evaluate(() => navigator.clipboard.readText());
  assert.equal(copied, await shown.textContent());

  await page.getByRole("button", { name: "Another file" }).click();
  await openExample(page, "rechnungen.csv");
  await page.getByLabel("Import statement for").selectOption("spark");
  await shown.filter({ hasText: /thousands separators[^]*detect_layout convert/ }).waitFor();
  assert.deepEqual(page.faults, []);
});
