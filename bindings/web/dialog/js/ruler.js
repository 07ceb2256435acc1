/**
 * The ruler for columns at fixed positions: a cut can be dragged, moved by the arrow keys, added by a
 * click on the scale and removed by the delete key. Each change is a hint at once.
 */
import { addCut, cutsOf, middleOfWidest, moveCut, rangeOf, removeCut } from "./cuts.js";
import { element } from "./element.js";

const linesShown = 6;
const mostUnits = 2000;
/** Units from the left edge that the padding of the sheet takes, as the style sheet has it. */
const paddingRem = 1;

/** A mark each ten units: `0....:....10...:....20`. */
function scaleText(units) {
  let text = "";
  for (let at = 0; at <= units; at += 10) {
    text += String(at)
      .padEnd(10, " ")
      .replace(/^(.{5}) /, "$1·");
  }
  return text;
}

/** One unit, one place: what would take more or none is shown as a dot. */
function placed(text) {
  return text.slice(0, mostUnits).replace(/[\0-\x1f\x7f]/g, "·");
}

export class Ruler {
  #session;
  #widths = [];
  #scale = element("div", { className: "ruler-scale", "aria-hidden": "true" });
  #text = element("pre", { className: "ruler-text", "aria-hidden": "true" });
  #sheet = element("div", { className: "ruler-sheet" }, this.#scale, this.#text);
  #cuts = [];
  #last = 0;
  #place;
  #remove;

  /**
   * @param {HTMLElement} place
   * @param {import("./session.js").Session} session
   */
  constructor(place, session) {
    this.#place = place;
    this.#session = session;
    const scroll = element(
      "div",
      { className: "ruler", role: "group", "aria-label": "Ruler of the columns" },
      this.#sheet,
    );
    const add = element(
      "button",
      { type: "button", className: "quiet", onclick: () => this.#addMiddle() },
      "Add a cut",
    );
    this.#remove = element("button", {
      type: "button",
      className: "quiet",
      onclick: () => this.#drop(this.#last),
    });
    this.#remove.textContent = "Remove the cut";
    const help = "Drag a cut, or move it with the arrow keys; click on the scale to add one.";
    place.append(
      scroll,
      element("div", { className: "ruler-tools" }, add, this.#remove, element("span", {}, help)),
    );
    this.#scale.addEventListener("click", (event) =>
      this.#give(addCut(this.#widths, this.#unitAt(event.clientX))),
    );
    for (const event of ["answer", "fault"]) {
      session.addEventListener(event, () => this.#show());
    }
  }

  #show() {
    if (!this.#session.answer || !this.#session.settled) {
      return;
    }
    const { best, entries } = this.#session;
    this.#place.hidden = best.kind !== "fixed_width" || best.widths.length === 0;
    if (this.#place.hidden) {
      return;
    }
    this.#widths = best.widths;
    const data = entries.filter(({ line }) => line >= best.first_data_line).slice(0, linesShown);
    const lines = data.map((entry) => placed(entry.raw ?? entry.text ?? ""));
    const units = Math.max(...cutsOf(this.#widths), ...lines.map((text) => text.length), 10);
    this.#scale.textContent = scaleText(units);
    this.#text.textContent = lines.join("\n");
    this.#showCuts();
  }

  #showCuts() {
    const places = cutsOf(this.#widths);
    while (this.#cuts.length < places.length) {
      this.#cuts.push(this.#makeCut(this.#cuts.length));
    }
    for (const spare of this.#cuts.splice(places.length)) {
      spare.remove();
    }
    places.forEach((place, index) => {
      const cut = this.#cuts[index];
      const { least, most } = rangeOf(this.#widths, index);
      cut.style.left = `calc(${paddingRem}rem + ${place}ch)`;
      cut.setAttribute("aria-valuemin", least);
      cut.setAttribute("aria-valuemax", most);
      cut.setAttribute("aria-valuenow", place);
      cut.setAttribute("aria-valuetext", `after character ${place}`);
    });
    this.#remove.disabled = places.length === 0;
  }

  #makeCut(index) {
    const cut = element("span", { className: "cut", role: "slider", tabIndex: 0 });
    cut.setAttribute("aria-label", `End of column ${index + 1}`);
    cut.addEventListener("focus", () => (this.#last = index));
    cut.addEventListener("keydown", (event) => this.#key(event, index));
    cut.addEventListener("pointerdown", (event) => {
      event.preventDefault();
      cut.focus();
      cut.setPointerCapture(event.pointerId);
    });
    cut.addEventListener("pointermove", (event) => {
      if (cut.hasPointerCapture(event.pointerId)) {
        this.#move(index, this.#unitAt(event.clientX));
      }
    });
    this.#sheet.append(cut);
    return cut;
  }

  #key(event, index) {
    const place = cutsOf(this.#widths)[index];
    const { least, most } = rangeOf(this.#widths, index);
    const step = event.shiftKey ? 5 : 1;
    const places = { ArrowLeft: place - step, ArrowRight: place + step, Home: least, End: most };
    if (event.key in places) {
      event.preventDefault();
      this.#move(index, places[event.key]);
    } else if (event.key === "Delete" || event.key === "Backspace") {
      event.preventDefault();
      this.#drop(index);
    }
  }

  #unitAt(x) {
    const { left } = this.#text.getBoundingClientRect();
    return Math.round((x - left) / this.#unitWidth());
  }

  #unitWidth() {
    const probe = element("span", {}, "0".repeat(100));
    this.#scale.append(probe);
    const { width } = probe.getBoundingClientRect();
    probe.remove();
    return width / 100;
  }

  #move(index, position) {
    if (cutsOf(this.#widths)[index] !== position) {
      this.#give(moveCut(this.#widths, index, position));
    }
  }

  #addMiddle() {
    const position = middleOfWidest(this.#widths);
    this.#give(addCut(this.#widths, position));
    this.#cuts[cutsOf(this.#widths).indexOf(position)]?.focus();
  }

  #drop(index) {
    if (index >= this.#cuts.length) {
      return;
    }
    this.#give(removeCut(this.#widths, index));
    (this.#cuts[Math.min(index, this.#cuts.length - 1)] ?? this.#remove.previousElementSibling).focus();
  }

  /** Shown before the answer is there, so that the cut follows the hand. */
  #give(widths) {
    if (widths === this.#widths || String(widths) === String(this.#widths)) {
      return;
    }
    this.#widths = widths;
    this.#showCuts();
    this.#session.give({ widths, kind: undefined, delimiter: undefined }, "widths");
  }
}
