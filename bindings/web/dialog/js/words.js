/** What things are called on the page. */

export const kindNames = {
  delimited: "Delimited",
  space_aligned: "Aligned with blanks",
  fixed_width: "Fixed widths",
  line: "One field a line",
};

const signNames = {
  ",": "comma",
  ";": "semicolon",
  "\t": "tab",
  "|": "bar",
  ":": "colon",
  " ": "blank",
  ".": "point",
  "'": "apostrophe",
  "’": "typographic apostrophe",
  '"': "double quote",
  _: "underscore",
  "\u00a0": "hard blank",
  "\u202f": "narrow blank",
  "/": "slash",
  "#": "number sign",
  "%": "per cent",
  "!": "exclamation mark",
  "*": "asterisk",
  "~": "tilde",
  "^": "caret",
  "`": "backquote",
};

/** `comma ,`: a sign by its name, with the sign itself where it can be seen. */
export function signLabel(sign) {
  const name = signNames[sign];
  if (!name) {
    return [...sign].map((unit) => (unit === "\t" ? "⇥" : unit)).join("");
  }
  return /\s/.test(sign) ? name : `${name} ${sign}`;
}

function signPhrase(sign) {
  return signNames[sign] ?? `“${sign}”`;
}

const classNames = {
  datetime: "date and time",
  hex_number: "hexadecimal number",
  binary_number: "binary number",
  short_duration: "duration",
  delimiter_like: "lone delimiter",
  unknown: "no values",
};

export function className(name) {
  return classNames[name] ?? name;
}

/** `3 columns`, `1 column`. */
export function counted(count, thing) {
  return `${count.toLocaleString("en")} ${thing}${count === 1 ? "" : "s"}`;
}

/** `Delimited by comma`. */
export function layoutPhrase({ kind, delimiter }) {
  return kind === "delimited" ? `Delimited by ${signPhrase(delimiter)}` : kindNames[kind];
}

/** How far the answer can be trusted: a word for the style sheet, and one for the reader. */
export function confidencePhrase({ confidence }) {
  if (confidence >= 3) {
    return ["sure", "Sure"];
  }
  return confidence >= 1.5 ? ["probable", "Probable"] : ["doubtful", "Look at it"];
}

export function sizePhrase(bytes) {
  const units = ["bytes", "kB", "MB", "GB", "TB"];
  let unit = 0;
  let size = bytes;
  while (size >= 1000 && unit + 1 < units.length) {
    size /= 1000;
    unit += 1;
  }
  const digits = unit > 0 && size < 10 ? 1 : 0;
  return `${size.toFixed(digits)} ${units[unit]}`;
}
