// The strokes and fills of a sheet as the graphics card takes them: one record each, in the order of painting, with
// curves cut into lines as fine as the zoom needs.
import { flattenArc, flattenCurve } from "./flatten";
import { boundsOf, emptyBox, Kind, overlaps, perItem, widthOf } from "./sheet";
import type { Box, Sheet } from "./sheet";

/** Bytes of a record: six floats, then red, green, blue and a Shape. */
export const instanceBytes = 28;

/** What a record is. 0 to 4 are lines with a Dash: x, y of both ends, half the width, length before it. */
export const enum Shape {
  box = 8,
  trapezoid = 9,
  pixel = 10,
}

/** Records that are next to each other, with their bounds. */
export interface Chunk {
  first: number;
  count: number;
  bounds: Box;
}

export interface Instances {
  bytes: Uint8Array;
  count: number;
  chunks: Chunk[];
}

/** How fine curves are. Within the region they have the tolerance, elsewhere the coarse one. */
export interface Detail {
  tolerance: number;
  coarse: number;
  region: Box;
}

const chunkLength = 2048;
/** With more records than this, curves are cut coarsely, so that a drawing can't take all memory. */
const mostFine = 6e6;

class Writer {
  private bytes = new Uint8Array(instanceBytes * 4096);
  private floats = new Float32Array(this.bytes.buffer);
  private words = new Uint32Array(this.bytes.buffer);
  private readonly chunks: Chunk[] = [];
  private chunk: Chunk | null = null;
  private count = 0;

  get length(): number {
    return this.count;
  }

  add(word: number, a: number, b: number, c: number, d: number, e: number, f: number): void {
    if ((this.count + 1) * instanceBytes > this.bytes.length) this.grow();
    const at = (this.count * instanceBytes) >> 2;
    this.floats[at] = a;
    this.floats[at + 1] = b;
    this.floats[at + 2] = c;
    this.floats[at + 3] = d;
    this.floats[at + 4] = e;
    this.floats[at + 5] = f;
    this.words[at + 6] = word;
    if (!this.chunk || this.chunk.count === chunkLength) {
      this.chunk = { first: this.count, count: 0, bounds: emptyBox() };
      this.chunks.push(this.chunk);
    }
    ++this.chunk.count;
    ++this.count;
  }

  /** Adds to the bounds of the chunk with the last record. */
  cover(box: Box): void {
    const bounds = this.chunk?.bounds;
    if (!bounds) return;
    bounds.left = Math.min(bounds.left, box.left);
    bounds.top = Math.min(bounds.top, box.top);
    bounds.right = Math.max(bounds.right, box.right);
    bounds.bottom = Math.max(bounds.bottom, box.bottom);
  }

  finish(): Instances {
    return { bytes: this.bytes.subarray(0, this.count * instanceBytes), count: this.count, chunks: this.chunks };
  }

  private grow(): void {
    const bytes = new Uint8Array(this.bytes.length * 2);
    bytes.set(this.bytes);
    this.bytes = bytes;
    this.floats = new Float32Array(bytes.buffer);
    this.words = new Uint32Array(bytes.buffer);
  }
}

/** The fourth byte of a record's word is its shape. */
function wordOf(color: number, shape: number): number {
  return (((color >> 16) & 0xff) | (color & 0xff00) | ((color & 0xff) << 16) | (shape << 24)) >>> 0;
}

/** @param colorOf  the colour of an item, 0xRRGGBB, or -1 to leave it out */
export function makeInstances(sheet: Sheet, detail: Detail, colorOf: (item: number) => number): Instances {
  const writer = new Writer(),
    box = emptyBox();
  const { data, kinds, pens, penTable } = sheet;
  const dashed = penTable.some((pen) => pen.dash !== 0);
  let along = 0;
  for (let item = 0; item < sheet.count; ++item) {
    const color = colorOf(item);
    if (color < 0) continue;
    const first = item * perItem,
      kind = kinds[item]!,
      pen = penTable[pens[item]!]!;
    boundsOf(sheet, item, box);
    if (kind === Kind.line) {
      writer.add(
        wordOf(color, pen.dash),
        data[first]!,
        data[first + 1]!,
        data[first + 2]!,
        data[first + 3]!,
        pen.width / 2,
        0,
      );
    } else if (kind === Kind.box) {
      writer.add(wordOf(color, Shape.box), data[first]!, data[first + 1]!, data[first + 2]!, data[first + 3]!, 0, 0);
    } else if (kind === Kind.trapezoid) {
      writer.add(
        wordOf(color, Shape.trapezoid),
        data[first]!,
        data[first + 1]!,
        data[first + 2]!,
        data[first + 3]!,
        data[first + 4]!,
        data[first + 5]!,
      );
    } else if (kind === Kind.pixel) {
      writer.add(wordOf(color, Shape.pixel), data[first]!, data[first + 1]!, data[first]!, data[first + 1]!, 0, 0);
    } else {
      const wanted = overlaps(box, detail.region) ? detail.tolerance : detail.coarse;
      const tolerance = writer.length > mostFine ? Infinity : wanted;
      const word = wordOf(color, pen.dash);
      let x = NaN,
        y = NaN;
      along = 0;
      const add = (toX: number, toY: number): void => {
        if (x === x) {
          writer.add(word, x, y, toX, toY, pen.width / 2, along);
          writer.cover(box);
          if (dashed) along += Math.hypot(toX - x, toY - y);
        }
        x = toX;
        y = toY;
      };
      if (kind === Kind.arc) flattenArc(data, first, tolerance, add);
      else flattenCurve(sheet.curves, data[first]!, tolerance, add);
    }
    const half = pen.width / 2;
    box.left -= half;
    box.top -= half;
    box.right += half;
    box.bottom += half;
    writer.cover(box);
  }
  return writer.finish();
}

/** Whether a sheet has curves, whose lines depend on the zoom. */
export function hasCurves(sheet: Sheet): boolean {
  return sheet.kinds.some((kind) => kind === Kind.arc || kind === Kind.curve);
}

/** The coarse tolerance of a sheet: half a pixel when all of it is shown. */
export function coarseTolerance(sheet: Sheet): number {
  return Math.max(1, widthOf(sheet.frame) / 4000);
}
