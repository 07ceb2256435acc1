/**
 * The worker: everything that reads the file or asks the library is done here, so that the page never
 * waits. A message is `{id, ask, ...}`; what comes back is `{id, done}`, `{id, failed}` or, while an
 * export runs, `{id, progress}`.
 */
import { Detector, TextioError, importStatement } from "./engine.js";
import { readBeginning } from "./beginning.js";
import { exportRows } from "./export_rows.js";
import { faultText } from "./fault_texts.js";
import { previewEntries } from "./preview_entries.js";

const sampleRows = 250;

/** The file that is shown: a Blob, its encoding, and its beginning as a sample and as lines. */
let file = null;
/** What is known of `file`; its memory is the module's. */
let layout = null;
let running = null;

async function open({ blob, encoding, hints }) {
  const beginning = await readBeginning(blob, encoding);
  const detector = await Detector.load();
  const detected = detector.detectSample(beginning.sample, { ...hints, rows: sampleRows });
  layout?.free();
  layout = detected;
  file = { blob, ...beginning };
  const { lines, sample, ...told } = beginning;
  return { ...told, ...view(detector) };
}

async function detect({ hints }) {
  const detector = await Detector.load();
  const detected = detector.detectSample(file.sample, { ...hints, rows: sampleRows });
  layout.free();
  layout = detected;
  return view(detector);
}

function view(detector) {
  const { entries, rest } = previewEntries(file, layout, detector.rows(file.sample.text, layout), sampleRows);
  return { answer: structuredClone({ ...layout }), entries, rest };
}

async function runExport({ id, format, target }) {
  running = new AbortController();
  try {
    const progress = (state) => postMessage({ id, progress: state });
    return await exportRows(file, layout, format, target, { signal: running.signal, progress });
  } finally {
    running = null;
  }
}

function cancel() {
  running?.abort();
}

async function statement({ tool, name }) {
  if (!importStatement) {
    return { tools: [], text: "" };
  }
  const { tools } = await Detector.load();
  return { tools, ...importStatement(layout, tool ?? tools[0], name) };
}

const answers = { open, detect, export: runExport, cancel, statement };

self.onmessage = async ({ data }) => {
  try {
    postMessage({ id: data.id, done: await answers[data.ask](data) });
  } catch (error) {
    const status = error instanceof TextioError ? error.status : error.name;
    postMessage({ id: data.id, failed: { status, text: faultText(error) } });
  }
};
