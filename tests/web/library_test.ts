// The library on its module, as web/library/library.ts has it.
import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import test from "node:test";
import { Library } from "../../web/library/library";
import type { Conversion, Options, Status } from "../../web/library/protocol";
import { noConversion, type OutsideStatus } from "../../web/library/sentences";
import { a3, a3WithTables, drawingOf, endless, header, line } from "./drawings";
import { compileModule, readFonts, startLibrary } from "./node_library";

const folder = process.env.HEXLUME_WEB ?? "build/web";
const workshop = readFileSync("examples/WORKSHOP.dxf");
const library = startLibrary(folder);

function statusOf(bytes: Uint8Array, options: Options = {}): Status {
  return library.convert(bytes, options).status;
}

function ascii(text: string): Uint8Array {
  return new TextEncoder().encode(text);
}

// The number of records of a kind, each of which begins with its kind and its size.
function countRecords(metafile: Uint8Array | null, kind: number): number {
  assert.ok(metafile);
  const view = new DataView(metafile.buffer, metafile.byteOffset, metafile.byteLength);
  let count = 0;
  for (let at = 0; at < metafile.length; at += view.getUint32(at + 4, true)) count += Number(view.getUint32(at, true) === kind);
  return count;
}
const lineTo = 54;
const textOut = 84;

test("the version is that of the build", () => {
  const project = /project\(Hexlume VERSION ([0-9.]+)/.exec(readFileSync("CMakeLists.txt", "utf8"));
  assert.equal(library.version(), project?.[1]);
});

test("a drawing becomes a metafile", () => {
  const result = library.convert(a3(line + line));
  assert.equal(result.status, "ok");
  assert.deepEqual(result.sentence, { en: "The call has succeeded.", ja: "正常に終了しました。" });
  assert.equal(result.line, 0);
  assert.deepEqual([result.sheetWidth, result.sheetHeight, result.denominator], [42000, 29700, 1]);
  assert.equal(result.strokes, 2);
  assert.equal(result.bytesRead, a3(line + line).length);
  assert.equal(countRecords(result.metafile, lineTo), 2);
});

test("each option reaches the library", () => {
  const texts = a3("0 TEXT\n8 0\n10 10\n20 10\n40 5\n1 ABC\n");
  const plain = library.convert(texts);
  const same = (options: Options): boolean =>
    Buffer.compare(plain.metafile ?? Buffer.alloc(0), library.convert(texts, options).metafile ?? Buffer.alloc(0)) === 0;
  assert.ok(same({}));
  assert.ok(same({ format: "as-is" }));
  assert.ok(!same({ turned: true }));
  assert.ok(!same({ halfWidth: true }));
  assert.ok(!same({ sheet: "part", part: { left: 100, top: 200, right: 9000, bottom: 8000 } }));
  assert.ok(!same({ fit: true }));
  assert.ok(!same({ limitBytes: 300 }));
  assert.equal(library.convert(a3(line + line), { limitStrokes: 1 }).status, "limit");
  const inside = { sheet: "part", part: { left: 0, top: 20000, right: 1600, bottom: 29700 } } as const;
  assert.equal(countRecords(library.convert(texts, inside).metafile, textOut), 1);
  assert.equal(countRecords(library.convert(texts, { ...inside, wholeTexts: true }).metafile, textOut), 0);
});

test("the frame of a part is the part", () => {
  const part = { left: 100, top: 200, right: 9000, bottom: 8000 };
  const { metafile } = library.convert(a3(line), { sheet: "part", part });
  assert.ok(metafile);
  // The header's frame: four numbers of 32 bits after the kind, the size and the bounds.
  const view = new DataView(metafile.buffer, metafile.byteOffset);
  assert.deepEqual([24, 28, 32, 36].map((at) => view.getInt32(at, true)), [100, 200, 9000, 8000]);
});

test("a drawing beyond A0 gets the denominator", () => {
  const large = drawingOf(header.replace("10 420\n20 297", "10 100000\n20 50000") + "0 SECTION\n2 ENTITIES\n0 ENDSEC\n0 EOF\n");
  assert.equal(library.convert(large).denominator, 100);
  const scaled = library.convert(large, { denominator: 200 });
  assert.deepEqual([scaled.denominator, scaled.sheetWidth, scaled.sheetHeight], [200, 50000, 25000]);
  assert.equal(library.inspect(large, { denominator: 200 }).summary?.scale, 200);
  assert.equal(library.convert(a3(line), { sheet: "full-size" }).status, "ok");
});

const tables =
  "0 SECTION\n2 TABLES\n0 TABLE\n2 LTYPE\n0 LTYPE\n2 DASHED\n73 2\n49 1\n49 -1\n0 ENDTAB\n" +
  "0 TABLE\n2 LAYER\n0 LAYER\n2 0\n70 0\n62 7\n6 CONTINUOUS\n0 LAYER\n2 OFF\n70 0\n62 -3\n6 DASHED\n0 ENDTAB\n" +
  "0 TABLE\n2 DIMSTYLE\n0 DIMSTYLE\n2 STANDARD\n40 1\n0 ENDTAB\n0 ENDSEC\n";
const blocks = `0 SECTION\n2 BLOCKS\n0 BLOCK\n8 0\n2 DOOR\n70 0\n10 0\n20 0\n3 DOOR\n${line}0 ENDBLK\n8 0\n0 ENDSEC\n`;

test("layers and line types are left out", () => {
  const drawing = a3WithTables(tables, line + line.replace("8 0", "8 OFF"));
  const strokes = (options: Options): number => library.convert(drawing, options).strokes;
  assert.equal(strokes({ hiddenLayers: ["0", "OFF"] }), 0);
  assert.equal(strokes({ skipOffLayers: true }), 1);
  assert.equal(strokes({ skipOffLayers: true, hiddenLineTypes: ["solid"] }), 0);
  const [remark] = library.convert(drawing, { hiddenLayers: ["図枠"] }).remarks;
  assert.equal(remark?.name, "no-such-layer");
  assert.equal(remark?.detail, "図枠");
  assert.deepEqual(remark?.sentence, { en: 'The drawing has no layer "図枠".', ja: "図面に画層「図枠」がありません。" });
});

// Lines of the file: the header has 9 groups, the tables have 29, and the block is the second group after
// "0 SECTION" and "2 BLOCKS"; a group has two lines.
test("an inspection has all that the drawing contains", () => {
  const text = "0 TEXT\n8 OFF\n10 7\n20 8.5\n40 3\n50 30\n1 HELLO\n";
  const result = library.inspect(a3WithTables(tables + blocks, line + line + text + "0 3DFACE\n8 0\n"));
  assert.equal(result.status, "ok");
  assert.deepEqual(result.summary, {
    version: "", scale: 1, sheetWidth: 42000, sheetHeight: 29700, denominator: 1, limits: [0, 0, 420, 297], extents: null,
  });
  assert.deepEqual(result.layers, [
    { name: "0", color: 7, lineType: "CONTINUOUS", shown: true },
    { name: "OFF", color: -3, lineType: "DASHED", shown: false },
  ]);
  assert.deepEqual(result.lineTypes, [{ name: "DASHED", elements: 2 }]);
  assert.deepEqual(result.dimStyles, ["STANDARD"]);
  const blockLine = 2 * (9 + tables.trim().split("\n").length + 2) + 1;
  assert.deepEqual(result.blocks, [{ name: "DOOR", entities: 1, line: blockLine }]);
  assert.deepEqual(result.entities, [
    { kind: "3DFACE", layer: "0", count: 1, countInBlocks: 0, drawn: false, drawnInBlocks: false },
    { kind: "LINE", layer: "0", count: 2, countInBlocks: 1, drawn: true, drawnInBlocks: true },
    { kind: "TEXT", layer: "OFF", count: 1, countInBlocks: 0, drawn: true, drawnInBlocks: true },
  ]);
  const blockLines = 2 * blocks.trim().split("\n").length;
  const textLine = blockLine - 4 + blockLines + 2 * (2 + 2 * 6);
  assert.deepEqual(result.texts, [
    { kind: "TEXT", layer: "OFF", block: "", text: "HELLO", x: 7, y: 8.5, height: 3, angle: 30, line: textLine },
  ]);
});

test("what is wrong has a status and a sentence", () => {
  assert.equal(statusOf(new Uint8Array()), "empty");
  assert.equal(statusOf(ascii("hello, this is no drawing\n")), "no-dxf");
  assert.equal(statusOf(ascii("AC1015\0\0\0")), "dwg");
  assert.equal(statusOf(ascii("PK\x03\x04")), "compressed");
  assert.equal(statusOf(drawingOf(`${header}0 EOF`)), "no-entities");
  assert.equal(statusOf(drawingOf("0 SECTION\n2 TABLES\n0 ENDSEC\n0 EOF")), "no-layers");
  assert.equal(statusOf(drawingOf("0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER")), "cut-off");
  const wrong = library.convert(a3(line), { denominator: 5000 });
  assert.equal(wrong.status, "bad-argument");
  assert.equal(wrong.sentence.en, "An argument is wrong: options.denominator must be from 0 to 1000.");
  assert.equal(wrong.metafile, null);
  const turned = library.convert(a3(line), { sheet: "part", turned: true });
  assert.equal(turned.status, "bad-argument");
});

test("a drawing cut off anywhere gives a result", () => {
  for (let size = 1; size < workshop.length; size += 997) {
    const result = library.convert(workshop.subarray(0, size));
    assert.ok(["ok", "no-dxf", "cut-off", "no-entities", "no-layers"].includes(result.status), `${size}: ${result.status}`);
  }
});

test("bytes made by chance give a result", () => {
  let seed = 12345;
  const random = (limit: number): number => {
    seed = (Math.imul(seed, 1103515245) + 12345) >>> 0;
    return (seed >>> 8) % limit;
  };
  for (let round = 0; round < 100; ++round) {
    const bytes = Uint8Array.from(workshop);
    for (let i = 0; i < 200; ++i) bytes[random(bytes.length)] = random(256);
    const result = library.convert(bytes, { limitMilliseconds: 5000 });
    assert.notEqual(result.status, "bad-argument");
    assert.ok(result.sentence.en !== "" && result.sentence.ja !== "");
  }
});

test("huge values give a result", () => {
  for (const value of ["1e308", "-1e308", "1e999", "2147483648", "-99999999999999999999", "nan", "1e-320"]) {
    const entities = ["LINE", "CIRCLE", "ARC", "ELLIPSE", "TEXT", "SOLID"].map(
      (kind) => `0 ${kind}\n8 0\n10 ${value}\n20 ${value}\n11 ${value}\n21 1\n40 ${value}\n41 ${value}\n50 ${value}\n1 X\n`,
    );
    for (const entity of entities) assert.ok(["ok", "fault"].includes(statusOf(a3(entity), { limitMilliseconds: 5000 })));
  }
});

test("a block that contains itself is a fault, and what was drawn is there", () => {
  const before = library.convert(workshop).metafile;
  for (let round = 0; round < 3; ++round) {
    const result = library.convert(endless);
    assert.equal(result.status, "fault");
    assert.deepEqual(result.sentence.en, `Line ${result.line}: The drawing can't be drawn from here on.`);
    // The library itself has seen the end of the stack, before the machine's.
    assert.ok(result.metafile, "the module was given up");
    assert.ok(countRecords(result.metafile, lineTo) > 500);
  }
  assert.deepEqual(library.convert(workshop).metafile, before);
});

test("progress is reported, and can cancel", () => {
  const seen: string[] = [];
  library.convert(workshop, {}, ({ pass, passes, done, total }) => {
    assert.equal(total, workshop.length);
    assert.ok(done >= 0 && done <= total);
    seen.push(`${pass}/${passes}`);
  });
  assert.deepEqual([...new Set(seen)], ["1/2", "2/2"]);
  const cancelled = library.convert(workshop, {}, ({ pass }) => pass === 2);
  assert.equal(cancelled.status, "cancelled");
  assert.equal(library.convert(workshop).status, "ok");
});

test("a time limit ends a call", () => {
  const slow = a3(line.repeat(200000));
  const result = library.convert(slow, { limitMilliseconds: 1 });
  assert.equal(result.status, "limit");
  assert.ok(library.convert(slow).milliseconds > result.milliseconds);
});

test("a trap is a fault, and the next call runs in a new module", () => {
  const own = startLibrary(folder);
  const trapped = own.convert(a3(line), {}, () => {
    throw new Error("as a trap would");
  });
  assert.equal(trapped.status, "fault");
  assert.equal(own.convert(workshop).status, "ok");
});

test("a drawing for which there is no memory gives a status", () => {
  const own = startLibrary(folder);
  assert.throws(() => own.reserve(2 ** 31 - 1));
  own.giveUp();
  assert.equal(own.convert(a3(line)).status, "ok");
});

test("a hundred drawings need no more memory than ten", () => {
  const own = startLibrary(folder);
  const convertTen = (): void => {
    for (let i = 0; i < 10; ++i) {
      assert.equal(own.convert(workshop, { turned: i % 2 === 1 }).status, "ok");
      assert.equal(own.inspect(workshop).status, "ok");
    }
  };
  convertTen();
  const bytes = own.memoryBytes();
  for (let i = 0; i < 9; ++i) convertTen();
  assert.equal(own.memoryBytes(), bytes);
});

test("a large drawing's memory is given back", () => {
  const own = startLibrary(folder);
  const room = own.reserve(300 * 1024 * 1024);
  own.write(room, 0, a3(line));
  assert.equal(own.convert(room).status, "ok");
  assert.ok(own.memoryBytes() < 64 * 1024 * 1024);
});

// In a process of its own: what the bytes of the largest metafile take, once in the module and once in the answer, and 200 MB
// for all the rest.
test("the largest metafile of a small drawing is in memory twice, never three times", () => {
  const dashes = "0 SECTION\n2 TABLES\n0 TABLE\n2 LTYPE\n0 LTYPE\n2 DASHED\n73 2\n49 0.000001\n49 -0.000001\n0 ENDTAB\n" +
    "0 TABLE\n2 LAYER\n0 LAYER\n2 0\n70 0\n62 7\n6 CONTINUOUS\n0 ENDTAB\n0 ENDSEC\n";
  const long = "0 LINE\n8 0\n6 DASHED\n10 0\n20 0\n11 400\n21 280\n";
  const temporary = mkdtempSync(join(tmpdir(), "hexlume-"));
  try {
    const drawing = join(temporary, "dashes.dxf");
    writeFileSync(drawing, a3WithTables(dashes, long.repeat(1000)));
    const { stderr } = spawnSync("node", [`${folder}/tests/convert_once.mjs`, "emf", drawing], { encoding: "utf8" });
    const [, bytes, kilobytes] = /^(\d+) bytes, (\d+) KB/.exec(stderr) ?? [];
    assert.ok(Number(bytes) > 290e6, stderr);
    assert.ok(Number(kilobytes) * 1024 < 2 * Number(bytes) + 200e6, stderr);
  } finally {
    rmSync(temporary, { recursive: true });
  }
});

function metafileOf(own: Library, drawing: Uint8Array): string {
  const { metafile } = own.convert(drawing);
  assert.ok(metafile);
  return Buffer.from(metafile).toString("hex");
}

test("texts are measured with the fonts of the table", () => {
  const drawing = a3("0 TEXT\n8 0\n10 10\n20 10\n40 5\n1 Wide and narrow: iiii\n");
  const own = startLibrary(folder);
  const gothic = metafileOf(own, drawing);
  own.setFonts([]);
  const plain = metafileOf(own, drawing);
  own.setFonts([{ families: ["No font"], bytes: ascii("this is no font file") }]);
  assert.equal(metafileOf(own, drawing), plain);
  own.setFonts(readFonts(folder).reverse());
  assert.equal(metafileOf(own, drawing), gothic, "the table's order must not matter");
  own.setFonts(readFonts(folder).slice(1)); // the proportional one alone
  assert.notEqual(metafileOf(own, drawing), gothic);
});

test("sentences for what ends outside of the module are the library's", () => {
  const words = readFileSync("src/host/status_text.cpp", "utf8").replace(/"\s*\n\s*"/g, "");
  const outside: OutsideStatus[] = ["cancelled", "fault", "no-memory", "not-allowed", "too-large"];
  for (const status of outside) {
    const { sentence }: Conversion = noConversion(status, "@");
    const [en, ja] = [sentence.en, sentence.ja].map((words) => words.replace("@", "@?"));
    assert.match(words, new RegExp(`"${status}",\\s*"${en}",\\s*"${ja}"`));
  }
});

test("two libraries don't disturb each other", () => {
  const other = new Library(compileModule(folder));
  other.setFonts(readFonts(folder));
  let inner: Conversion | null = null;
  const outer = library.convert(workshop, {}, () => {
    inner ??= other.convert(workshop);
  });
  assert.deepEqual(outer.metafile, (inner as Conversion | null)?.metafile);
  let same: Conversion | null = null;
  library.convert(workshop, {}, () => {
    same ??= library.convert(a3(line));
  });
  assert.equal((same as Conversion | null)?.status, "bad-argument");
});
