/** Where an export goes: into a file that the user has named, or into a Blob that is then downloaded. */

/** A file of the user's. Until `close`, what was in it before is untouched. */
export class StreamTarget {
  #stream;

  static async open(handle) {
    const target = new StreamTarget();
    target.#stream = await handle.createWritable();
    return target;
  }

  async write(text) {
    await this.#stream.write(text);
  }

  async close() {
    await this.#stream.close();
    return null;
  }

  async discard() {
    await this.#stream.abort();
  }
}

/** Parts are made into one Blob now and then: a browser keeps large Blobs on disk. */
export class BlobTarget {
  #parts = [];
  #type;

  constructor(type) {
    this.#type = type;
  }

  async write(text) {
    this.#parts.push(text);
    if (this.#parts.length === 64) {
      this.#parts = [new Blob(this.#parts)];
    }
  }

  async close() {
    return new Blob(this.#parts, { type: this.#type });
  }

  async discard() {
    this.#parts = [];
  }
}
