// Prints what the module gives for drawings, as host_digest.cpp does for the native library: host_digest.mjs FOLDER < LIST.
// FOLDER is build/web.
import { readFileSync } from "node:fs";
import type { Conversion, Inspection, Options, Result } from "../../web/library/protocol";
import { startLibrary } from "./node_library";

const ways: [string, Options][] = [
  ["plain", {}],
  ["as is", { format: "as-is" }],
  ["turned", { turned: true }],
  ["full size, mono", { sheet: "full-size", monochrome: true }],
  ["part", { sheet: "part", part: { left: 1000, top: 2000, right: 15000, bottom: 12000 }, wholeTexts: true }],
  ["half width, fit, 1:50", { halfWidth: true, fit: true, denominator: 50 }],
  [
    "left out",
    { skipOffLayers: true, hiddenLineTypes: ["dashed", "chain"], hiddenLayers: ["0", "TEXT", "寸法", "no such layer"] },
  ],
  ["limits", { limitStrokes: 100, limitBytes: 5000 }],
];

const lines: string[] = [];

function hash(bytes: Uint8Array, start: number): string {
  let value = start;
  for (const byte of bytes) value = Math.imul(value ^ byte, 16777619);
  return (value >>> 0).toString(16).padStart(8, "0");
}

// As printf's %.6f, also for numbers that toFixed writes with an exponent.
function fixed(value: number): string {
  if (!Number.isFinite(value)) return Number.isNaN(value) ? "nan" : value > 0 ? "inf" : "-inf";
  if (Math.abs(value) >= 1e21) return BigInt(value).toString() + ".000000";
  return (Object.is(value, -0) ? "-" : "") + value.toFixed(6);
}

function printResult(title: string, result: Result): void {
  const numbers = [
    result.sheetWidth, result.sheetHeight, result.denominator, result.bytesRead, result.substituted, result.embedded,
  ];
  const { en, ja } = result.sentence;
  lines.push(`-- ${title}: ${result.status} | ${en} | ${ja} | line ${result.line} ${numbers.join(" ")}`);
  for (const { name, line, count, detail, sentence } of result.remarks)
    lines.push(`remark ${name} ${line} ${count} ${detail} | ${sentence.en} | ${sentence.ja}`);
}

function printConversion(title: string, result: Conversion): void {
  printResult(title, result);
  const bytes = result.metafile ?? new Uint8Array();
  lines.push(`strokes ${result.strokes}, metafile ${bytes.length} ${hash(bytes, 2166136261)} ${hash(bytes, 1)}`);
}

function printInspection(result: Inspection): void {
  printResult("inspection", result);
  const { summary } = result;
  if (summary) {
    const limits = summary.limits ? ` limits ${summary.limits.map(fixed).join(" ")}` : "";
    const extents = summary.extents ? ` extents ${summary.extents.map(fixed).join(" ")}` : "";
    const sheet = `${summary.sheetWidth} ${summary.sheetHeight} ${summary.denominator}`;
    lines.push(`summary ${summary.version} ${fixed(summary.scale)} ${sheet}${limits}${extents}`);
  }
  for (const layer of result.layers)
    lines.push(`layer ${layer.name} ${layer.color} ${layer.lineType} ${Number(layer.shown)}`);
  for (const type of result.lineTypes) lines.push(`line type ${type.name} ${type.elements}`);
  for (const style of result.dimStyles) lines.push(`dim style ${style}`);
  for (const block of result.blocks) lines.push(`block ${block.name} ${block.entities} ${block.line}`);
  for (const { kind, layer, count, countInBlocks, drawn, drawnInBlocks } of result.entities)
    lines.push(`entities ${kind} ${layer} ${count} ${countInBlocks} ${Number(drawn)} ${Number(drawnInBlocks)}`);
  for (const { kind, layer, block, x, y, height, angle, line, text } of result.texts)
    lines.push(`text ${kind} ${layer} ${block} ${[x, y, height, angle].map(fixed).join(" ")} ${line} ${text}`);
}

const library = startLibrary(process.argv[2] ?? "build/web");
for (const path of readFileSync(0, "utf8").split("\n").slice(0, -1)) {
  lines.push(`== ${path}`);
  const bytes = readFileSync(path);
  for (const [title, options] of ways) printConversion(title, library.convert(bytes, options));
  printInspection(library.inspect(bytes));
}
process.stdout.write(lines.join("\n") + "\n");
