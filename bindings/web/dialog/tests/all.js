/** All tests in one process and with one browser, so that no two of them share the processor. */
import "./formats.js";
import "./parts.js";
import "./open.js";
import "./change.js";
import "./late.js";
import "./export.js";
import "./access.js";
