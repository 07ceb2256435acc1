import assert from "node:assert/strict";
import { join } from "node:path";
import test from "node:test";
import { choose, examples, names, openExample, openPage, records, settled, table, title } from "./page.js";

function assumption(page, name) {
  return page.locator(`[data-name=${name}]`);
}

/** Waits until the page says who has said it. */
async function origin(page, name, text) {
  await assumption(page, name).locator(".origin span", { hasText: text }).waitFor();
}

test("each assumption can be set, says so, and can be given back", async () => {
  const page = await openPage();
  await openExample(page, "pool_tickets.csv");
  const found = await records(page);
  const foundNames = await names(page);
  const kind = page.getByRole("radio", { name: "One field a line" });
  const dataLine = page.getByLabel("Data begin on line", { exact: true });
  const noNames = page.getByLabel("Names on line: no names");
  const cases = [
    ["kind", () => kind.check(), () => kind.isChecked()],
    ["first_data_line", () => dataLine.fill("5"), async () => (await dataLine.inputValue()) === "5"],
    ["names_line", () => noNames.check(), () => noNames.isChecked()],
    ...[
      ["delimiter", "Delimiter", "semicolon ;"],
      ["quote", "Quote", "none"],
      ["comment", "Comments", "/* to */"],
      ["decimal", "Decimal mark", "comma ,"],
      ["thousands", "Thousands separator", "apostrophe '"],
    ].map(([name, title, label]) => {
      const select = page.getByLabel(title, { exact: true });
      const shown = async () => (await select.locator("option:checked").textContent()) === label;
      return [name, () => select.selectOption({ label }), shown];
    }),
  ];
  for (const [name, change, isShown] of cases) {
    await origin(page, name, "found");
    await change();
    await origin(page, name, "set by you");
    assert.ok(await isShown(), name);
    await assumption(page, name)
      .getByRole("button", { name: /^Give back/ })
      .click();
    await origin(page, name, "found");
    assert.deepEqual(await records(page), found, name);
    assert.deepEqual(await names(page), foundNames, name);
  }
  assert.deepEqual(page.faults, []);
});

test("what is set changes the table", async () => {
  const page = await openPage();
  await choose(page, table("a||b;c||d\n1||2;3||4\n5||6;7||8\n9||1;2||3\n'x||y'||z;0||w\n"));
  const delimiter = page.getByLabel("Delimiter", { exact: true });
  await delimiter.selectOption({ label: "semicolon ;" });
  await page.getByRole("columnheader", { name: "a||b" }).waitFor();
  await delimiter.selectOption({ label: "bar |" });
  await page.getByRole("columnheader", { name: "no name" }).first().waitFor();
  await delimiter.selectOption("own");
  await page.getByLabel("Delimiter: other text").fill("||");
  await page.keyboard.press("Enter");
  await page.getByRole("cell", { name: "6;7", exact: true }).waitFor();
  await page.getByLabel("Quote", { exact: true }).selectOption({ label: "apostrophe '" });
  await page.getByRole("cell", { name: "x||y", exact: true }).waitFor();
  await page.getByRole("button", { name: "Give all back" }).click();
  await page.locator(".given").first().waitFor({ state: "detached" });
});

test("a value that cannot be is refused beside its control, and nothing is lost", async () => {
  const page = await openPage();
  await openExample(page, "pool_tickets.csv");
  const found = await records(page);
  const quote = page.getByLabel("Quote", { exact: true });
  await quote.selectOption("own");
  await page.getByLabel("Quote: another character").fill("abc");
  await page.keyboard.press("Enter");
  await assumption(page, "quote").getByRole("alert").filter({ hasText: /quote/ }).waitFor();
  assert.ok(await page.locator("#alert").isHidden());
  assert.deepEqual(await records(page), found);
  await page.getByLabel("Data begin on line", { exact: true }).fill("0");
  await page.getByText("Lines are numbered from 1.").waitFor();
  await page.getByLabel("Data begin on line", { exact: true }).fill("4");
  await origin(page, "first_data_line", "set by you");
  assert.deepEqual(await records(page), found.slice(1));
});

test("a click takes another reading, and takes the best one back", async () => {
  const page = await openPage();
  await choose(page, table("name,place;x,y\nA,B;1,2\nC,D;3,4\nE,F;5,6\nG,H;7,8\n"));
  const best = await title(page);
  const readings = page.locator("#readings button");
  const count = await readings.count();
  assert.ok(count > 1);
  for (let index = count - 1; index >= 0; index -= 1) {
    await readings.nth(index).click();
    await settled(page);
    assert.equal(await readings.nth(index).getAttribute("aria-pressed"), "true");
    assert.equal(await title(page), await readings.nth(index).locator("strong").textContent());
    assert.notEqual(await readings.nth(index).locator(".why").textContent(), "");
    assert.equal(await readings.count(), count);
  }
  assert.equal(await title(page), best);
  assert.equal(await page.locator(".given").count(), 0);
});

test("cuts are dragged on the ruler, added by a click and written as numbers", async () => {
  const page = await openPage();
  await openExample(page, "stations.txt");
  const widths = page.getByLabel("Widths", { exact: true });
  const found = await widths.inputValue();
  const [first, second] = found.split(", ").map(Number);
  const box = await page.locator(".cut").first().boundingBox();
  const unit = (await page.locator(".cut").nth(1).boundingBox()).x - box.x;
  const x = box.x + box.width / 2;
  const y = box.y + box.height / 2;
  await page.mouse.move(x, y);
  await page.mouse.down();
  await page.mouse.move(x - (3 * unit) / second, y, { steps: 5 });
  await page.mouse.up();
  await settled(page);
  await origin(page, "widths", "set by you");
  const moved = (await widths.inputValue()).split(", ").map(Number);
  assert.deepEqual(moved.slice(0, 2), [first - 3, second + 3]);
  await page.getByRole("cell", { name: "10384", exact: true }).waitFor();
  await page.mouse.click(x + (2 * unit) / second, box.y + 8);
  await page.getByRole("slider").nth(4).waitFor();
  await widths.fill("5, 3, 40");
  await page.keyboard.press("Enter");
  await page.getByRole("cell", { name: "DE", exact: true }).waitFor();
  assert.equal(await page.getByRole("slider").count(), 2);
});

test("a change is on the screen's table within 16 ms", async () => {
  const page = await openPage();
  const rows = Array.from(
    { length: 250 },
    (_, row) => `${row};2024-05-0${(row % 9) + 1};item ${row};${row / 8};x,y\n`,
  );
  await choose(page, table(`number;day;what;value;note\n${rows.join("")}`));
  // The best of all counts, for the machine may have other work: a busy one gets more tries.
  const times = await page.getByLabel("Quote", { exact: true }).evaluate(async (quote) => {
    const durations = () =>
      performance.getEntriesByName("textio-change-to-table").map(({ duration }) => duration);
    const main = document.querySelector("main");
    for (let tries = 0; tries < 20 || (Math.min(...durations()) >= 16 && tries < 400); tries += 1) {
      quote.selectedIndex = tries % 3;
      quote.dispatchEvent(new Event("change"));
      while (main.ariaBusy === "true") {
        await new Promise((resolve) => setTimeout(resolve));
      }
    }
    return durations();
  });
  times.sort((a, b) => a - b);
  const [least, median] = [times[0], times[Math.floor(times.length / 2)]];
  console.log(`a change takes ${least.toFixed(1)} ms at best, ${median.toFixed(1)} ms as a rule`);
  assert.ok(least < 16, `${least} ms`);
});

test("the table stays where it was scrolled to, but for another file", async () => {
  const page = await openPage();
  const text = `a;b\n${Array.from({ length: 250 }, (_, row) => `${row};x\n`).join("")}`;
  await choose(page, table(text));
  const preview = page.locator("#preview");
  await page.waitForFunction(() => document.querySelectorAll("#preview tbody tr").length === 251);
  await preview.evaluate((region) => region.scrollTo(0, 4000));
  await page.getByLabel("Quote", { exact: true }).selectOption({ label: "none" });
  await origin(page, "quote", "set by you");
  assert.equal(await preview.evaluate((region) => region.scrollTop), 4000);
  await choose(page, { ...table(text), name: "other.csv" });
  assert.equal(await preview.evaluate((region) => region.scrollTop), 0);
});

test("of a file that does not fit, the odd records are marked", async () => {
  const page = await openPage();
  await choose(page, table("a,b,c\n1,2,3\n4,5,6\n7,8\n1,2,3\n4,5,6\n7,8,9\n"));
  const odd = page.locator("#preview tr.odd");
  assert.deepEqual(await odd.locator(".tag").allTextContents(), ["2 fields of 3"]);
  await page.getByRole("button", { name: "Another file" }).click();
  await openExample(page, "wind_tunnel.txt");
  assert.equal(await odd.count(), 0);
  await page.getByLabel("Comments", { exact: true }).selectOption({ label: "none" });
  await odd.first().waitFor();
  assert.deepEqual(await odd.locator(".tag").allTextContents(), ["1 field of 4", "1 field of 4"]);
  await choose(page, join(examples, "broken_bytes.csv"));
  await page.getByText(/can't be read as UTF-8/).waitFor();
});
