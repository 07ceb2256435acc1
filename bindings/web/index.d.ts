/**
 * Works out how a text with a table in it is laid out: in Node (18 and later), in browsers and in their workers.
 *
 * Lines and rows count from 0. Widths and lengths are UTF-16 code units, the elements of a JavaScript string.
 */

export type Kind = "delimited" | "space_aligned" | "fixed_width" | "line";

/** What a reader does with a record that has a fault. One that is too long always ends the reading. */
export type Policy = "keep" | "pad" | "skip" | "stop";

/** What is wrong with a record. */
export type Fault = "none" | "too_few_fields" | "too_many_fields" | "open_quote";

/** Why there are no more records: U+FFFF at the start of one ends every text, and a policy can stop at a fault. */
export type End = "not_yet" | "of_text" | "at_mark" | "stopped" | "too_long";

/** A text, or the bytes of one. */
export type Input = string | Uint8Array | ArrayBuffer | Blob;

/**
 * What is known about the text. Each hint that is given is taken as it is; `undefined` is as good as not given.
 * A hint of another name or with a value that it cannot have makes `detect` throw a `TextioError` that names it.
 */
export interface Hints {
  /** Which way of finding the layout: by weighing readings (the default), or by rules. */
  method?: "advice" | "rules";
  /** Rows to sample, 250 if not given. */
  rows?: number;
  kind?: Kind;
  delimiter?: string;
  /** Of columns at fixed positions. */
  widths?: number[];
  /** One code unit; null or "" for none. */
  quote?: string | null;
  /** What opens a comment to the end of the line; null or "" for none. */
  comment?: string | null;
  /** What ends a comment that may go over several lines. */
  comment_end?: string | null;
  decimal?: string;
  /** null or "" for none. */
  thousands?: string | null;
  /** The characters that count as blanks. */
  whitespace?: string;
  /** Texts that stand for a missing value. */
  missing?: string[];
  first_data_line?: number;
  /** null for none. */
  names_line?: number | null;
  /**
   * The character set of bytes, by a name that `TextDecoder` knows. Not given: UTF-16 where a byte order mark
   * says so, else UTF-8. Of a string there is nothing to decode.
   */
  encoding?: string;
}

export interface Column {
  /** Empty where there is none. */
  name: string;
  /** `number`, `date`, `text` and so on. */
  class: string;
  /** Cells of the sample that hold a value. */
  values: number;
  /** Cells of the sample that hold none. */
  missing: number;
}

/** One reading of the text. Where there is none of something, or nothing tells, it is null. */
export interface Proposal {
  kind: Kind;
  /** The first one where there are several. */
  delimiter: string | null;
  /** Empty unless the columns are at fixed positions. */
  widths: number[];
  /** Lines above the data. */
  header_lines: number;
  /** Columns. */
  num_variables: number;
  names_line: number | null;
  first_data_line: number;
  quote: string | null;
  comment: string | null;
  comment_end: string | null;
  decimal: string | null;
  thousands: string | null;
  columns: Column[];
  /** Rows of its table that have all fields. */
  regular_rows: number;
  /** Rows of the sample, those above the table included. */
  rows: number;
  /** The product of the terms, at most 1; null under the rules, which give none. */
  score: number | null;
  /** What each kind of evidence leaves of the score: 1 takes nothing away. */
  terms: Record<string, number>;
  /** The reasons in plain English. */
  why: string;
}

/**
 * The answer: the best reading, and all that came close. Its data are properties of its own, so that
 * `JSON.stringify`, `structuredClone` and `postMessage` take it as a plain object.
 *
 * The layout holds memory of the WebAssembly module. `free` gives it back; a layout that is only dropped
 * is freed some time after it has been collected.
 */
export class Layout implements Omit<Proposal, "regular_rows" | "score" | "terms"> {
  private constructor();
  kind: Kind;
  delimiter: string | null;
  widths: number[];
  header_lines: number;
  num_variables: number;
  names_line: number | null;
  first_data_line: number;
  quote: string | null;
  comment: string | null;
  comment_end: string | null;
  decimal: string | null;
  thousands: string | null;
  columns: Column[];
  /** Data rows of the sample. */
  rows: number;
  /** Whether there is a table of two columns or more. */
  is_table: boolean;
  /** The best score over that of the best rival, from 1 up; 3 and more can be relied on. null under the rules. */
  confidence: number | null;
  /** The best first, which is the layout itself. */
  proposals: Proposal[];
  /** The name of the character set that bytes were read in; null for a string. */
  encoding: string | null;
  /** The reasons in plain English. */
  why: string;
  /** Gives its memory back, and can be called again. Its data stay; it can no longer be read with. */
  free(): void;
}

/** One record of the text. */
export interface Row {
  /** The values of its cells: without quotes and the blanks around them. */
  fields: string[];
  /** The line on which it starts. */
  line: number;
  fault: Fault;
}

/** What both loops over records tell once they have come to an end. */
export interface Reading {
  readonly end: End;
  /** Records with a fault so far, those that were passed over included. */
  readonly irregular: number;
}

/** Leaving the loop frees what the reading needs. A text that cannot be read to its end throws. */
export interface Rows extends Reading, IterableIterator<Row> {}
export interface AsyncRows extends Reading, AsyncIterableIterator<Row> {}

export interface RowOptions {
  /** Which proposal to read under; 0, the best, if not given. */
  proposal?: number;
  /** "keep" if not given. */
  policy?: Policy;
  /** The character set of bytes; that of the layout if not given. */
  encoding?: string;
}

export interface SampleOptions {
  encoding?: string;
  /** No more bytes of a Blob or an array, or code units of a string, are looked at: 4,194,304 if not given. */
  limit?: number;
}

/** The beginning of an input, as text. */
export interface Sample {
  text: string;
  /** null for a string. */
  encoding: string | null;
  /** Whether a byte order mark stood before it. */
  mark: boolean;
  /** Whether there is more behind it. Then it ends with the last whole line, if there is one. */
  cut: boolean;
}

/** What is thrown if something is not as it should be. */
export class TextioError extends Error {
  /** `bad_argument`, `unknown_name`, `bad_value`, `source_failed`, `no_memory`, `too_long` or `internal`. */
  status: string;
}

/** One instance of the WebAssembly module. Its calls do not wait, as workers like it. */
export class Detector {
  private constructor();
  /** Fetches the build that this machine can run, once: all who ask are given the same instance. */
  static load(options?: { build?: "simd" | "plain" }): Promise<Detector>;
  /** An instance of a module that is already there. */
  static from(module: WebAssembly.Module | BufferSource): Detector;
  /** Whether this machine has the vector instructions that the build "simd" needs. */
  static readonly simd: boolean;
  readonly version: string;
  /** The names of the tools that `importStatement` knows. */
  readonly tools: string[];
  detect(input: string | Uint8Array | ArrayBuffer, hints?: Hints, options?: { limit?: number }): Layout;
  /** The same for what `sample` gave. */
  detectSample(sample: Sample, hints?: Hints): Layout;
  /** The records from the first data line on. */
  rows(input: string | Uint8Array | ArrayBuffer, layout: Layout, options?: RowOptions): Rows;
}

/** Finds the layout of a text. Of a Blob, only the beginning is read. */
export function detect(input: Input, hints?: Hints, options?: { limit?: number }): Promise<Layout>;

/**
 * The records of a text or a file of any size, from the first data line on. Of a file, no more is in memory
 * than its longest record needs.
 */
export function rows(input: Input, layout: Layout, options?: RowOptions): AsyncRows;

/** The beginning of an input as `detect` takes it, for hosts that show it and detect anew as hints change. */
export function sample(input: Input, options?: SampleOptions): Promise<Sample>;

export interface ImportStatement {
  /** Whole lines of the tool's language. */
  text: string;
  /** What the tool cannot be told of the file. Then the statement has the command detect_layout rewrite it. */
  obstacles: string[];
}

/** The statement with which a tool reads the file of that name under a layout, of `proposal` or the best. */
export function importStatement(
  layout: Layout,
  tool: string,
  file: string,
  options?: { proposal?: number },
): ImportStatement;
