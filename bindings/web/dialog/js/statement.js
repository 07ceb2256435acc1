/** The statement with which another tool reads the file, to be copied. */
import { byId, element } from "./element.js";

/**
 * @param worker The client of the worker.
 * @param {import("./session.js").Session} session
 * @param {(text: string) => void} say
 */
export function offerStatement(worker, session, say) {
  const select = byId("tool");
  const text = byId("statement-text");

  const ask = async () => {
    try {
      return await worker.ask("statement", {
        tool: select.value || undefined,
        name: session.file.name,
      });
    } catch (error) {
      return { tools: [], text: error.message };
    }
  };

  const show = async () => {
    const told = await ask();
    byId("statement").hidden = told.tools.length === 0;
    if (select.length === 0) {
      select.append(...told.tools.map((name) => element("option", { value: name }, name)));
    }
    text.textContent = told.text;
  };

  select.onchange = show;
  byId("copy").onclick = async () => {
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
