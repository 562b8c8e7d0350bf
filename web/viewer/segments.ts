// All strokes of a sheet as short lines in a grid, to find those near a place.
import { flattenItem } from "./flatten";
import { coarseTolerance } from "./instances";
import { heightOf, Kind, perItem, pointOnArc, widthOf } from "./sheet";
import type { Box, Point, Sheet } from "./sheet";

/** Marks of a stroke that aren't where two short lines of one curve meet. */
export interface Marks {
  ends: Point[];
  centres: Point[];
}

export class Segments {
  /** x, y of both ends of each. */
  readonly data: Float32Array;
  readonly items: Uint32Array;
  readonly count: number;
  private readonly columns: number;
  private readonly rows: number;
  private readonly cellWidth: number;
  private readonly cellHeight: number;
  /** Where the list of each cell begins in the lists. */
  private readonly starts: Uint32Array;
  private readonly lists: Uint32Array;
  private readonly area: Box;
  private allCentres: Point[] | null = null;

  constructor(readonly sheet: Sheet) {
    const coordinates: number[] = [],
      items: number[] = [],
      tolerance = coarseTolerance(sheet) / 4;
    for (let item = 0; item < sheet.count; ++item) {
      let last: Point | null = null;
      flattenItem(sheet, item, tolerance, (x, y) => {
        if (last) {
          coordinates.push(last.x, last.y, x, y);
          items.push(item);
        }
        last = { x, y };
      });
    }
    this.data = Float32Array.from(coordinates);
    this.items = Uint32Array.from(items);
    this.count = items.length;
    this.area = sheet.count > 0 ? sheet.bounds : sheet.frame;
    const most = 768,
      cells = Math.min(most, Math.max(1, Math.ceil(Math.sqrt(this.count / 2))));
    this.columns = this.rows = cells;
    this.cellWidth = Math.max(1, widthOf(this.area)) / cells;
    this.cellHeight = Math.max(1, heightOf(this.area)) / cells;
    this.starts = new Uint32Array(cells * cells + 1);
    for (let i = 0; i < this.count; ++i) this.forCells(i, (cell) => ++this.starts[cell + 1]!);
    for (let cell = 0; cell < cells * cells; ++cell) this.starts[cell + 1]! += this.starts[cell]!;
    this.lists = new Uint32Array(this.starts[cells * cells]!);
    const filled = this.starts.slice();
    for (let i = 0; i < this.count; ++i) this.forCells(i, (cell) => (this.lists[filled[cell]!++] = i));
  }

  /** The short lines whose cells meet a box, each once; at most so many. */
  near(box: Box, most: number): number[] {
    const found = new Set<number>();
    const first = this.column(box.left),
      last = this.column(box.right);
    for (let row = this.row(box.top); row <= this.row(box.bottom); ++row) {
      for (let column = first; column <= last; ++column) {
        const cell = row * this.columns + column;
        for (let k = this.starts[cell]!; k < this.starts[cell + 1]!; ++k) {
          const i = this.lists[k]!;
          if (this.meets(i, box)) found.add(i);
          if (found.size >= most) return [...found];
        }
      }
    }
    return [...found];
  }

  /** Ends and centres of the stroke of a short line. */
  marks(i: number): Marks {
    const { sheet } = this,
      item = this.items[i]!,
      { data, curves } = sheet,
      first = item * perItem;
    if (sheet.kinds[item] === Kind.arc) {
      const start = data[first + 4]!,
        sweep = data[first + 5]!;
      const whole = Math.abs(sweep) > 2 * Math.PI - 1e-3;
      return {
        ends: whole ? [] : [pointOnArc(data, first, start), pointOnArc(data, first, start + sweep)],
        centres: [{ x: data[first]!, y: data[first + 1]! }],
      };
    }
    if (sheet.kinds[item] === Kind.curve) {
      const at = data[first]!;
      return {
        ends: [
          { x: curves[at]!, y: curves[at + 1]! },
          { x: curves[at + 6]!, y: curves[at + 7]! },
        ],
        centres: [],
      };
    }
    return {
      ends: [
        { x: data[first]!, y: data[first + 1]! },
        { x: data[first + 2]!, y: data[first + 3]! },
      ],
      centres: [],
    };
  }

  /** The centres of all arcs and circles. */
  centres(): Point[] {
    this.allCentres ??= centresOf(this.sheet);
    return this.allCentres;
  }

  private column(x: number): number {
    return Math.min(this.columns - 1, Math.max(0, Math.floor((x - this.area.left) / this.cellWidth)));
  }

  private row(y: number): number {
    return Math.min(this.rows - 1, Math.max(0, Math.floor((y - this.area.top) / this.cellHeight)));
  }

  /** Whether the line itself, not only its box, meets a box. */
  private meets(i: number, box: Box): boolean {
    const { data } = this,
      x0 = data[4 * i]!,
      y0 = data[4 * i + 1]!,
      x1 = data[4 * i + 2]!,
      y1 = data[4 * i + 3]!;
    if (Math.min(x0, x1) > box.right || Math.max(x0, x1) < box.left) return false;
    if (Math.min(y0, y1) > box.bottom || Math.max(y0, y1) < box.top) return false;
    const side = (x: number, y: number): number => (x1 - x0) * (y - y0) - (y1 - y0) * (x - x0);
    const a = side(box.left, box.top),
      b = side(box.right, box.top),
      c = side(box.left, box.bottom),
      d = side(box.right, box.bottom);
    return !(Math.min(a, b, c, d) > 0 || Math.max(a, b, c, d) < 0);
  }

  /** Calls for each cell that a line crosses. */
  private forCells(i: number, call: (cell: number) => void): void {
    const { data } = this,
      x0 = data[4 * i]!,
      y0 = data[4 * i + 1]!,
      x1 = data[4 * i + 2]!,
      y1 = data[4 * i + 3]!;
    const top = this.row(Math.min(y0, y1)),
      bottom = this.row(Math.max(y0, y1));
    for (let row = top; row <= bottom; ++row) {
      let left = Math.min(x0, x1),
        right = Math.max(x0, x1);
      if (top !== bottom) {
        // The part of the line within the row, a little longer.
        const rowTop = this.area.top + row * this.cellHeight,
          slope = (x1 - x0) / (y1 - y0);
        const a = x0 + (rowTop - y0) * slope,
          b = x0 + (rowTop + this.cellHeight - y0) * slope;
        left = Math.max(left, Math.min(a, b) - this.cellWidth * 0.01);
        right = Math.min(right, Math.max(a, b) + this.cellWidth * 0.01);
      }
      for (let column = this.column(left), end = this.column(right); column <= end; ++column)
        call(row * this.columns + column);
    }
  }
}

function centresOf(sheet: Sheet): Point[] {
  const centres: Point[] = [];
  sheet.kinds.forEach((kind, item) => {
    if (kind === Kind.arc) centres.push({ x: sheet.data[item * perItem]!, y: sheet.data[item * perItem + 1]! });
  });
  return centres;
}
