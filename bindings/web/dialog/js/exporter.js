/** The export of the whole file, with its progress, and what came of it. */
import { byId } from "./element.js";
import { formats } from "./formats.js";
import { counted } from "./words.js";

function resultName(name, extension) {
  const base = name.replace(/\.[^.]*$/, "") || name;
  return `${base}.table${extension}`;
}

function download(blob, name) {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(blob);
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
}

/** Where the user wants it: undefined if nowhere, null where the browser only knows downloads. */
async function askTarget(name) {
  if (typeof window.showSaveFilePicker !== "function") {
    return null;
  }
  try {
    return await window.showSaveFilePicker({ suggestedName: name });
  } catch (error) {
    if (error.name === "AbortError") {
      return undefined;
    }
    throw error;
  }
}

function resultText({ records, irregular, firstIrregular }, name) {
  const odd =
    irregular > 0
      ? ` ${counted(irregular, "record")} did not fit, the first on line ${firstIrregular + 1}.`
      : "";
  return `${counted(records, "record")} written to ${name}.${odd}`;
}

/**
 * @param worker The client of the worker.
 * @param {import("./session.js").Session} session
 * @param {{say: (text: string) => void, complain: (text: string) => void}} told
 */
export function offerExport(worker, session, { say, complain }) {
  const buttons = document.querySelectorAll("[data-export]");
  const result = byId("exported");
  const bar = byId("progress-bar");

  const progress = byId("progress");
  const lock = (on) => {
    buttons.forEach((button) => {
      button.disabled = on;
    });
  };
  const showProgress = (on) => {
    progress.hidden = !on;
    bar.value = 0;
  };
  /** The focus comes back from where it was lost, and not from where the user has gone meanwhile. */
  const focusBack = (button) => {
    if (document.activeElement === document.body || progress.contains(document.activeElement)) {
      button.focus();
    }
  };

  const run = async (button) => {
    const format = button.dataset.export;
    const name = resultName(session.file.name, formats[format].extension);
    result.hidden = true;
    lock(true);
    try {
      const target = await askTarget(name);
      if (target === undefined) {
        return;
      }
      // What was set just before is to be in the export.
      await session.idle();
      showProgress(true);
      const done = await worker.ask("export", { format, target }, ({ share }) => {
        bar.value = share;
      });
      if (done.blob) {
        download(done.blob, name);
      }
      result.textContent = resultText(done, target?.name ?? name);
      result.hidden = false;
      say(result.textContent);
    } catch (error) {
      if (error.status === "AbortError") {
        say("The export was cancelled. Nothing was written.");
      } else {
        complain(`The export failed, and nothing was written. ${error.message}`);
      }
    } finally {
      lock(false);
      focusBack(button);
      showProgress(false);
    }
  };

  buttons.forEach((button) => {
    button.onclick = () => run(button);
  });
  byId("cancel").onclick = () => worker.ask("cancel");
  session.addEventListener("answer", () => {
    result.hidden = true;
  });
}
