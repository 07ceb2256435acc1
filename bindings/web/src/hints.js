// From properties to the texts that the library takes. What they mean, it knows alone.

import { TextioError } from "./errors.js";

/** What null says. */
const noneOf = { names_line: "none" };

function setHint(instance, hints, name, value) {
  const { calls } = instance;
  const set = (text) =>
    instance.withUtf8(name, (nameAt) =>
      instance.withUtf8(text, (valueAt, size) =>
        instance.check(calls.textio_hints_set_sized(hints, nameAt, valueAt, size)),
      ),
    );
  const add = (text) =>
    instance.withUtf8(name, (nameAt) =>
      instance.withUtf8(text, (valueAt) => instance.check(calls.textio_hints_add(hints, nameAt, valueAt))),
    );
  if (!Array.isArray(value)) {
    set(value === null ? noneOf[name] ?? "" : String(value));
  } else if (value.length === 0) {
    set("");
  } else {
    value.forEach((member) => add(String(member)));
  }
}

/** Calls with hints that say what the properties say. */
export function withHints(instance, properties, call) {
  const hints = instance.calls.textio_hints_new();
  if (hints === 0) {
    throw new TextioError("no_memory", "there is not enough memory");
  }
  try {
    for (const [name, value] of Object.entries(properties)) {
      if (value !== undefined) {
        setHint(instance, hints, name, value);
      }
    }
    return call(hints);
  } finally {
    instance.calls.textio_hints_free(hints);
  }
}
