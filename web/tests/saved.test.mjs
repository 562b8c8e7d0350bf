// What the viewer saves and prints, read again.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { existsSync, readdirSync } from "node:fs";
import { mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
import os from "node:os";
import path from "node:path";
import { after, before, test } from "node:test";
import { inflateSync } from "node:zlib";
import { compareInk, drop, inspected, example, launch, nativeTool, openViewer, root, settled } from "./browser.mjs";
import { drawing, line } from "./drawings.mjs";

let browser;
let page;
let scratch;
before(async () => {
  browser = await launch();
  scratch = await mkdtemp(path.join(os.tmpdir(), "hexlume-saved-"));
  page = await openViewer(browser);
  await page.evaluate(() => {
    window.print = () => {};
  });
});
after(async () => {
  assert.deepEqual(page.errors, []);
  await browser.close();
  await rm(scratch, { recursive: true });
});

async function open(file) {
  await drop(page, [file]);
  await settled(page);
  await inspected(page);
}

async function save(kind, dpi) {
  await page.click("#save");
  if (dpi) await page.selectOption("#save-dpi", String(dpi));
  const [download] = await Promise.all([page.waitForEvent("download"), page.click(`#save-${kind}`)]);
  const file = path.join(scratch, download.suggestedFilename());
  await download.saveAs(file);
  return { name: download.suggestedFilename(), bytes: await readFile(file), file };
}

/** The streams of a PDF file, inflated. */
function streamsOf(pdf) {
  const streams = [],
    text = pdf.toString("latin1"),
    mark = /\/Length (\d+)[^>]*?>>\s*stream\r?\n/g;
  for (let found; (found = mark.exec(text));) {
    const bytes = pdf.subarray(mark.lastIndex, mark.lastIndex + Number(found[1]));
    try {
      streams.push(inflateSync(bytes).toString("latin1"));
    } catch {
      // A stream in another form.
    }
  }
  return streams;
}

/** The straight lines that a PDF page draws, in millimetres: x, y of both ends. Understands q, Q, cm, m, l. */
function linesOf(content) {
  const lines = [],
    stack = [];
  let matrix = [1, 0, 0, 1, 0, 0],
    at = null,
    operands = [];
  const place = ([x, y]) => [
    ((matrix[0] * x + matrix[2] * y + matrix[4]) * 25.4) / 72,
    ((matrix[1] * x + matrix[3] * y + matrix[5]) * 25.4) / 72,
  ];
  for (const token of content.split(/\s+/)) {
    if (/^[-+.\d]/.test(token)) {
      operands.push(Number(token));
      continue;
    }
    if (token === "q") stack.push(matrix);
    if (token === "Q") matrix = stack.pop() ?? matrix;
    if (token === "cm") {
      const [a, b, c, d, e, f] = operands,
        [A, B, C, D, E, F] = matrix;
      matrix = [a * A + b * C, a * B + b * D, c * A + d * C, c * B + d * D, e * A + f * C + E, e * B + f * D + F];
    }
    if (token === "m") at = operands.slice(-2);
    if (token === "l") {
      lines.push([...place(at), ...place(operands.slice(-2))]);
      at = operands.slice(-2);
    }
    operands = [];
  }
  return lines;
}

const lengthOf = ([x0, y0, x1, y1]) => Math.hypot(x1 - x0, y1 - y0);
const mediaBox = (pdf) => /\/MediaBox \[([^\]]*)\]/.exec(pdf.toString("latin1"))[1].trim().split(/\s+/).map(Number);

/** A line of 100 mm and a text on a sheet of 420 × 297 mm. */
const ruled = drawing([
  ...line(50, 60, 150, 60),
  "0",
  "TEXT",
  "8",
  "0",
  "10",
  "50.0",
  "20",
  "80.0",
  "40",
  "5.0",
  "1",
  "Length 100",
]);

test("EMF: the library's metafile", async () => {
  await open(example("WORKSHOP.dxf"));
  const { name, bytes } = await save("emf");
  assert.equal(name, "WORKSHOP.emf");
  assert.equal(bytes.readUInt32LE(0), 1);
  assert.equal(bytes.toString("latin1", 40, 44), " EMF");
  assert.equal(bytes.readUInt32LE(48), bytes.length);
});

test("SVG: size in millimetres, strokes at their places, texts as texts", async () => {
  await open({ name: "ruled.dxf", bytes: ruled });
  const svg = (await save("svg")).bytes.toString();
  assert.match(svg, /width="420mm" height="297mm" viewBox="0 0 42000 29700"/);
  // The drawing's y grows upward: 297 - 60 = 237.
  assert.match(svg, /M5000 23700L15000 23700/);
  assert.match(svg, />Length 100<\/text>/);
  await open(example("WORKSHOP.dxf"));
  const workshop = (await save("svg")).bytes.toString();
  await page.evaluate((text) => {
    const parsed = new DOMParser().parseFromString(text, "image/svg+xml");
    if (parsed.querySelector("parsererror")) throw new Error("not well formed");
  }, workshop);
  assert.match(workshop, /軸受箱/);
});

test("PNG: the resolution that was chosen, and its size", async () => {
  await open({ name: "ruled.dxf", bytes: ruled });
  const { bytes } = await save("png", 300);
  // 420 mm and 297 mm at 300 dpi: 4960.6 and 3507.9 pixels.
  assert.deepEqual([bytes.readUInt32BE(16), bytes.readUInt32BE(20)], [4961, 3508]);
  const at = bytes.indexOf("pHYs");
  // 300 / 0.0254 = 11811.
  assert.equal(bytes.readUInt32BE(at + 4), 11811);
  await save("png", 150);
});

test("PDF: true size, strokes at their places, text that can be found", async () => {
  await open({ name: "ruled.dxf", bytes: ruled });
  const { bytes, file } = await save("pdf");
  // 420 mm are 1190.5512 points, 297 mm 841.8898.
  assert.deepEqual(mediaBox(bytes), [0, 0, 1190.5512, 841.8898]);
  const [long] = linesOf(streamsOf(bytes)[0]).filter((each) => lengthOf(each) > 50);
  [50, 60, 150, 60].forEach((value, i) => assert.ok(Math.abs(long[i] - value) < 0.01, String(long)));
  const map = streamsOf(bytes).find((stream) => /beginbfchar/.test(stream));
  for (const character of "Length10") assert.match(map, new RegExp(`<00${character.charCodeAt(0).toString(16)}>`));
  try {
    assert.match(execFileSync("pdftotext", [file, "-"]).toString(), /Length 100/);
  } catch (error) {
    if (error.code !== "ENOENT") throw error;
  }
});

test("PDF: Japanese texts of a workshop drawing", async () => {
  await open(example("WORKSHOP.dxf"));
  const { file, bytes } = await save("pdf");
  assert.ok(bytes.length < 400000, `${bytes.length} bytes`);
  try {
    assert.match(execFileSync("pdftotext", ["-layout", file, "-"]).toString(), /軸受箱/);
  } catch (error) {
    if (error.code !== "ENOENT") throw error;
  }
});

async function printed() {
  await page.waitForSelector("#print", { state: "attached" });
  const pdf = await page.pdf({ preferCSSPageSize: true, printBackground: true });
  await page.evaluate(() => window.dispatchEvent(new Event("afterprint")));
  await writeFile(path.join(scratch, "printed.pdf"), pdf);
  return pdf;
}

const pageCount = (pdf) => Number(/\/Count (\d+)/.exec(pdf.toString("latin1"))[1]);
const allLines = (pdf) => streamsOf(pdf).flatMap(linesOf);

test("printing: a line of 100 mm has 100 mm on the paper", async () => {
  await open({ name: "ruled.dxf", bytes: ruled });
  await page.click("#print-button");
  await page.selectOption("#print-paper", "sheet");
  await page.click("#print-now");
  const pdf = await printed();
  assert.equal(pageCount(pdf), 1);
  const [, , width, height] = mediaBox(pdf);
  assert.ok(
    Math.abs((width * 25.4) / 72 - 420) < 0.5 && Math.abs((height * 25.4) / 72 - 297) < 0.5,
    `${width} × ${height} points`,
  );
  const long = allLines(pdf).filter((each) => lengthOf(each) > 90);
  assert.equal(long.length, 1);
  assert.ok(Math.abs(lengthOf(long[0]) - 100) < 0.05, `${lengthOf(long[0])} mm`);
});

test("printing: on A4 at true scale in pages, and fitted to one page", async () => {
  await page.click("#print-button");
  await page.selectOption("#print-paper", "A4");
  // 420 mm over 297, and 297 over 210: two by two pages.
  assert.equal(await page.textContent("#print-pages"), "Pages: 4");
  await page.click("#print-now");
  const pages = await printed();
  assert.equal(pageCount(pages), 4);
  assert.ok(allLines(pages).some((each) => Math.abs(lengthOf(each) - 100) < 0.05));
  await page.click("#print-button");
  await page.click("#print-fit");
  assert.equal(await page.textContent("#print-pages"), "Pages: 1");
  await page.click("#print-now");
  const fitted = await printed();
  assert.equal(pageCount(fitted), 1);
  // 297 / 420 of 100 mm.
  assert.ok(allLines(fitted).some((each) => Math.abs(lengthOf(each) - 70.71) < 0.1));
});

test("printing: the test page has rulers of 100 mm", async () => {
  await page.click("#print-button");
  await page.click("#print-test");
  const pdf = await printed();
  assert.equal(pageCount(pdf), 1);
  const rulers = allLines(pdf).filter((each) => Math.abs(lengthOf(each) - 100) < 0.05);
  assert.ok(rulers.length >= 2, `${rulers.length} rulers`);
  await page.click("#print-button");
  await page.selectOption("#print-paper", "sheet");
  await page.keyboard.press("Escape");
});

const corpus = path.join(root, "../shared/corpus");
const drawings = [path.join(root, "examples"), corpus].filter(existsSync).flatMap((folder) =>
  readdirSync(folder)
    .filter((name) => /\.dxf$/i.test(name))
    .map((name) => path.join(folder, name)),
);

test("pictures have their ink where those of the native tool have it", { skip: !nativeTool() }, async (context) => {
  const native = path.join(scratch, "native.png");
  let worst = 0;
  for (const file of drawings) {
    try {
      execFileSync(nativeTool(), ["--png", native, file, path.join(scratch, "native.emf")], {
        stdio: "ignore",
        timeout: 60000,
      });
    } catch {
      continue; // No drawing for the native tool either.
    }
    await open(file);
    const { bytes } = await save("png", 96);
    const { first, second, onlyFirst, onlySecond } = await compareInk(page, await readFile(native), bytes);
    // Letters that are lower than a pixel differ between the two, and small sheets have little else.
    const share = (onlyFirst + onlySecond) / Math.max(4000, first + second);
    worst = Math.max(worst, share);
    assert.ok(
      share < 0.04,
      `${path.basename(file)}: ${first} and ${second} pixels of ink, ${onlyFirst} and ${onlySecond} without a neighbour`,
    );
    await page.keyboard.press("x");
  }
  context.diagnostic(
    `${drawings.length} drawings; at most ${(100 * worst).toFixed(2)} % of the ink has none near it in the other picture`,
  );
});
