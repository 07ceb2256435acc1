/** The whole file, record by record, to a file of another format. */
import { rows } from "./engine.js";
import { formats } from "./formats.js";
import { BlobTarget, StreamTarget } from "./export_target.js";

/** Code units that are written at once. */
const chunkUnits = 1 << 16;

const channel = new MessageChannel();

/** Lets messages in, such as the one to cancel. Timers would wait for some milliseconds. */
function breathe() {
  return new Promise((resolve) => {
    channel.port1.onmessage = resolve;
    channel.port2.postMessage(null);
  });
}

/** The records whose shape differs from the layout's: how many, and where the first is. */
class Irregular {
  count = 0;
  first = null;

  look(row, columns) {
    if (row.fault !== "none" || row.fields.length !== columns) {
      this.count += 1;
      this.first ??= row.line;
    }
  }
}

/**
 * Memory stays bounded: a chunk is written before the next is made.
 *
 * @param file The Blob, its encoding and what of its length is known.
 * @param layout How to read it.
 * @param {"csv" | "json"} format
 * @param {FileSystemFileHandle | null} handle Where to write; null for a Blob.
 * @param {{signal: AbortSignal, progress: (state: {records: number, share: number}) => void}} options
 * @returns the records written, the irregular ones, and the Blob if there is one. Nothing is left
 *     behind by an export that fails or is cancelled.
 */
export async function exportRows(file, layout, format, handle, options) {
  // At once: while the target is opened, the layout may be freed for another one.
  const source = rows(file.blob, layout, { encoding: file.encoding });
  try {
    return await writeRows(source, file, layout, format, handle, options);
  } finally {
    await source.return();
  }
}

async function writeRows(source, file, layout, format, handle, { signal, progress }) {
  const target = handle ? await StreamTarget.open(handle) : new BlobTarget(formats[format].type);
  const irregular = new Irregular();
  const writer = formats[format].writer(layout);
  let records = 0;
  try {
    let text = writer.begin();
    let units = 0;
    for await (const row of source) {
      irregular.look(row, layout.columns.length);
      text += writer.record(row.fields);
      records += 1;
      if (text.length > chunkUnits) {
        units += text.length;
        await target.write(text);
        text = "";
        const share = Math.min(units / Math.max(1, file.blob.size * file.unitsPerByte), 0.99);
        progress({ records, share });
        await breathe();
        signal.throwIfAborted();
      }
    }
    await target.write(text + writer.end());
    const blob = await target.close();
    return { records, irregular: irregular.count, firstIrregular: irregular.first, blob };
  } catch (error) {
    await target.discard();
    throw error;
  }
}
