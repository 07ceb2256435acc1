/** What the preview shows, line by line: the records, and between them what the reader passed over. */

const mostUnits = 400;
const mostFields = 200;

/** The lines that a record takes: a line break in one of its values stands in the text. */
function linesOf(fields) {
  return 1 + fields.reduce((sum, field) => sum + (field.match(/\r\n|\n|\r/g)?.length ?? 0), 0);
}

function shorten(text) {
  return text.length > mostUnits ? text.slice(0, mostUnits) + "…" : text;
}

/**
 * @param {{lines: string[], cut: boolean}} file The first lines of the text.
 * @param {{first_data_line: number, names_line: number | null}} layout
 * @param {Iterable<{fields: string[], line: number, fault: string}>} records From the first data line on.
 * @param {number} most No more records are taken.
 * @returns the entries, from the first line on, and `rest`: whether the text goes on behind them. An
 *     entry is a record (its `fields`, and `raw`, its line), the line of the names, or a line that is
 *     passed over (`text`).
 */
export function previewEntries(file, layout, records, most) {
  const entries = [];
  let next = 0;
  const passOver = (end) => {
    for (; next < Math.min(end, file.lines.length); next += 1) {
      const kind = next === layout.names_line ? "names" : "passed";
      entries.push({ kind, line: next, text: shorten(file.lines[next]) });
    }
  };
  let count = 0;
  for (const { fields, line, fault } of records) {
    if (count === most) {
      return { entries, rest: true };
    }
    passOver(line);
    next = Math.max(next, line + linesOf(fields));
    const shown = fields.slice(0, mostFields).map(shorten);
    const raw = shorten(file.lines[line] ?? "");
    entries.push({ kind: "record", line, raw, fields: shown, count: fields.length, fault });
    count += 1;
  }
  const end = file.lines.at(-1) === "" ? file.lines.length - 1 : file.lines.length;
  passOver(end);
  return { entries, rest: file.cut };
}
