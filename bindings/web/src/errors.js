const names = ["ok", "no_memory", "bad_argument", "unknown_name", "bad_value", "source_failed", "internal"];

export const ok = 0;
export const noMemory = 1;

/** What the module says if something is not as it should be. */
export class TextioError extends Error {
  constructor(status, message) {
    super(message);
    this.name = "TextioError";
    this.status = typeof status === "number" ? names[status] : status;
  }
}
