// The statements with which other tools read a file.

import { TextioError } from "./errors.js";
import { handleOf } from "./layout.js";

/** The name by which the statements know a character set. */
function knownName(encoding) {
  const usual = { shift_jis: "Shift_JIS", big5: "Big5" };
  return usual[encoding] ?? (encoding.startsWith("windows") ? encoding : encoding.toUpperCase());
}

/** A text of the module's, which is freed. */
function taken(instance, address) {
  try {
    return instance.utf8At(address);
  } finally {
    instance.calls.free(address);
  }
}

/** The names of the tools. */
export function toolsOf(instance) {
  const address = instance.resultOf((result) => instance.calls.statement_tools(result));
  return taken(instance, address).split("\n").slice(0, -1);
}

export function importStatement(layout, tool, file, { proposal = 0 } = {}) {
  const { instance, address, sample } = handleOf(layout);
  if (!toolsOf(instance).includes(tool)) {
    throw new TextioError("bad_value", `there are no statements for '${tool}'`);
  }
  if (!(proposal in layout.proposals)) {
    throw new TextioError("bad_argument", `there is no proposal ${proposal}`);
  }
  const { text, mark, encoding } = sample;
  const textAt = instance.putText(text);
  try {
    const made = instance.withUtf8(tool, (toolAt) =>
      instance.withUtf8(file, (fileAt) =>
        instance.withUtf8(knownName(encoding ?? "utf-8"), (encodingAt) =>
          instance.resultOf(
            (result) =>
              instance.calls.statement_for(
                address, proposal, toolAt, fileAt, encodingAt, mark, textAt, text.length, result,
              ),
            "the file has no rows to import, or there is not enough memory to say how",
          ),
        ),
      ),
    );
    const whole = taken(instance, made);
    // What the tool cannot be told stands first, a line each, with an empty line behind.
    const [, obstacles, statement] = /^((?:.+\n)*)\n([^]*)$/.exec(whole);
    return { text: statement, obstacles: obstacles.split("\n").slice(0, -1) };
  } finally {
    instance.calls.free(textAt);
  }
}
