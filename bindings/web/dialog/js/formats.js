/** The formats of an export: text for the beginning, for each record and for the end. */

/** Names that are not empty and differ. */
export function distinctNames(columns) {
  const taken = new Set();
  return columns.map(({ name }, index) => {
    const base = name || `column ${index + 1}`;
    let distinct = base;
    for (let copy = 2; taken.has(distinct); copy += 1) {
      distinct = `${base} (${copy})`;
    }
    taken.add(distinct);
    return distinct;
  });
}

function escapeForPattern(text) {
  return text.replace(/[.*+?^${}()|[\]\\]/g, "\\$&");
}

/**
 * A function that writes the numbers of a layout with a point and without grouping, and gives every
 * other text back as it is.
 */
export function plainNumbers({ decimal, thousands }) {
  const mark = escapeForPattern(decimal ?? ".");
  const group = thousands ? escapeForPattern(thousands) : null;
  const whole = group ? `(?:\\d{1,3}(?:${group}\\d{3})+|\\d+)` : "\\d+";
  const pattern = new RegExp(`^([+-]?)(${whole})?(?:${mark}(\\d*))?([eE][+-]?\\d+)?$`);
  return (text) => {
    const match = pattern.exec(text);
    if (!match || !(match[2] || match[3])) {
      return text;
    }
    const [, sign, digits = "0", fraction, exponent = ""] = match;
    const grouped = group ? digits.replaceAll(thousands, "") : digits;
    return `${sign}${grouped}${fraction ? `.${fraction}` : ""}${exponent}`;
  };
}

/** For each column, what makes its values plain. */
function converters(layout) {
  const plain = plainNumbers(layout);
  const same = (text) => text;
  return layout.columns.map((column) => (column.class === "number" ? plain : same));
}

function csvCell(text) {
  return /[",\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text;
}

function csvWriter(layout) {
  const convert = converters(layout);
  const line = (cells) => `${cells.map(csvCell).join(",")}\r\n`;
  return {
    begin: () => line(distinctNames(layout.columns)),
    record(fields) {
      const cells = fields.map((field, index) => convert[index]?.(field) ?? field);
      while (cells.length < convert.length) {
        cells.push("");
      }
      return line(cells);
    },
    end: () => "",
  };
}

function jsonWriter(layout) {
  const convert = converters(layout);
  const keys = distinctNames(layout.columns).map((name) => JSON.stringify(name));
  const key = (index) => keys[index] ?? JSON.stringify(`column ${index + 1}`);
  const number = /^-?(?:0|[1-9]\d*)(?:\.\d+)?(?:[eE][+-]?\d+)?$/;
  const value = (text, index) => {
    if (text === "") {
      return "null";
    }
    const plain = convert[index]?.(text) ?? text;
    const isNumber = layout.columns[index]?.class === "number" && number.test(plain);
    return isNumber ? plain : JSON.stringify(text);
  };
  let first = true;
  return {
    begin: () => "[",
    record(fields) {
      const members = fields.map((field, index) => `${key(index)}: ${value(field, index)}`);
      for (let index = fields.length; index < keys.length; index += 1) {
        members.push(`${keys[index]}: null`);
      }
      const separator = first ? "\n" : ",\n";
      first = false;
      return `${separator}{${members.join(", ")}}`;
    },
    end: () => "\n]\n",
  };
}

export const formats = {
  csv: { type: "text/csv", extension: ".csv", writer: csvWriter },
  json: { type: "application/json", extension: ".json", writer: jsonWriter },
};
