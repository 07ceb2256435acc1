/**
 * The state of the page: the file, what the user has said of it, and the answer to that. Tells its
 * listeners by the events `answer` and `fault`, and by `change` when the user wants something new; a fault
 * leaves everything as it was.
 *
 * One question is out at a time, so that an answer is never to an older question than the one before it.
 * What the user changes meanwhile is asked next, all at once. The answer that comes until then is shown by
 * whatever only shows it; what the user can set follows it when it is `settled`, or it would take a newer
 * setting back under the user's hands.
 */
import { layoutHints } from "./assumptions.js";

export class Session extends EventTarget {
  #worker;
  /** Hints that were given and not asked about yet; the file and encoding that are still to be opened. */
  #changed = false;
  #opening = null;
  #source = null;
  /** The last hints that were answered without a fault. */
  #sound = {};
  #asking = null;
  /** Counts the files that were closed: what was asked before is not shown any more. */
  #closed = 0;

  /** `{blob, name}` and what was found out about it, or null. Another object each time it is read. */
  file = null;
  /** The hints that the user has given, by name. */
  given = {};
  /** What the library says under these hints. */
  answer = null;
  entries = [];
  rest = false;
  /** The proposals of the last answer that was free to choose a layout. */
  readings = [];

  constructor(worker) {
    super();
    this.#worker = worker;
  }

  /** The proposal that is shown. */
  get best() {
    return this.answer.proposals[0];
  }

  /** Whether nothing newer waits to be asked than what was answered last. */
  get settled() {
    return !this.#changed && this.#opening === null;
  }

  get busy() {
    return this.#asking !== null;
  }

  /** Waits until all that is wanted was answered. */
  async idle() {
    await this.#asking;
  }

  /** Opens a file, with nothing known; a file that cannot be shown leaves the one before. */
  open(blob, name) {
    this.#opening = { blob, name, encoding: null, source: "file" };
    this.#ask();
  }

  /** Reads the same file in another encoding; null for the one that is found. */
  setEncoding(encoding) {
    const { blob, name } = this.file;
    this.#opening = { blob, name, encoding, source: "encoding" };
    this.#ask();
  }

  /** Takes hints as given; those with the value `undefined` are given back. */
  give(hints, source) {
    const all = Object.entries({ ...this.given, ...hints });
    this.#change(Object.fromEntries(all.filter(([, value]) => value !== undefined)), source);
  }

  takeBackAll() {
    this.#change({}, null);
  }

  /** Nothing that is still out is shown any more. */
  close() {
    this.#closed += 1;
    this.#opening = null;
    this.#changed = false;
  }

  #change(given, source) {
    performance.mark("textio-change");
    this.given = given;
    this.#source = source;
    this.#changed = true;
    this.#ask();
  }

  #ask() {
    this.#asking ??= this.#askAll();
    this.dispatchEvent(new Event("change"));
  }

  /** Hints come before a file, which is then read with hints that are known to be sound. */
  async #askAll() {
    while (!this.settled) {
      await (this.#changed ? this.#detect() : this.#open());
    }
    this.#asking = null;
    this.dispatchEvent(new Event("idle"));
  }

  async #detect() {
    const [hints, source] = [this.given, this.#source];
    this.#changed = false;
    const { told, fault } = await this.#reply("detect", { hints });
    if (told) {
      this.#show(told, hints, source);
      performance.measure("textio-change-to-table", "textio-change");
    } else if (fault && !this.#changed) {
      // Of hints that are not wanted any more it does not matter what is wrong with them.
      this.given = this.#sound;
      this.#fail(fault, source);
    }
  }

  async #open() {
    const { blob, name, encoding, source } = this.#opening;
    this.#opening = null;
    const hints = source === "file" ? {} : this.given;
    const { told, fault } = await this.#reply("open", { blob, encoding, hints });
    if (told) {
      if (source === "file") {
        this.#forget(hints);
      }
      this.file = { blob, name, ...told, encodingGiven: encoding };
      this.#show(told, hints, source);
    } else if (fault) {
      this.#fail(`${name}: ${fault}`, source);
    }
  }

  /** What was said while another file was opened was said of the one before. */
  #forget(hints) {
    this.given = hints;
    this.#changed = false;
    if (this.#opening?.source === "encoding") {
      this.#opening = null;
    }
  }

  /** What the worker has told, or its fault; neither if the file was closed meanwhile. */
  async #reply(question, data) {
    const closed = this.#closed;
    let reply;
    try {
      reply = { told: await this.#worker.ask(question, data) };
    } catch (error) {
      reply = { fault: error.message };
    }
    return closed === this.#closed ? reply : {};
  }

  #show({ answer, entries, rest }, hints, source) {
    this.#sound = hints;
    this.answer = answer;
    this.entries = entries;
    this.rest = rest;
    if (!layoutHints.some((name) => name in hints)) {
      this.readings = answer.proposals;
    }
    this.dispatchEvent(new CustomEvent("answer", { detail: { source } }));
  }

  #fail(text, source) {
    this.dispatchEvent(new CustomEvent("fault", { detail: { text, source }, cancelable: true }));
  }
}
