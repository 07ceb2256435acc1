/** The library, as the page takes it. The site has the module beside the page, in the folder `textio`. */
import * as textio from "../textio/index.js";

/** `importStatement` is undefined where the module has none. */
export const { Detector, TextioError, importStatement, rows, sample } = textio;
