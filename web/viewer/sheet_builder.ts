// Collects the items of a sheet in arrays that grow.
import { addPoint, boundsOf, emptyBox, Kind, perItem } from "./sheet";
import type { Box, Pen, Sheet, SheetText } from "./sheet";

export class SheetBuilder {
  private kinds = new Uint8Array(1024);
  private pens = new Uint32Array(1024);
  private data = new Float32Array(1024 * perItem);
  private curves: number[] = [];
  private readonly penTable: Pen[] = [];
  private readonly penIndexes = new Map<string, number>();
  private readonly texts: SheetText[] = [];
  count = 0;

  constructor(private readonly frame: Box) {}

  /** The index of a pen in the table. */
  penIndex(pen: Pen): number {
    const key = `${pen.color} ${pen.width} ${pen.dash}`;
    let index = this.penIndexes.get(key);
    if (index === undefined) {
      index = this.penTable.push(pen) - 1;
      this.penIndexes.set(key, index);
    }
    return index;
  }

  add(kind: Kind, pen: number, a: number, b: number, c = 0, d = 0, e = 0, f = 0): void {
    if (this.count === this.kinds.length) this.grow();
    const first = this.count * perItem;
    this.kinds[this.count] = kind;
    this.pens[this.count++] = pen;
    this.data[first] = a;
    this.data[first + 1] = b;
    this.data[first + 2] = c;
    this.data[first + 3] = d;
    this.data[first + 4] = e;
    this.data[first + 5] = f;
  }

  addCurve(pen: number, points: readonly number[]): void {
    this.add(Kind.curve, pen, this.curves.length, 0);
    for (const value of points) this.curves.push(value);
  }

  addText(text: SheetText): void {
    this.texts.push(text);
  }

  finish(): Sheet {
    const sheet: Sheet = {
      frame: this.frame,
      bounds: emptyBox(),
      count: this.count,
      kinds: this.kinds.slice(0, this.count),
      pens: this.pens.slice(0, this.count),
      data: this.data.slice(0, this.count * perItem),
      curves: Float64Array.from(this.curves),
      penTable: this.penTable,
      texts: this.texts,
    };
    const box = emptyBox();
    for (let i = 0; i < sheet.count; ++i) {
      boundsOf(sheet, i, box);
      addPoint(sheet.bounds, box.left, box.top);
      addPoint(sheet.bounds, box.right, box.bottom);
    }
    return sheet;
  }

  private grow(): void {
    const length = this.kinds.length * 2;
    this.kinds = copyOf(this.kinds, new Uint8Array(length));
    this.pens = copyOf(this.pens, new Uint32Array(length));
    this.data = copyOf(this.data, new Float32Array(length * perItem));
  }
}

function copyOf<Numbers extends Uint8Array | Uint32Array | Float32Array>(from: Numbers, to: Numbers): Numbers {
  to.set(from);
  return to;
}
