/** The preview: a table of the records, with the lines that were passed over where they stand. */
import { element } from "./element.js";
import { LineMenu, lineButton } from "./line_menu.js";
import { className, counted } from "./words.js";

/** Rows that are there at once; the others follow when the page has been painted. */
const rowsAtOnce = 40;
const mostColumns = 60;
/** Of a longer text the end may be out of sight. */
const unitsInSight = 30;

const numeric = new Set(["number", "hex_number", "binary_number"]);

/** A cell's text on one line. */
function oneLine(text) {
  return text.replace(/\r\n|\n|\r/g, " ⏎ ");
}

function headOf(columns, hidden) {
  const cells = columns.map((column) => {
    const name = column.name || "no name";
    const kind = column.name ? "" : " unnamed";
    const cell = element("th", { scope: "col", title: column.name }, oneLine(name));
    cell.className = (numeric.has(column.class) ? "number" : "") + kind;
    const missing = column.missing > 0 ? `, ${column.missing} missing` : "";
    cell.append(element("span", { className: "class" }, className(column.class) + missing));
    return cell;
  });
  const corner = element("th", { scope: "col" }, element("span", { className: "unseen" }, "Line"));
  if (hidden > 0) {
    cells.push(element("th", { scope: "col" }, `and ${counted(hidden, "more column")}`));
  }
  return element("thead", {}, element("tr", {}, corner, ...cells));
}

const tags = { names: "names", passed: "passed over" };
const faults = {
  open_quote: "quote is not closed",
  too_long: "too long",
};

function lineCell(line) {
  const button = element("button", { type: "button", className: "line", tabIndex: -1 }, String(line + 1));
  button.dataset.line = line;
  return element("th", { scope: "row" }, button);
}

function passedRow(entry, span) {
  const tag = element("span", { className: entry.kind === "names" ? "tag" : "unseen" }, tags[entry.kind]);
  const text = entry.text.replaceAll("\t", "⇥ ");
  return element(
    "tr",
    { className: entry.kind },
    lineCell(entry.line),
    element("td", { colSpan: span }, tag, text),
  );
}

/** What is wrong with a record, or nothing. */
function oddity(entry, columns) {
  if (faults[entry.fault]) {
    return faults[entry.fault];
  }
  return entry.count === columns.length ? "" : `${counted(entry.count, "field")} of ${columns.length}`;
}

function recordRow(entry, columns, span) {
  const row = element("tr", {}, lineCell(entry.line));
  for (let index = 0; index < span; index += 1) {
    const cell = row.insertCell();
    const text = entry.fields[index] ?? "";
    cell.textContent = oneLine(text);
    if (text.length > unitsInSight) {
      cell.title = text;
    }
    cell.className = (numeric.has(columns[index]?.class) ? "number" : "") + (index % 2 ? " even" : "");
  }
  const odd = oddity(entry, columns);
  if (odd) {
    row.className = "odd";
    row.lastElementChild.append(element("span", { className: "tag" }, odd));
  }
  return row;
}

/**
 * @param {HTMLElement} region The scrolling region.
 * @param {import("./session.js").Session} session
 */
export function showPreview(region, session) {
  let turn = 0;
  new LineMenu(region, session);

  const fill = (body, rowOf, entries, count, mine) => {
    body.append(...entries.slice(0, count).map(rowOf));
    if (count < entries.length) {
      const others = entries.slice(count);
      requestAnimationFrame(() => mine === turn && fill(body, rowOf, others, rowsAtOnce, mine));
    }
  };

  session.addEventListener("answer", ({ detail }) => {
    turn += 1;
    const kept = detail.source === "file" ? [0, 0] : [region.scrollLeft, region.scrollTop];
    const { columns } = session.best;
    const shown = columns.slice(0, mostColumns);
    const span = Math.max(1, Math.min(columns.length, mostColumns));
    const rowOf = (entry) => (entry.fields ? recordRow(entry, columns, span) : passedRow(entry, span));
    const body = element("tbody");
    const focused = document.activeElement;
    const line = region.contains(focused) ? focused.dataset.line : undefined;
    // Who looks at rows further down is to find them where they were.
    const all = kept[1] > 0 || line !== undefined;
    fill(body, rowOf, session.entries, all ? session.entries.length : rowsAtOnce, turn);
    const caption = element("caption", { className: "unseen" }, "The first rows of the table");
    region.replaceChildren(
      element("table", { className: "preview" }, caption, headOf(shown, columns.length - shown.length), body),
    );
    if (detail.source === "file" || kept.some((place) => place > 0)) {
      region.scrollTo(...kept);
    }
    if (line !== undefined) {
      (lineButton(region, line) ?? region).focus({ preventScroll: true });
    }
  });
}
