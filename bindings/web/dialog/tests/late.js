/** A slow machine: the answers come when the user has gone on already. */
import assert from "node:assert/strict";
import test from "node:test";
import { choose, holdAnswers, names, openExample, openPage, records, settled, table, title } from "./page.js";

const field = (page, label) => page.getByLabel(label, { exact: true });
const encoding = (page) => page.getByLabel("Encoding");
const pipes = table("a|b\n1|2\n3|4\n5|6\n");

test("an answer to an older question takes nothing back that was set since", async () => {
  const page = await openPage();
  await openExample(page, "stations.txt");
  const [line, comments, quote, widths] = ["Data begin on line", "Comments", "Quote", "Widths"].map((label) =>
    field(page, label),
  );
  const cut = page.getByRole("slider", { name: "End of column 1" });
  const place = async () => Number(await cut.getAttribute("aria-valuenow"));
  const wanted = (await place()) - 2;
  const press = () => cut.press("ArrowLeft");
  const chosen = (select, first, second) => [
    () => select.selectOption(first),
    () => select.selectOption(second),
    () => select.inputValue(),
    second,
  ];
  const steps = [
    ["a cut", press, press, place, wanted],
    ["a number", () => line.fill("1"), () => line.fill("12"), () => line.inputValue(), "12"],
    ["what is refused", () => line.fill("2"), () => line.fill(""), () => line.inputValue(), ""],
    ["a choice", ...chosen(comments, "[null,null]", '["/*","*/"]')],
    ["an encoding", ...chosen(encoding(page), "koi8-r", "big5")],
    ["a text", () => quote.selectOption("null"), () => widths.fill("5, "), () => widths.inputValue(), "5, "],
  ];
  for (const [name, first, second, read, expected] of steps) {
    const answers = await holdAnswers(page);
    await first();
    await second();
    await answers.giveOne();
    assert.equal(await read(), expected, name);
    await answers.giveAll();
    await settled(page);
    assert.equal(await read(), expected, name);
    assert.equal(await page.getByText("Lines are numbered from 1.").isVisible(), expected === "", name);
  }
  assert.deepEqual(page.faults, []);
});

test("what is set while another file is opened is not set for that one", async () => {
  const page = await openPage();
  await choose(page, table("a;b\n1;2\n3;4\n5;6\n"));
  const answers = await holdAnswers(page);
  await page.locator("#pick").setInputFiles(pipes);
  await field(page, "Delimiter").selectOption({ label: "comma ," });
  await encoding(page).selectOption("utf-16le");
  await answers.giveAll();
  await settled(page);
  assert.equal(await title(page), "Delimited by bar, 2 columns");
  assert.equal(await encoding(page).inputValue(), "");
  assert.equal(await page.locator(".given").count(), 0);
});

test("what is set before and while the encoding changes is kept", async () => {
  const page = await openPage();
  await choose(page, table("a;b\n1;ö\n3;4\n5;6\n"));
  await field(page, "Quote").selectOption({ label: "none" });
  await settled(page);
  const answers = await holdAnswers(page);
  await encoding(page).selectOption("windows-1252");
  await field(page, "Data begin on line").fill("3");
  await answers.giveAll();
  await settled(page);
  assert.deepEqual((await records(page))[0], ["3", "4"]);
  assert.equal(await encoding(page).inputValue(), "windows-1252");
  const given = await page.locator(".given").evaluateAll((all) => all.map(({ dataset }) => dataset.name));
  assert.deepEqual(given, ["first_data_line", "quote"]);
  await encoding(page).selectOption("");
  await settled(page);
  assert.deepEqual((await records(page))[0], ["3", "4"]);
});

test("what comes too late is not shown", async () => {
  const page = await openPage();
  let arrive;
  const arrived = new Promise((resolve) => (arrive = resolve));
  await page.route("**/examples/orbit.dat", async (route) => {
    await arrived;
    await route.continue();
  });
  await page.getByRole("button", { name: "orbit.dat" }).click();
  await choose(page, pipes);
  const [fetched] = await Promise.all([page.waitForResponse("**/examples/orbit.dat"), arrive()]);
  await fetched.finished();
  await settled(page);
  assert.deepEqual(await names(page), ["a", "b"]);

  const answers = await holdAnswers(page);
  await encoding(page).selectOption("windows-1252");
  await page.getByRole("button", { name: "Another file" }).click();
  await answers.giveOne();
  await settled(page);
  assert.ok(await page.locator("#start").isVisible());
  assert.ok(await page.locator("#work").isHidden());
});

test("an answer leaves the focus where the user is", async () => {
  const page = await openPage();
  await openExample(page, "pool_tickets.csv");
  const focused = () =>
    page.evaluate(() => {
      const { ariaLabel, textContent, id, tagName } = document.activeElement;
      return ariaLabel ?? (id || textContent || tagName);
    });
  const back = page.getByRole("button", { name: "Give back: Names on line" });
  await page.getByLabel("Names on line: no names").check();
  await back.focus();
  await back.press("Enter");
  await settled(page);
  assert.equal(await focused(), "Names on line: no names");

  const answers = await holdAnswers(page);
  await field(page, "Quote").selectOption({ label: "none" });
  await page.locator("#preview").press("Enter");
  await page.keyboard.press("ArrowDown");
  assert.equal(await focused(), "2");
  await answers.giveAll();
  await settled(page);
  assert.equal(await focused(), "2");

  const best = page.locator("#readings button").first();
  await best.press("Enter");
  await settled(page);
  assert.ok(await best.evaluate((button) => button === document.activeElement));

  await encoding(page).focus();
  await encoding(page).selectOption("windows-1252");
  await settled(page);
  assert.equal(await focused(), "encoding");
});
