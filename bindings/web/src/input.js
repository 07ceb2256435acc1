// From what the caller has, which may be large, bytes or in another character set, to pieces of text.

import { TextioError } from "./errors.js";

/** No more bytes or code units than these are looked at, as elsewhere in the library. */
const usualLimit = 0x400000;
const pieceBytes = 0x40000;

function decoderOf(encoding) {
  try {
    return new TextDecoder(encoding); // by its usual value UTF-8
  } catch {
    throw new TextioError("bad_value", `encoding cannot be '${encoding}': no decoder has that name`);
  }
}

/** The bytes of an input in memory, without a copy. */
export function bytesOf(input) {
  if (input instanceof ArrayBuffer) {
    return new Uint8Array(input);
  }
  if (ArrayBuffer.isView(input)) {
    return new Uint8Array(input.buffer, input.byteOffset, input.byteLength);
  }
  throw new TypeError("a text is a string, an array of bytes, or a Blob where it can be waited for");
}

const marks = [
  ["utf-8", [0xef, 0xbb, 0xbf]],
  ["utf-16le", [0xff, 0xfe]],
  ["utf-16be", [0xfe, 0xff]],
];

/** The character set that the first bytes are marked with, if they are. */
function markedEncoding(bytes) {
  return marks.find(([, mark]) => mark.every((byte, at) => bytes[at] === byte))?.[0];
}

/** Up to the last end of a line of a text that goes on; all of it if there is none. */
function wholeLines(text) {
  const end = Math.max(text.lastIndexOf("\n"), text.lastIndexOf("\r")) + 1;
  return end === 0 ? text : text.slice(0, end);
}

function sampleOfBytes(bytes, isCut, encoding) {
  const marked = markedEncoding(bytes);
  const decoder = decoderOf(encoding ?? marked);
  // In two steps even where one would do: in one, some versions of Node take Windows-1252 for Latin-1.
  const text = decoder.decode(bytes, { stream: true }) + (isCut ? "" : decoder.decode());
  const mark = decoder.encoding === marked;
  return { text: isCut ? wholeLines(text) : text, encoding: decoder.encoding, mark, cut: isCut };
}

/** The same as `sample` for what is in memory. */
export function sampleOf(input, { encoding, limit = usualLimit } = {}) {
  if (typeof input === "string") {
    const cut = input.length > limit;
    return { text: cut ? wholeLines(input.slice(0, limit)) : input, encoding: null, mark: false, cut };
  }
  const bytes = bytesOf(input);
  return sampleOfBytes(bytes.subarray(0, limit), bytes.length > limit, encoding);
}

/** The beginning of an input as `detect` takes it. */
export async function sample(input, options = {}) {
  if (!(input instanceof Blob)) {
    return sampleOf(input, options);
  }
  const { encoding, limit = usualLimit } = options;
  const bytes = new Uint8Array(await input.slice(0, limit).arrayBuffer());
  return sampleOfBytes(bytes, input.size > limit, encoding);
}

/** From the bytes of a character set, piece by piece, to UTF-8; without a piece, what is left at the end. */
export function toUtf8(encoding) {
  const decoder = decoderOf(encoding);
  if (decoder.encoding === "utf-8") {
    return (bytes) => bytes ?? new Uint8Array();
  }
  const encoder = new TextEncoder();
  return (bytes) => encoder.encode(decoder.decode(bytes, { stream: bytes !== undefined }));
}

export function* piecesOf(bytes, convert) {
  for (let at = 0; at < bytes.length; at += pieceBytes) {
    yield convert(bytes.subarray(at, at + pieceBytes));
  }
  yield convert();
}

export async function* piecesOfBlob(blob, convert) {
  for (let at = 0; at < blob.size; at += pieceBytes) {
    yield convert(new Uint8Array(await blob.slice(at, at + pieceBytes).arrayBuffer()));
  }
  yield convert();
}
