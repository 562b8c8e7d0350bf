// Converts a drawing in the module once, for scripts/check_bounds.py: convert_once.mjs WAY DRAWING. The ways are some of those of
// the script. The worst remark is printed as the tool prints it; the exit status is 0 if the status is "ok".
import { readFileSync } from "node:fs";
import { dirname } from "node:path";
import { fileURLToPath } from "node:url";
import type { Options } from "../../web/library/protocol";
import { startLibrary } from "./node_library";

const ways: Record<string, Options> = {
  emf: {},
  full: { sheet: "full-size", monochrome: true },
  fit: { fit: true },
  turned: { turned: true },
  view: { sheet: "part", part: { left: 1000, top: 2000, right: 15000, bottom: 12000 }, wholeTexts: true },
  hidden: { hiddenLayers: ["none"], hiddenLineTypes: ["chain"], denominator: 3 },
  "as-is": { format: "as-is" },
  "as-is-full": { format: "as-is", sheet: "full-size" },
  "as-is-turned": { format: "as-is", turned: true },
};

const [way = "", drawing = ""] = process.argv.slice(2);
const options = ways[way];
if (!options) throw new Error(`There is no way "${way}".`);
const folder = dirname(dirname(fileURLToPath(import.meta.url))); // build/web
const { status, sentence, remarks, metafile } = startLibrary(folder).convert(readFileSync(drawing), options);
console.error(`${metafile?.length ?? 0} bytes, ${process.resourceUsage().maxRSS} KB of memory`);
for (const remark of remarks) if (remark.name === "bound") console.error(`warning: bound: ${remark.sentence.en}`);
if (status !== "ok") console.error(`${status}: ${sentence.en}`);
process.exitCode = Number(status !== "ok");
