// From the file of the WebAssembly module to an instance, and from JavaScript's texts to its memory and back.

import { TextioError, noMemory, ok } from "./errors.js";

// A module whose only function makes a vector and drops it.
const vectorSample = [
  0, 97, 115, 109, 1, 0, 0, 0, 1, 4, 1, 96, 0, 0, 3, 2, 1, 0, 10, 9, 1, 7, 0, 65, 0, 253, 15, 26, 11,
];

/** Whether this machine has 128-bit vectors. */
export const simd = WebAssembly.validate(new Uint8Array(vectorSample));

/** Compiles the module at a URL, in Node too, which cannot fetch files. */
export async function compile(url) {
  if (url.protocol === "file:" && typeof process === "object" && process.versions?.node) {
    const { readFile } = await import(/* webpackIgnore: true */ /* @vite-ignore */ "node:fs/promises");
    return WebAssembly.compile(await readFile(url));
  }
  const answer = await fetch(url);
  if (!answer.ok) {
    throw new TextioError("source_failed", `${url} cannot be fetched: ${answer.status} ${answer.statusText}`);
  }
  return WebAssembly.compile(await answer.arrayBuffer());
}

const utf8 = new TextEncoder();
const fromUtf8 = new TextDecoder("utf-8", { ignoreBOM: true });
const fromUtf16 = new TextDecoder("utf-16le", { ignoreBOM: true, fatal: true });
const unitsAtOnce = 0x2000;

/** One instance. Addresses are numbers; the views are good until anything is allocated. */
export class Instance {
  constructor(module) {
    const { exports } = new WebAssembly.Instance(module, {
      env: { emscripten_notify_memory_growth() {} },
      wasi_snapshot_preview1: {
        proc_exit() {
          throw new TextioError("internal", "the WebAssembly module has given up");
        },
      },
    });
    exports._initialize();
    this.calls = exports;
  }

  get bytes() {
    return new Uint8Array(this.calls.memory.buffer);
  }

  get numbers() {
    return new Uint32Array(this.calls.memory.buffer);
  }

  allocate(size) {
    const address = this.calls.malloc(Math.max(size, 1)) >>> 0;
    if (address === 0) {
      throw new TextioError(noMemory, "there is not enough memory");
    }
    return address;
  }

  /** A copy of the units of a string as they are, lone halves of pairs too. */
  putText(text) {
    const address = this.allocate(text.length * 2);
    const units = new Uint16Array(this.calls.memory.buffer, address, text.length);
    for (let at = 0; at < text.length; ++at) {
      units[at] = text.charCodeAt(at);
    }
    return address;
  }

  /** Calls with the address and the size of a text in UTF-8, which has a 0 behind it. */
  withUtf8(text, call) {
    const encoded = utf8.encode(text);
    const address = this.allocate(encoded.length + 1);
    try {
      const bytes = this.bytes;
      bytes.set(encoded, address);
      bytes[address + encoded.length] = 0;
      return call(address, encoded.length);
    } finally {
      this.calls.free(address);
    }
  }

  /** The text of a number of units. */
  textAt(address, count) {
    const units = new Uint16Array(this.calls.memory.buffer, address >>> 0, count);
    try {
      return fromUtf16.decode(units);
    } catch {
      // Only there because of a lone half of a pair, which a decoder refuses or replaces.
      let text = "";
      for (let at = 0; at < count; at += unitsAtOnce) {
        text += String.fromCharCode(...units.subarray(at, at + unitsAtOnce));
      }
      return text;
    }
  }

  /** The text in UTF-8 up to a 0, or of the given size. */
  utf8At(address, size) {
    const bytes = this.bytes;
    const begin = address >>> 0;
    return fromUtf8.decode(bytes.subarray(begin, size === undefined ? bytes.indexOf(0, begin) : begin + size));
  }

  /** Throws what a status tells, if it does not tell that all is well: the complaint, or what the library says. */
  check(status, complaint) {
    if (status !== ok) {
      throw new TextioError(status, complaint ?? this.utf8At(this.calls.textio_last_error()));
    }
  }

  /** Calls with the address of a place for one number, and gives what stands there afterwards. */
  resultOf(call, complaint) {
    const address = this.allocate(4);
    try {
      this.check(call(address), complaint);
      return this.numbers[address >>> 2];
    } finally {
      this.calls.free(address);
    }
  }
}
