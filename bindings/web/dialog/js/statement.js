/** The statement with which another tool reads the file, to be copied. Hidden where the module has none. */
import { byId, element } from "./element.js";

/**
 * @param worker The client of the worker.
 * @param {import("./session.js").Session} session
 * @param {(text: string) => void} say
 */
export function offerStatement(worker, session, say) {
  const select = byId("tool");
  const text = byId("statement-text");
  const copy = byId("copy");

  const show = async () => {
    const tool = select.value || undefined;
    const told = await worker.ask("statement", { tool, name: session.file.name }).catch(() => ({ tools: [] }));
    byId("statement").hidden = told.tools.length === 0;
    if (select.length === 0) {
      select.append(...told.tools.map((name) => element("option", { value: name }, name)));
    }
    text.textContent = told.text;
    copy.hidden = !told.possible;
  };

  select.onchange = show;
  copy.onclick = async () => {
    try {
      await navigator.clipboard.writeText(text.textContent);
      say("Copied.");
    } catch {
      getSelection().selectAllChildren(text);
      say("The statement is selected: copy it from there.");
    }
  };
  session.addEventListener("answer", show);
}
