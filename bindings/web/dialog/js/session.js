/**
 * The state of the page: the file, what the user has said of it, and the answer to that. Tells its
 * listeners by the events `answer` and `fault`; a fault leaves everything as it was.
 */
import { layoutHints } from "./assumptions.js";

export class Session extends EventTarget {
  #worker;
  #changed = false;
  #busy = null;
  #source = null;

  /** `{blob, name}` and what was found out about it, or null. */
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

  /** Opens a file, with nothing known; a file that cannot be shown leaves the one before. */
  async open(blob, name) {
    await this.#open({ blob, name }, null, {});
  }

  /** Reads the same file in another encoding; null for the one that is found. */
  async setEncoding(encoding) {
    await this.#open(this.file, encoding, this.given);
  }

  async #open({ blob, name }, encoding, given) {
    try {
      const told = await this.#worker.ask("open", { blob, encoding, hints: given });
      this.file = { blob, name, ...told, encodingGiven: encoding };
      this.given = given;
      this.#show(told, "file");
    } catch (error) {
      this.#fail(`${name}: ${error.message}`, "file");
    }
  }

  /** Takes hints as given; those with the value `undefined` are given back. */
  async give(hints, source) {
    const before = this.given;
    this.given = Object.fromEntries(
      Object.entries({ ...before, ...hints }).filter(([, value]) => value !== undefined),
    );
    await this.#detect(before, source);
  }

  async takeBackAll() {
    const before = this.given;
    this.given = {};
    await this.#detect(before);
  }

  /** Asks anew. While one question is out only the last of those that follow is asked. */
  async #detect(before, source) {
    performance.mark("textio-change");
    this.#changed = true;
    this.#source = source;
    if (this.#busy) {
      return this.#busy;
    }
    this.#busy = this.#detectWhileChanged(before);
    await this.#busy;
  }

  async #detectWhileChanged(before) {
    let sound = before;
    while (this.#changed) {
      this.#changed = false;
      const hints = this.given;
      const source = this.#source;
      try {
        this.#show(await this.#worker.ask("detect", { hints }), source);
        sound = hints;
      } catch (error) {
        if (!this.#changed) {
          this.given = sound;
        }
        this.#fail(error.message, source);
      }
    }
    this.#busy = null;
  }

  #show({ answer, entries, rest }, source) {
    this.answer = answer;
    this.entries = entries;
    this.rest = rest;
    if (!layoutHints.some((name) => name in this.given)) {
      this.readings = answer.proposals;
    }
    this.dispatchEvent(new CustomEvent("answer", { detail: { source } }));
  }

  #fail(text, source) {
    this.dispatchEvent(new CustomEvent("fault", { detail: { text, source } }));
  }
}
