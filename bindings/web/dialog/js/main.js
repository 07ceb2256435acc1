/** Puts the page together. */
import { showAssumptions } from "./assumption_list.js";
import { byId } from "./element.js";
import { offerExport } from "./exporter.js";
import { showFile } from "./file_bar.js";
import { showPreview } from "./preview.js";
import { showReadings } from "./reading_list.js";
import { Ruler } from "./ruler.js";
import { Session } from "./session.js";
import { offerFiles } from "./start.js";
import { offerStatement } from "./statement.js";
import { showSummary } from "./summary.js";
import { WorkerClient } from "./worker_client.js";

const worker = new WorkerClient();
const session = new Session(worker);

function say(text) {
  byId("live").textContent = text;
}

function complain(text) {
  byId("alert-text").textContent = text;
  byId("alert").hidden = text === "";
}

function showStart(shown) {
  byId("start").hidden = !shown;
  byId("work").hidden = shown;
}

function closeFile() {
  session.close();
  showStart(true);
  byId("file").hidden = true;
  byId("pick").focus();
}

byId("alert-close").onclick = () => complain("");
byId("take-back-all").onclick = () => {
  session.takeBackAll();
  byId("summary-text").focus();
};

session.addEventListener("answer", ({ detail }) => {
  if (detail.source === "file" || detail.source === "encoding") {
    complain("");
    showStart(false);
  }
});
for (const event of ["change", "idle"]) {
  session.addEventListener(event, () => {
    document.querySelector("main").setAttribute("aria-busy", String(session.busy));
  });
}

showFile(session, closeFile);
new Ruler(byId("ruler"), session);
showPreview(byId("preview"), session);
showAssumptions(byId("assumptions"), session);
// Told once: at the control, or here where there is none.
session.addEventListener("fault", (event) => {
  if (!event.defaultPrevented) {
    complain(event.detail.text);
  }
});
showReadings(byId("readings"), session);
showSummary(session, say);
offerExport(worker, session, { say, complain });
offerStatement(worker, session, say);
offerFiles((blob, name) => session.open(blob, name), complain);
