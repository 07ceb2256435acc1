import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { createRequire } from "node:module";
import test from "node:test";
import { moduleHas, openExample, openPage, records, settled } from "./page.js";

const axe = await readFile(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf-8");
const shots = process.env.SHOTS;

/** Presses tab until the element has the focus: as somebody without a mouse gets to it. */
async function tabTo(page, locator) {
  for (let press = 0; press < 80; press += 1) {
    if (await locator.evaluate((wanted) => wanted === document.activeElement)) {
      return;
    }
    await page.keyboard.press("Tab");
  }
  assert.fail(`the tab key does not get to ${locator}`);
}

test("all of it goes by keyboard alone", async () => {
  const page = await openPage();
  await tabTo(page, page.getByRole("button", { name: "stations.txt" }));
  await page.keyboard.press("Enter");
  await page.locator("#work table").waitFor();
  assert.equal(await page.evaluate(() => document.activeElement.id), "summary-text");

  const cut = page.getByRole("slider", { name: "End of column 1" });
  await tabTo(page, cut);
  const place = Number(await cut.getAttribute("aria-valuenow"));
  await page.keyboard.press("ArrowLeft");
  await page.keyboard.press("Shift+ArrowLeft");
  assert.equal(Number(await cut.getAttribute("aria-valuenow")), place - 6);
  const cuts = await page.getByRole("slider").count();
  await page.keyboard.press("Delete");
  await settled(page);
  assert.equal(await page.getByRole("slider").count(), cuts - 1);

  await tabTo(page, page.locator("#preview"));
  await page.keyboard.press("Enter");
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("Enter");
  await page.keyboard.press("Enter");
  await settled(page);
  assert.equal(await page.getByLabel("Data begin on line", { exact: true }).inputValue(), "2");

  const back = page.getByRole("button", { name: "Give back: Widths" });
  await tabTo(page, back);
  await page.keyboard.press("Enter");
  await tabTo(page, page.getByLabel("Fixed widths", { exact: true }));
  await page.keyboard.press("ArrowDown");
  await page.locator("#summary-text", { hasText: "One field a line" }).waitFor();
  await tabTo(page, page.locator("#readings button").first());
  await page.keyboard.press("Enter");
  await page.locator("#summary-text", { hasText: "Fixed widths" }).waitFor();
  await tabTo(page, page.getByRole("button", { name: "Save as CSV" }));
  const [download] = await Promise.all([page.waitForEvent("download"), page.keyboard.press("Enter")]);
  assert.equal(download.suggestedFilename(), "stations.table.csv");
});

test("the change is told to those who listen", async () => {
  const page = await openPage();
  await openExample(page, "pool_tickets.csv");
  const status = page.getByRole("status");
  assert.match(await status.textContent(), /^Delimited by comma, 5 columns\. \w+\. all 20 records\.$/);
  await page.getByLabel("One field a line").check();
  await status.filter({ hasText: "One field a line, 1 column" }).waitFor({ state: "attached" });
});

const looks = [
  ["wide", { viewport: { width: 1600, height: 900 } }],
  ["desk", {}],
  ["dark", { colorScheme: "dark" }],
  ["zoomed", { viewport: { width: 640, height: 400 }, deviceScaleFactor: 2 }],
  ["phone", { viewport: { width: 360, height: 740 }, deviceScaleFactor: 2, hasTouch: true }],
  ["dark phone", { viewport: { width: 360, height: 740 }, colorScheme: "dark" }],
];

/** What a checker of accessibility finds wrong: names, roles, contrasts, structure. */
async function findings(page) {
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => window.axe.run());
  return violations.map(({ id, nodes }) => `${id}: ${nodes.map(({ html }) => html).join(" ")}`);
}

for (const [look, options] of looks) {
  test(`nothing is cut off, unnamed or hard to read: ${look}`, async () => {
    const page = await openPage({ ...options, reducedMotion: "reduce" });
    const check = async (view) => {
      if (shots) {
        await page.screenshot({ path: `${shots}/${look} ${view}.png`, fullPage: true });
      }
      const over = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
      assert.ok(over <= 0, `${view} is ${over} pixels too wide`);
      assert.deepEqual(await findings(page), [], view);
    };
    await check("start");
    for (const [name, change] of [
      ["pool_tickets.csv", () => page.getByLabel("Names on line: no names").check()],
      ["stations.txt", () => page.getByLabel("Data begin on line", { exact: true }).fill("3")],
      ["reviews.csv", () => page.getByLabel("Delimiter", { exact: true }).selectOption("own")],
    ]) {
      await openExample(page, name);
      await change();
      await settled(page);
      if (await moduleHas("importStatement")) {
        await page.locator("#statement-text", { hasText: /\S/ }).waitFor();
      }
      await check(name);
      await page.getByRole("button", { name: "Another file" }).click();
    }
    const moving = await page.evaluate(
      () => getComputedStyle(document.querySelector("button")).transitionDuration,
    );
    assert.equal(moving, "0s");
  });
}

test("the page follows the colours of the machine", async () => {
  const page = await openPage({ colorScheme: "dark" });
  await openExample(page, "pool_tickets.csv");
  assert.equal((await records(page)).length, 20);
  const brightness = () =>
    page.evaluate(() => {
      const [red, green, blue] = getComputedStyle(document.body).backgroundColor.match(/\d+/g).map(Number);
      return (red + green + blue) / 765;
    });
  assert.ok((await brightness()) < 0.2);
  await page.emulateMedia({ colorScheme: "light" });
  assert.ok((await brightness()) > 0.9);
});
