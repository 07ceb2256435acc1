export { Detector, detect } from "./src/detector.js";
export { TextioError } from "./src/errors.js";
export { sample } from "./src/input.js";
export { Layout } from "./src/layout.js";
export { rows } from "./src/rows.js";
export { importStatement } from "./src/statement.js";
