import { TextioError } from "./errors.js";

const handles = new WeakMap();

// Only a net: a layout that nobody frees.
const dropped = new FinalizationRegistry(({ instance, address }) => instance.calls.textio_layout_free(address));

/** The answer. Its data are copies; to read with it needs the module's memory. */
export class Layout {
  /** `sample` is what it was found in. */
  constructor(instance, address, sample, data) {
    Object.assign(this, data, { encoding: sample.encoding });
    const handle = { instance, address, sample };
    handles.set(this, handle);
    dropped.register(this, handle, this);
  }

  free() {
    const handle = handles.get(this);
    if (handle !== undefined) {
      handles.delete(this);
      dropped.unregister(this);
      handle.instance.calls.textio_layout_free(handle.address);
    }
  }
}

/** Where the layout is in memory. Throws for one that was freed, and for what only looks like one. */
export function handleOf(layout) {
  const handle = handles.get(layout);
  if (handle === undefined) {
    throw new TextioError(
      "bad_argument",
      layout instanceof Layout ? "the layout was freed" : "a layout is what detect gave, and not a copy of it",
    );
  }
  return handle;
}
