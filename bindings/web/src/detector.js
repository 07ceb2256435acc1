import { withHints } from "./hints.js";
import { sample, sampleOf } from "./input.js";
import { Layout } from "./layout.js";
import { Instance, compile, simd } from "./module.js";
import { rowsOf } from "./rows.js";
import { toolsOf } from "./statement.js";

const loaded = new Map();

async function fetchBuild(build) {
  // Written out twice, so that bundlers see which files there are.
  const url =
    build === "simd"
      ? new URL("../textio-simd.wasm", import.meta.url)
      : new URL("../textio-plain.wasm", import.meta.url);
  return Detector.from(await compile(url));
}

/** One instance of the module, whose calls do not wait. */
export class Detector {
  #instance;

  static simd = simd;

  constructor(instance) {
    this.#instance = instance;
    this.version = instance.utf8At(instance.calls.textio_version());
    this.tools = toolsOf(instance);
  }

  static load({ build = simd ? "simd" : "plain" } = {}) {
    let detector = loaded.get(build);
    if (detector === undefined) {
      detector = fetchBuild(build);
      loaded.set(build, detector);
      // What failed once, for want of a network, can be tried again.
      detector.catch(() => loaded.delete(build));
    }
    return detector;
  }

  static from(module) {
    return new Detector(new Instance(module instanceof WebAssembly.Module ? module : new WebAssembly.Module(module)));
  }

  detect(input, hints = {}, options = {}) {
    return this.detectSample(sampleOf(input, { encoding: hints.encoding, ...options }), hints);
  }

  /** The same for what `sample` gave. */
  detectSample(sample, { encoding: _, ...hints } = {}) {
    const instance = this.#instance;
    const { text } = sample;
    const { calls } = instance;
    const at = instance.putText(text);
    let address;
    try {
      address = withHints(instance, hints, (hintsAt) =>
        instance.resultOf((result) => calls.textio_detect_utf16(at, text.length, hintsAt, result)),
      );
    } finally {
      calls.free(at);
    }
    const json = calls.textio_layout_json(address, 0);
    return new Layout(instance, address, sample, JSON.parse(instance.utf8At(json)));
  }

  rows(input, layout, options) {
    return rowsOf(input, layout, options);
  }
}

/** Finds the layout of a text; of a Blob, of its beginning. */
export async function detect(input, hints = {}, options = {}) {
  const [detector, beginning] = await Promise.all([
    Detector.load(),
    sample(input, { encoding: hints.encoding, ...options }),
  ]);
  return detector.detectSample(beginning, hints);
}
