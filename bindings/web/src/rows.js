// The records of a text, one by one, from the batches in which the module gives them.

import { TextioError } from "./errors.js";
import { bytesOf, piecesOf, piecesOfBlob, toUtf8 } from "./input.js";
import { handleOf } from "./layout.js";

// Where things stand in a batch; see src/records.c.
const RECORDS = 0, UNITS = 1, UNIT_COUNT = 2, NUMBERS = 3, HUNGRY = 5, END = 6, IRREGULAR = 7;

const dropped = new FinalizationRegistry(({ instance, address }) => instance.calls.records_free(address));

/** The records of one text in the module's memory. */
class Records {
  #instance;
  #address;
  #words = new Map();

  constructor(instance, address) {
    this.#instance = instance;
    this.#address = address;
    dropped.register(this, { instance, address }, this);
  }

  free() {
    if (this.#address !== 0) {
      dropped.unregister(this);
      this.#instance.calls.records_free(this.#address);
      this.#address = 0;
    }
  }

  feed(piece) {
    const { calls } = this.#instance;
    if (piece === undefined) {
      calls.records_last_piece(this.#address);
      return;
    }
    const room = calls.records_piece(this.#address, piece.length) >>> 0;
    if (room === 0) {
      throw new TextioError("no_memory", "there is not enough memory");
    }
    this.#instance.bytes.set(piece, room);
  }

  /** The next batch: rows, whether another piece is wanted, and how it stands with the text. */
  next() {
    const instance = this.#instance;
    instance.check(instance.calls.records_next(this.#address));
    const numbers = instance.numbers;
    const batch = numbers.subarray(this.#address >>> 2, (this.#address >>> 2) + IRREGULAR + 1);
    return {
      rows: this.#rowsOf(batch, numbers),
      hungry: batch[HUNGRY] === 1,
      end: this.#word(batch[END]),
      irregular: batch[IRREGULAR],
    };
  }

  #rowsOf(batch, numbers) {
    const text = this.#instance.textAt(batch[UNITS], batch[UNIT_COUNT]);
    const rows = new Array(batch[RECORDS]);
    let at = batch[NUMBERS] >>> 2;
    let begin = 0;
    for (let row = 0; row < rows.length; ++row) {
      const line = numbers[at];
      const fault = this.#word(numbers[at + 1]);
      const fields = new Array(numbers[at + 2]);
      at += 3;
      for (let field = 0; field < fields.length; ++field) {
        const end = numbers[at++];
        fields[field] = text.slice(begin, end);
        begin = end;
      }
      rows[row] = { fields, line, fault };
    }
    return rows;
  }

  #word(address) {
    let word = this.#words.get(address);
    if (word === undefined) {
      word = this.#instance.utf8At(address);
      this.#words.set(address, word);
    }
    return word;
  }
}

/** What a loop over the records runs through; the two below differ only in whether they wait. */
class Rows {
  end = "not_yet";
  irregular = 0;
  #steps;

  constructor(records, pieces) {
    this.records = records;
    this.pieces = pieces;
  }

  get begun() {
    this.#steps ??= this.steps();
    return this.#steps;
  }

  next() {
    return this.begun.next();
  }

  take() {
    const batch = this.records.next();
    this.end = batch.end;
    this.irregular = batch.irregular;
    if (batch.rows.length === 0 && batch.end === "too_long") {
      // A text that breaks off in the middle must not pass for one that has ended.
      throw new TextioError("too_long", "a record is longer than can be read: an open quote, or no table");
    }
    return batch;
  }
}

// Of a loop that was never entered, leaving it does not come to its end; so each frees its records itself.

class SyncRows extends Rows {
  [Symbol.iterator]() {
    return this;
  }

  return(value) {
    const result = this.begun.return(value);
    this.records.free();
    return result;
  }

  *steps() {
    try {
      for (let batch = this.take(); batch.hungry || batch.rows.length > 0; batch = this.take()) {
        yield* batch.rows;
        if (batch.hungry) {
          this.records.feed(this.pieces.next().value);
        }
      }
    } finally {
      this.records.free();
    }
  }
}

class AsyncRows extends Rows {
  [Symbol.asyncIterator]() {
    return this;
  }

  async return(value) {
    const result = await this.begun.return(value);
    this.records.free();
    return result;
  }

  async *steps() {
    try {
      for (let batch = this.take(); batch.hungry || batch.rows.length > 0; batch = this.take()) {
        for (const row of batch.rows) {
          yield row;
        }
        if (batch.hungry) {
          this.records.feed((await this.pieces.next()).value);
        }
      }
    } finally {
      this.records.free();
    }
  }
}

function open(layout, { proposal = 0, policy = "keep" }, makeRecords) {
  const { instance, address } = handleOf(layout);
  const made = instance.withUtf8(policy, (word) =>
    instance.resultOf((result) => makeRecords(instance, address, proposal, word, result)),
  );
  return new Records(instance, made);
}

function openText(text, layout, options) {
  return open(layout, options, (instance, address, proposal, policy, result) =>
    // The records own the copy from here on.
    instance.calls.records_of_text(address, proposal, policy, instance.putText(text), text.length, result),
  );
}

function openPieces(layout, options) {
  return open(layout, options, (instance, address, proposal, policy, result) =>
    instance.calls.records_of_pieces(address, proposal, policy, result),
  );
}

/** The records of a text in memory. */
export function rowsOf(input, layout, options = {}) {
  if (typeof input === "string") {
    return new SyncRows(openText(input, layout, options));
  }
  const convert = toUtf8(options.encoding ?? layout.encoding ?? undefined);
  const pieces = piecesOf(bytesOf(input), convert);
  return new SyncRows(openPieces(layout, options), pieces);
}

/** The records of anything, where they can be waited for. */
export function rows(input, layout, options = {}) {
  if (typeof input === "string") {
    return new AsyncRows(openText(input, layout, options));
  }
  const convert = toUtf8(options.encoding ?? layout.encoding ?? undefined);
  const pieces = input instanceof Blob ? piecesOfBlob(input, convert) : piecesOf(bytesOf(input), convert);
  return new AsyncRows(openPieces(layout, options), pieces);
}
