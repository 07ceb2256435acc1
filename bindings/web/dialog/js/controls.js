/**
 * The kinds of controls. Each is made once and then shown values, so that the focus stays where it is:
 * `{body, show(value, lines), grouped}`. `change(value)` is called when the user changes it, `refuse(text)`
 * when what the user wrote is no value.
 */
import { element } from "./element.js";

function radios({ name, choices }, { change }) {
  const inputs = choices.map(({ value }) =>
    element("input", { type: "radio", name, value, onchange: () => change(value) }),
  );
  const labels = choices.map(({ label }, index) => element("label", {}, inputs[index], label));
  return {
    grouped: true,
    body: element("div", { className: "radios" }, ...labels),
    show(value) {
      inputs.forEach((input) => {
        input.checked = input.value === value;
      });
    },
  };
}

/** The texts that make a value of one's own: one input for each part of it. */
function ownInputs({ own }, { change, refuse }) {
  const inputs = own.map(({ label }) =>
    element("input", { type: "text", className: "short", hidden: true, "aria-label": label }),
  );
  const changed = () => {
    const texts = inputs.map((input) => input.value);
    if (texts.some((text, index) => text === "" && !own[index].empty)) {
      refuse("Write the characters.");
      return;
    }
    const parts = texts.map((text) => (text === "" ? null : text.replaceAll("\\t", "\t")));
    change(parts.length === 1 ? parts[0] : parts);
  };
  inputs.forEach((input) => {
    input.onchange = changed;
  });
  return inputs;
}

/** One of several values, or one of the user's own. */
function choice(assumption, { id, change, refuse }) {
  const key = JSON.stringify;
  const ownKey = "own";
  const inputs = assumption.own ? ownInputs(assumption, { change, refuse }) : [];
  const select = element("select", { id });
  const option = (value, label) => element("option", { value }, label);
  const unlisted = option("", "");
  select.append(...assumption.choices.map((one) => option(key(one.value), one.label)));
  if (inputs.length > 0) {
    select.append(option(ownKey, "other …"));
  }
  /** A value that is none of the choices gets an entry as long as it is shown. */
  const list = (value) => {
    if (assumption.choices.some((one) => key(one.value) === key(value))) {
      unlisted.remove();
      return;
    }
    unlisted.value = key(value);
    unlisted.textContent = [value].flat().filter(Boolean).join(" to ") || assumption.untold || "none";
    select.prepend(unlisted);
  };
  const showOwn = (shown) => {
    inputs.forEach((input) => {
      input.hidden = !shown;
    });
  };
  select.onchange = () => {
    showOwn(select.value === ownKey);
    if (select.value === ownKey) {
      inputs[0].focus();
    } else {
      change(JSON.parse(select.value));
    }
  };
  return {
    body: element("div", { className: "controls" }, select, ...inputs),
    show(value) {
      if (select.value === ownKey && inputs.includes(document.activeElement)) {
        return;
      }
      list(value);
      select.value = key(value);
      showOwn(false);
    },
  };
}

/** A line of the text, by its number from 1, with how it begins; some may be on no line. */
function line({ noneLabel, title }, { id, change, refuse }) {
  const number = element("input", { type: "number", id, min: 1, step: 1, inputMode: "numeric" });
  const excerpt = element("p", { className: "excerpt" });
  const parts = [number];
  const none = element("input", { type: "checkbox" });
  if (noneLabel) {
    parts.push(element("label", {}, none, noneLabel));
    none.setAttribute("aria-label", `${title}: ${noneLabel}`);
  }
  let last = 0;
  number.oninput = () => {
    if (/^[1-9]\d*$/.test(number.value)) {
      change(Number(number.value) - 1);
    } else {
      refuse("Lines are numbered from 1.");
    }
  };
  none.onchange = () => change(none.checked ? null : last);
  return {
    body: element("div", {}, element("div", { className: "controls" }, ...parts), excerpt),
    show(value, lines) {
      none.checked = value === null;
      number.disabled = value === null;
      last = value ?? last;
      const shown = value === null ? "" : String(value + 1);
      if (number.value !== shown) {
        number.value = shown;
      }
      const text = value === null ? "" : (lines.get(value) ?? "");
      excerpt.textContent = text.slice(0, 80).replaceAll("\t", " ⇥ ");
      excerpt.hidden = text.trim() === "";
    },
  };
}

/** A list of whole numbers. */
function numbers(_, { id, change, refuse }) {
  const input = element("input", { type: "text", id, inputMode: "numeric" });
  let writing = false;
  input.oninput = () => {
    writing = true;
  };
  input.onblur = () => {
    writing = false;
  };
  input.onchange = () => {
    writing = false;
    const list = input.value.split(/[\s,;]+/).filter(Boolean);
    if (list.length > 0 && list.every((text) => /^[1-9]\d{0,8}$/.test(text))) {
      change(list.map(Number));
    } else {
      refuse("Write whole numbers, such as 10, 8, 6.");
    }
  };
  return {
    body: element("div", { className: "controls" }, input),
    show(value) {
      if (!writing) {
        input.value = value.join(", ");
      }
    },
  };
}

export const controls = { radios, choice, line, numbers };
