/** The answer in a sentence, and how far it can be trusted; also for those who listen. */
import { byId } from "./element.js";
import { confidencePhrase, counted, layoutPhrase } from "./words.js";

/**
 * @param {import("./session.js").Session} session
 * @param {(text: string) => void} say
 */
export function showSummary(session, say) {
  session.addEventListener("answer", ({ detail }) => {
    const { answer, best, entries, rest, given } = session;
    const title = `${layoutPhrase(best)}, ${counted(best.columns.length, "column")}`;
    const [mark, word] = confidencePhrase(answer);
    const badge = byId("confidence");
    const set = Object.keys(given).length;
    byId("summary-text").textContent = title;
    badge.className = `badge ${mark}`;
    badge.textContent = set > 0 ? `${word}, with what you set` : word;
    const more = answer.is_table
      ? `confidence ${answer.confidence.toFixed(1)}`
      : "This does not look like a table.";
    byId("summary-more").textContent = more;
    byId("take-back-all").hidden = set === 0;
    const records = entries.filter(({ kind }) => kind === "record").length;
    const note = records === 0 ? "no records" : `${rest ? "the first" : "all"} ${counted(records, "record")}`;
    byId("preview-note").textContent = note;
    if (session.settled) {
      say(`${title}. ${word}. ${note}.`);
    }
    if (detail.source === "file") {
      byId("summary-text").focus({ preventScroll: true });
    }
  });
}
