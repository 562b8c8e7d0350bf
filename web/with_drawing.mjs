// Writes a copy of the viewer that opens with a drawing: node with_drawing.mjs VIEWER DRAWING OUTPUT
import { readFile, writeFile } from "node:fs/promises";
import path from "node:path";

const [viewer, drawing, output] = process.argv.slice(2);
const mark = "<!--DRAWING-->"; // its place in viewer/viewer.html
const page = await readFile(viewer, "utf8");
if (page.split(mark).length !== 2) throw new Error(`${viewer} has no place for a drawing`);
const entities = { "&": "&amp;", '"': "&quot;", "<": "&lt;" };
const name = path.basename(drawing).replace(/[&"<]/g, (character) => entities[character]);
const bytes = (await readFile(drawing)).toString("base64");
const element = `<script type="application/octet-stream" id="drawing" data-name="${name}">${bytes}</script>`;
await writeFile(output, page.split(mark).join(element));
