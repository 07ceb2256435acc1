/**
 * A click on the number of a line says what the line is. The numbers are one stop for the tab key; the
 * arrow keys go from one to the next.
 */
import { element } from "./element.js";

/** The button with the number of a line, counted from 0; null if the table does not have it. */
export function lineButton(region, line) {
  return region.querySelector(`.line[data-line="${line}"]`);
}

export class LineMenu {
  #region;
  #session;
  #menu = null;
  #line = null;

  constructor(region, session) {
    this.#region = region;
    this.#session = session;
    region.addEventListener("click", (event) => this.#clicked(event));
    region.addEventListener("keydown", (event) => this.#key(event));
    document.addEventListener("pointerdown", (event) => {
      if (!this.#menu?.contains(event.target)) {
        this.#close();
      }
    });
  }

  #clicked(event) {
    const opener = event.target.closest(".line");
    if (opener) {
      this.#open(opener);
    }
  }

  #key(event) {
    const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
    const buttons = [...this.#region.querySelectorAll(".line")];
    const at = buttons.indexOf(document.activeElement);
    if (step && at >= 0) {
      event.preventDefault();
      buttons[at + step]?.focus();
    } else if (event.key === "Enter" && event.target === this.#region) {
      event.preventDefault();
      buttons[0]?.focus();
    } else if (event.key === "Escape" && at >= 0) {
      this.#region.focus();
    }
  }

  #open(opener) {
    this.#close();
    const line = Number(opener.dataset.line);
    const item = (text, hints) =>
      element("button", { type: "button", role: "menuitem", onclick: () => this.#take(hints) }, text);
    this.#menu = element(
      "div",
      { className: "line-menu", role: "menu", "aria-label": `Line ${line + 1}` },
      item("Data begin here", { first_data_line: line }),
      item("Names are here", { names_line: line, first_data_line: undefined }),
    );
    this.#menu.addEventListener("keydown", (event) => this.#menuKey(event));
    const { left, bottom } = opener.getBoundingClientRect();
    document.body.append(this.#menu);
    const lowest = document.documentElement.clientHeight - this.#menu.offsetHeight - 8;
    this.#menu.style.left = `${left + scrollX}px`;
    this.#menu.style.top = `${Math.min(bottom, lowest) + scrollY}px`;
    this.#line = line;
    this.#menu.firstElementChild.focus();
  }

  #menuKey(event) {
    const items = [...this.#menu.children];
    const at = items.indexOf(document.activeElement);
    const step = { ArrowDown: 1, ArrowUp: items.length - 1 }[event.key];
    if (step) {
      event.preventDefault();
      items[(at + step) % items.length].focus();
    } else if (event.key === "Escape" || event.key === "Tab") {
      event.preventDefault();
      this.#close();
      // The table may be another one by now.
      (lineButton(this.#region, this.#line) ?? this.#region).focus();
    }
  }

  #take(hints) {
    this.#close();
    this.#region.focus();
    this.#session.give(hints, "line");
  }

  #close() {
    this.#menu?.remove();
    this.#menu = null;
  }
}
