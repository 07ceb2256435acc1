/** The beginning of a file as text: as much as is needed to find the layout and show the first rows. */
import { sample } from "./engine.js";
import { foundEncoding, looksBinary } from "./encodings.js";
import { UserError } from "./fault_texts.js";

/** Enough for 250 rows of 4,000 bytes. */
const limit = 1 << 20;
const mostLines = 2000;

/**
 * @param {Blob} blob
 * @param {string | null} given The encoding; null to find it.
 * @returns the sample, its first lines, the encoding, whether more of the file follows, and how many
 *     characters could not be decoded. Throws `UserError` for what holds no text.
 */
export async function readBeginning(blob, given) {
  const bytes = new Uint8Array(await blob.slice(0, limit).arrayBuffer());
  if (bytes.length === 0) {
    throw new UserError("The file is empty.");
  }
  const found = foundEncoding(bytes, blob.size > limit);
  if (looksBinary(bytes, given ?? found)) {
    throw new UserError("This does not look like a text: it holds bytes that no text has.");
  }
  const beginning = await sample(blob, { encoding: given ?? found, limit });
  const { text, cut } = beginning;
  return {
    sample: beginning,
    lines: text.split(/\r\n|\n|\r/, mostLines),
    cut,
    found,
    encoding: given ?? found,
    undecodable: text.split("\ufffd").length - 1,
    unitsPerByte: text.length / Math.min(bytes.length, limit),
  };
}
