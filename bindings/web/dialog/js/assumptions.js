/**
 * The assumptions that the page has a control for: which hints each one is made of, how it is read from
 * an answer, and what there is to choose from. A value is what the control shows; `hints` says it to
 * the library.
 */
import { kindNames, signLabel } from "./words.js";

/** The hints that choose among layouts. */
export const layoutHints = ["kind", "delimiter", "widths"];

function signs(...list) {
  return list.map((sign) => ({ value: sign, label: signLabel(sign) }));
}

const none = { value: null, label: "none" };

const kind = {
  name: "kind",
  title: "Layout",
  control: "radios",
  owns: ["kind"],
  choices: Object.entries(kindNames).map(([value, label]) => ({ value, label })),
  read: (answer) => answer.kind,
  hints: (value) => ({ kind: value, delimiter: undefined, widths: undefined }),
  givenBy: layoutHints,
};

const delimiter = {
  name: "delimiter",
  title: "Delimiter",
  control: "choice",
  owns: ["delimiter"],
  choices: signs(",", ";", "\t", "|", ":", " "),
  own: [{ label: "Delimiter: other text" }],
  shown: (answer) => answer.kind === "delimited",
  read: (answer) => answer.delimiter,
  hints: (value) => ({ delimiter: value, kind: undefined, widths: undefined }),
};

const widths = {
  name: "widths",
  title: "Widths",
  control: "numbers",
  owns: ["widths"],
  shown: (answer) => answer.kind === "fixed_width",
  read: (answer) => answer.widths,
  hints: (value) => ({ widths: value, kind: undefined, delimiter: undefined }),
};

const firstDataLine = {
  name: "first_data_line",
  title: "Data begin on line",
  control: "line",
  owns: ["first_data_line"],
  read: (answer) => answer.first_data_line,
  hints: (value) => ({ first_data_line: value }),
};

const namesLine = {
  name: "names_line",
  title: "Names on line",
  control: "line",
  owns: ["names_line"],
  noneLabel: "no names",
  read: (answer) => answer.names_line,
  hints: (value) => ({ names_line: value }),
};

const quote = {
  name: "quote",
  title: "Quote",
  control: "choice",
  owns: ["quote"],
  choices: [none, ...signs('"', "'", "~", "|", "*", "^", "`")],
  own: [{ label: "Quote: another character" }],
  shown: (answer) => answer.kind !== "line",
  read: (answer) => answer.quote,
  hints: (value) => ({ quote: value }),
};

/** Comments are two hints: what opens them, and what ends those that go over several lines. */
const comment = {
  name: "comment",
  title: "Comments",
  control: "choice",
  owns: ["comment", "comment_end"],
  choices: [
    { value: [null, null], label: "none" },
    ...["#", "%", "!", "//", ";", "--", "*", "\\", "~", "@", "REM"].map((opener) => ({
      value: [opener, null],
      label: `${opener} to the end of the line`,
    })),
    { value: ["/*", "*/"], label: "/* to */" },
    { value: ["<!--", "-->"], label: "<!-- to -->" },
  ],
  own: [{ label: "Comments: begin with" }, { label: "Comments: end with (empty: the line)", empty: true }],
  read: (answer) => [answer.comment, answer.comment_end],
  hints: ([opener, end]) => ({
    comment: opener,
    comment_end: opener === null ? undefined : (end ?? undefined),
  }),
};

const decimal = {
  name: "decimal",
  title: "Decimal mark",
  control: "choice",
  owns: ["decimal"],
  choices: signs(".", ","),
  untold: "nothing tells",
  read: (answer) => answer.decimal,
  hints: (value) => ({ decimal: value }),
};

const thousands = {
  name: "thousands",
  title: "Thousands separator",
  control: "choice",
  owns: ["thousands"],
  choices: [none, ...signs(",", ".", " ", "'", "’", "_", "\u00a0", "\u202f")],
  read: (answer) => answer.thousands,
  hints: (value) => ({ thousands: value }),
};

export const assumptions = [
  kind,
  delimiter,
  widths,
  firstDataLine,
  namesLine,
  quote,
  comment,
  decimal,
  thousands,
];

/** Whether the user has said it, and not the library found it. */
export function isGiven(assumption, given) {
  return (assumption.givenBy ?? assumption.owns).some((name) => name in given);
}

/** The hints that give an assumption back. */
export function givenBack(assumption) {
  const names = assumption.givenBy ?? assumption.owns;
  return Object.fromEntries(names.map((name) => [name, undefined]));
}

/** The hints that make a reading the answer: its layout, and what else tells it from the best one. */
export function hintsOfReading(reading, best) {
  const back = Object.assign({}, ...[kind, quote, comment].map(givenBack));
  if (reading === best) {
    return back;
  }
  const layout = { delimited: delimiter, fixed_width: widths }[reading.kind] ?? kind;
  const parts = [layout];
  for (const part of [quote, comment]) {
    if (JSON.stringify(part.read(reading)) !== JSON.stringify(part.read(best))) {
      parts.push(part);
    }
  }
  return Object.assign(back, ...parts.map((part) => part.hints(part.read(reading))));
}
