/** Talks with the worker: one promise for each question. */

/** What the worker could not do: `message` is for the user. */
export class WorkerFault extends Error {
  constructor({ status, text }) {
    super(text);
    this.status = status;
  }
}

export class WorkerClient {
  #worker = new Worker(new URL("worker.js", import.meta.url), { type: "module" });
  #waiting = new Map();
  #next = 0;

  constructor() {
    this.#worker.onmessage = ({ data }) => this.#take(data);
    this.#worker.onerror = (event) => {
      const failed = { status: "internal", text: event.message || "The library could not be loaded." };
      for (const id of [...this.#waiting.keys()]) {
        this.#take({ id, failed });
      }
    };
  }

  ask(ask, data = {}, progress = undefined) {
    const id = this.#next;
    this.#next += 1;
    return new Promise((resolve, reject) => {
      this.#waiting.set(id, { resolve, reject, progress });
      this.#worker.postMessage({ ...data, id, ask });
    });
  }

  #take({ id, done, failed, progress }) {
    const question = this.#waiting.get(id);
    if (progress) {
      question.progress?.(progress);
      return;
    }
    this.#waiting.delete(id);
    if (failed) {
      question.reject(new WorkerFault(failed));
    } else {
      question.resolve(done);
    }
  }
}
