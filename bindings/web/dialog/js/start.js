/** How a file comes in: dropped anywhere, chosen, or taken from the examples. */
import { byId, element } from "./element.js";
import { examples } from "./examples.js";

function offerExamples(begin, open, complain) {
  const take = async (name) => {
    const wanted = begin();
    try {
      const response = await fetch(new URL(`../examples/${name}`, import.meta.url));
      if (!response.ok) {
        throw new Error(`the server answered ${response.status}`);
      }
      const blob = await response.blob();
      if (wanted()) {
        open(blob, name);
      }
    } catch (error) {
      if (wanted()) {
        complain(`The example ${name} can't be fetched: ${error.message}.`);
      }
    }
  };
  const items = examples.map(([name, what]) =>
    element(
      "li",
      {},
      element("button", { type: "button", onclick: () => take(name) }, name, element("span", {}, what)),
    ),
  );
  byId("examples").replaceChildren(...items);
}

/** Files are taken wherever they are dropped: a near miss must not make the browser leave the page. */
function takeDrops(open, complain) {
  const hasFiles = (event) => event.dataTransfer?.types.includes("Files");
  const mark = (on) => document.body.classList.toggle("dragging", on);
  addEventListener("dragover", (event) => {
    if (hasFiles(event)) {
      event.preventDefault();
      mark(true);
    }
  });
  addEventListener("dragleave", (event) => {
    if (event.relatedTarget === null) {
      mark(false);
    }
  });
  addEventListener("drop", (event) => {
    if (!hasFiles(event)) {
      return;
    }
    event.preventDefault();
    mark(false);
    const { files } = event.dataTransfer;
    if (files.length > 1) {
      complain(`One file at a time, please: these were ${files.length}.`);
    } else if (files.length === 1) {
      open(files[0]);
    }
  });
}

/**
 * @param {(blob: Blob, name: string) => void} open
 * @param {(text: string) => void} complain
 */
export function offerFiles(open, complain) {
  let begun = 0;
  /** Gives whether the file that comes in is still the last one: one that is slow is not to replace it. */
  const begin = () => {
    begun += 1;
    const mine = begun;
    return () => mine === begun;
  };
  const openNow = (file) => {
    begin();
    open(file, file.name);
  };
  offerExamples(begin, open, complain);
  takeDrops(openNow, complain);
  byId("pick").onchange = ({ target }) => {
    const [file] = target.files;
    target.value = "";
    if (file) {
      openNow(file);
    }
  };
}
