/** A browser with the page in it, served from the folder that the variable SITE names. */
import { readFile } from "node:fs/promises";
import { createServer } from "node:http";
import { extname, join } from "node:path";
import { after } from "node:test";
import { fileURLToPath } from "node:url";
import { chromium } from "playwright-core";

const site = process.env.SITE;
const types = {
  ".html": "text/html; charset=utf-8",
  ".js": "text/javascript",
  ".css": "text/css",
  ".svg": "image/svg+xml",
  ".wasm": "application/wasm",
};

/** Whether the module that is served has something, which not every build of it need have. */
export async function moduleHas(name) {
  return (await readFile(join(site, "textio/index.js"), "utf-8")).includes(name);
}

export const examples = fileURLToPath(new URL("../../../../examples/data/", import.meta.url));

async function serve() {
  const server = createServer(async ({ url }, response) => {
    const name = new URL(url, "http://localhost").pathname.replace(/\/$/, "/index.html");
    try {
      const content = await readFile(join(site, name));
      response.writeHead(200, { "content-type": types[extname(name)] ?? "application/octet-stream" });
      response.end(content);
    } catch {
      response.writeHead(404).end();
    }
  });
  await new Promise((resolve) => server.listen(0, "127.0.0.1", resolve));
  return server;
}

let server;
let browser;
let context;

/** One for all tests. */
async function start() {
  server = await serve();
  browser = await chromium.launch({
    timeout: 120_000,
    executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: [
      ...["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-sync"],
      ...["--disable-background-networking", "--disable-component-update"],
    ],
  });
}

after(async () => {
  await browser?.close();
  server?.close();
});

/** Runs in the page: lets the answers of its worker be held back. */
function holdable() {
  let held = null;
  let worker;
  window.Worker = class extends Worker {
    constructor(...parts) {
      super(...parts);
      worker = this;
      this.addEventListener("message", (event) => {
        if (held && event.isTrusted) {
          held.push(event.data);
          event.stopImmediatePropagation();
        }
      });
    }
  };
  const give = (data) => worker.dispatchEvent(new MessageEvent("message", { data }));
  window.answers = {
    hold: () => (held = []),
    count: () => held.length,
    giveOne: () => give(held.shift()),
    giveAll() {
      held.forEach(give);
      held = null;
    },
  };
}

/** From now on the worker is as late as can be: `giveOne` and `giveAll` let its answers come. */
export async function holdAnswers(page) {
  await page.evaluate(() => window.answers.hold());
  return {
    async giveOne() {
      await page.waitForFunction(() => window.answers.count() > 0);
      await page.evaluate(() => window.answers.giveOne());
    },
    giveAll: () => page.evaluate(() => window.answers.giveAll()),
  };
}

/**
 * A page of its own, which takes the place of the one before. What goes wrong in it without being shown
 * is kept in `faults`.
 */
export async function openPage(options = {}) {
  if (!browser) {
    await start();
  }
  await context?.close();
  context = await browser.newContext({ viewport: { width: 1280, height: 800 }, ...options });
  const page = await context.newPage();
  page.setDefaultTimeout(60_000); // what comes at all comes by then, however busy the machine is
  page.faults = [];
  page.on("pageerror", (error) => page.faults.push(error.message));
  page.on("console", (message) => message.type() === "error" && page.faults.push(message.text()));
  // Downloads can be looked into; what the browser would ask of the user cannot be answered.
  await page.addInitScript(() => delete window.showSaveFilePicker);
  await page.addInitScript(holdable);
  await page.goto(`http://127.0.0.1:${server.address().port}/`);
  await page.locator("#examples button").first().waitFor();
  return page;
}

export function table(text) {
  return { name: "table.csv", mimeType: "text/csv", buffer: Buffer.from(text) };
}

/** Waits until the page shows the answer to everything that was asked of it. */
export async function settled(page) {
  await page.locator("main[aria-busy=false]").waitFor();
}

/** Opens files as the picker gives them, and waits until the answer is there. */
export async function choose(page, file) {
  await page.locator("#pick").setInputFiles(file);
  await settled(page);
  await page.locator("#work table").waitFor();
}

/** From the start, where the work is out of sight until the answer is there. */
export async function openExample(page, name) {
  await page.getByRole("button", { name }).click();
  await page.locator("#work table").waitFor();
}

/** What the table shows of its records: a list of cells each. */
export function records(page) {
  return page
    .locator("#preview tbody tr:not(.passed, .names)")
    .evaluateAll((rows) =>
      rows.map((row) => [...row.querySelectorAll("td")].map((cell) => cell.textContent)),
    );
}

export function names(page) {
  return page
    .locator("#preview thead th")
    .evaluateAll((cells) => cells.slice(1).map((cell) => cell.firstChild.textContent));
}

export function title(page) {
  return page.locator("#summary-text").textContent();
}
