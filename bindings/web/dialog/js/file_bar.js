/** The file's name, size and encoding, and the way to another file. */
import { byId, element } from "./element.js";
import { encodings } from "./encodings.js";
import { sizePhrase } from "./words.js";

/**
 * @param {import("./session.js").Session} session
 * @param {() => void} close
 */
export function showFile(session, close) {
  const select = byId("encoding");
  let shown = null;
  const labels = new Map(encodings);
  const fill = ({ found, encoding, encodingGiven }) => {
    const auto = element("option", { value: "" }, `${labels.get(found)} (found)`);
    select.replaceChildren(auto, ...encodings.map(([value, label]) => element("option", { value }, label)));
    select.value = encodingGiven === null ? "" : encoding;
  };
  select.onchange = () => session.setEncoding(select.value || null);
  byId("close-file").onclick = close;
  session.addEventListener("answer", () => {
    const { file } = session;
    if (shown === file || !session.settled) {
      return;
    }
    shown = file;
    byId("file").hidden = false;
    byId("file-name").textContent = file.name;
    byId("file-size").textContent = sizePhrase(file.blob.size);
    fill(file);
    const { undecodable } = file;
    byId("decoding").hidden = undecodable === 0;
    byId("decoding").textContent =
      `${undecodable} place${undecodable === 1 ? "" : "s"} can't be read as ${labels.get(file.encoding)} and ` +
      "show as \ufffd. Is it another encoding?";
  });
  session.addEventListener("fault", ({ detail }) => {
    if (detail.source === "encoding" && session.settled) {
      fill(session.file);
    }
  });
}
