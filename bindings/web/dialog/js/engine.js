/** The library, as the page takes it. The site has the module beside the page, in the folder `textio`. */
export { Detector, TextioError, rows, sample } from "../textio/index.js";
