/** Character sets: the ones that are offered, and a guess from the first bytes. */

/** Names that TextDecoder knows, and what the user reads. */
export const encodings = [
  ["utf-8", "UTF-8"],
  ["utf-16le", "UTF-16"],
  ["utf-16be", "UTF-16, big-endian"],
  ["windows-1252", "Western (Windows-1252)"],
  ["iso-8859-15", "Western (ISO 8859-15)"],
  ["macintosh", "Western (Macintosh)"],
  ["windows-1250", "Central European (Windows-1250)"],
  ["iso-8859-2", "Central European (ISO 8859-2)"],
  ["windows-1251", "Cyrillic (Windows-1251)"],
  ["koi8-r", "Cyrillic (KOI8-R)"],
  ["ibm866", "Cyrillic (DOS 866)"],
  ["windows-1253", "Greek (Windows-1253)"],
  ["windows-1254", "Turkish (Windows-1254)"],
  ["windows-1255", "Hebrew (Windows-1255)"],
  ["windows-1256", "Arabic (Windows-1256)"],
  ["shift_jis", "Japanese (Shift JIS)"],
  ["euc-jp", "Japanese (EUC-JP)"],
  ["gb18030", "Chinese (GB 18030)"],
  ["big5", "Chinese (Big5)"],
  ["euc-kr", "Korean (EUC-KR)"],
];

/** Whether the bytes at even or at odd places are mostly zero, as those of Latin text in UTF-16 are. */
function zerosAt(bytes, parity) {
  let zeros = 0;
  const end = Math.min(bytes.length, 4096);
  for (let at = parity; at < end; at += 2) {
    zeros += bytes[at] === 0 ? 1 : 0;
  }
  return zeros > end / 5;
}

/**
 * UTF-16 by its mark or its zeros, UTF-8 if the bytes are valid as such, else Windows-1252. A lone fault
 * between characters that are valid UTF-8 is damage and no other encoding.
 *
 * @param {Uint8Array} bytes The first bytes of a file.
 * @param {boolean} more Whether the file goes on: then the last character may be torn.
 */
export function foundEncoding(bytes, more) {
  if ((bytes[0] === 0xff && bytes[1] === 0xfe) || zerosAt(bytes, 1)) {
    return "utf-16le";
  }
  if ((bytes[0] === 0xfe && bytes[1] === 0xff) || zerosAt(bytes, 0)) {
    return "utf-16be";
  }
  const text = new TextDecoder("utf-8").decode(bytes, { stream: more });
  const faults = text.split("\ufffd").length - 1;
  const sound = (text.match(/[^\0-\x7f\ufffd]/g) ?? []).length;
  return faults > sound ? "windows-1252" : "utf-8";
}

/** Whether the bytes hold a zero, or many other control characters, and are no UTF-16. */
export function looksBinary(bytes, encoding) {
  if (encoding.startsWith("utf-16")) {
    return false;
  }
  let controls = 0;
  for (const byte of bytes) {
    if (byte === 0) {
      return true;
    }
    controls += byte < 32 && byte !== 9 && byte !== 10 && byte !== 13 ? 1 : 0;
  }
  return controls > bytes.length / 10;
}
