/** The assumptions on the page: a control each, where it comes from, and a button to give it back. */
import { assumptions, givenBack, isGiven } from "./assumptions.js";
import { controls } from "./controls.js";
import { byId, element } from "./element.js";

class Entry {
  constructor(assumption, session) {
    this.assumption = assumption;
    const id = `assumption-${assumption.name}`;
    const give = (hints) => session.give(hints, assumption.name);
    this.control = controls[assumption.control](assumption, {
      id,
      change: (value) => give(assumption.hints(value)),
      refuse: (text) => this.refuse(text),
    });
    this.from = element("span", { id: `${id}-origin` });
    this.back = element("button", {
      type: "button",
      className: "quiet",
      onclick: () => this.#giveBack(give),
    });
    this.back.textContent = "Give back";
    this.back.setAttribute("aria-label", `Give back: ${assumption.title}`);
    this.fault = element("p", { className: "fault", role: "alert", id: `${id}-fault`, hidden: true });
    const origin = element("span", { className: "origin" }, this.from, this.back);
    const label = this.control.grouped
      ? element("span", { className: "title", id: `${id}-title` }, assumption.title)
      : element("label", { for: id }, assumption.title);
    const head = element("div", { className: "assumption-head" }, label, origin);
    this.body = element("div", { className: "assumption" }, head, this.control.body, this.fault);
    this.body.dataset.name = assumption.name;
    this.input = this.control.grouped ? this.control.body : this.body.querySelector(`#${id}`);
    this.input.setAttribute("aria-describedby", `${id}-origin ${id}-fault`);
    if (this.control.grouped) {
      this.input.setAttribute("role", "radiogroup");
      this.input.setAttribute("aria-labelledby", `${id}-title`);
    }
  }

  /** The button goes away with what it gave back: the focus goes to the control. */
  #giveBack(give) {
    give(givenBack(this.assumption));
    const place = this.control.grouped ? ":checked" : "select, input:enabled";
    this.control.body.querySelector(place).focus();
  }

  /** Says what is wrong with what the user has set; an empty text that nothing is. */
  refuse(text) {
    this.refused = text !== "";
    this.fault.hidden = text === "";
    this.fault.textContent = text;
    this.input.setAttribute("aria-invalid", String(text !== ""));
  }

  show(answer, given, lines) {
    const { assumption, control } = this;
    const shown = assumption.shown?.(answer) ?? true;
    if (!shown && this.body.contains(document.activeElement)) {
      byId("summary-text").focus();
    }
    this.body.hidden = !shown;
    // What was refused stands until something is set: an answer to an older question is no reply to it.
    if (!shown || this.refused) {
      return;
    }
    const byUser = isGiven(assumption, given);
    this.body.classList.toggle("given", byUser);
    this.from.textContent = byUser ? "set by you" : "found";
    this.back.hidden = !byUser;
    control.show(assumption.read(answer), lines);
  }
}

/**
 * A fault that has a control is told there, and its event's default prevented.
 *
 * @param {HTMLFormElement} form
 * @param {import("./session.js").Session} session
 */
export function showAssumptions(form, session) {
  const entries = assumptions.map((assumption) => new Entry(assumption, session));
  form.replaceChildren(...entries.map((entry) => entry.body));
  form.onsubmit = (event) => event.preventDefault();
  const show = () => {
    if (!session.answer || !session.settled) {
      return;
    }
    const lines = new Map(session.entries.map(({ line, text, raw }) => [line, text ?? raw]));
    for (const entry of entries) {
      entry.show(session.best, session.given, lines);
    }
  };
  session.addEventListener("change", () => entries.forEach((entry) => entry.refuse("")));
  session.addEventListener("answer", show);
  session.addEventListener("fault", (event) => {
    const entry = entries.find(({ assumption }) => assumption.name === event.detail.source);
    if (entry && !entry.body.hidden) {
      entry.refuse(event.detail.text);
      event.preventDefault();
    }
    show();
  });
}
