/** The readings of the text beside each other: what speaks for each, and a click takes one. */
import { hintsOfReading } from "./assumptions.js";
import { element } from "./element.js";
import { counted, layoutPhrase } from "./words.js";

/** What makes two readings the same one, whatever else is known by now. */
function identity({ kind, delimiter, widths }) {
  return JSON.stringify(kind === "fixed_width" ? [kind, widths] : [kind, delimiter]);
}

function button(reading, take) {
  const bar = element("i");
  bar.style.width = `${Math.round(100 * reading.score)}%`;
  return element(
    "button",
    { type: "button", onclick: take },
    element("strong", {}, `${layoutPhrase(reading)}, ${counted(reading.columns.length, "column")}`),
    element("span", { className: "score" }, `score ${reading.score.toFixed(2)}`),
    element("span", { className: "bar", "aria-hidden": "true" }, bar),
    element("span", { className: "why" }, reading.why),
  );
}

/** The reading that is shown: the first of those with this layout, quote and comments, or else layout. */
function current(readings, best) {
  const alike = readings.filter((reading) => identity(reading) === identity(best));
  const same = ({ quote, comment }) => quote === best.quote && comment === best.comment;
  return alike.find(same) ?? alike[0];
}

/**
 * @param {HTMLUListElement} list
 * @param {import("./session.js").Session} session
 */
export function showReadings(list, session) {
  let shown = null;
  let buttons = [];
  session.addEventListener("answer", () => {
    const { readings } = session;
    if (shown !== readings) {
      const focused = buttons.indexOf(document.activeElement);
      shown = readings;
      buttons = readings.map((reading) =>
        button(reading, () => session.give(hintsOfReading(reading, readings[0]), "reading")),
      );
      list.replaceChildren(...buttons.map((one) => element("li", { className: "reading" }, one)));
      buttons[focused]?.focus();
    }
    const taken = current(readings, session.best);
    buttons.forEach((one, index) => {
      one.setAttribute("aria-pressed", String(readings[index] === taken));
    });
  });
}
