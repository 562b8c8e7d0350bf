// A sheet as it is kept after a conversion: strokes, fills and texts in the order in which they are painted. All
// measures are hundredths of a millimetre from the left and top edge of the frame; y grows downward.

export interface Point {
  x: number;
  y: number;
}

export interface Box {
  left: number;
  top: number;
  right: number;
  bottom: number;
}

/** What an item is, and what its six numbers in Sheet.data are. */
export const enum Kind {
  /** x, y of both ends. */
  line,
  /** left, top, right, bottom of a filled box. */
  box,
  /** A filled trapezoid with level sides: left at the top, top, right at the top, bottom, left and right at the bottom. */
  trapezoid,
  /** Centre, radii, start and sweep in radians; positive is clockwise on the sheet. */
  arc,
  /** Index of the first of eight numbers in Sheet.curves, the points of a Bezier curve. */
  curve,
  /** x, y of a mark of one pixel. */
  pixel,
}

export const perItem = 6;
export const perCurve = 8;

export const enum Dash {
  solid,
  dash,
  dot,
  dashDot,
  dashDotDot,
}

/** Dashes and gaps of thin pens, in pixels at 96 dpi. The index is a Dash. */
export const dashLengths: readonly (readonly number[])[] = [[], [18, 6], [3, 3], [9, 6, 3, 6], [9, 3, 3, 3, 3, 3]];

/** A pixel at 96 dpi. */
export const screenPixel = 2540 / 96;

export interface Pen {
  /** 0xRRGGBB */
  color: number;
  /** 0 is the thinnest line. */
  width: number;
  dash: Dash;
}

export interface SheetFont {
  family: string;
  /** Positive: height of the cell; negative: of the em; 0: 16 pixels at 96 dpi. */
  height: number;
  /** Average width of a character, or 0. */
  width: number;
  weight: number;
  italic: boolean;
  underline: boolean;
  strikeOut: boolean;
}

export const enum Across {
  left,
  right,
  centre,
}

export const enum Along {
  top,
  bottom,
  baseline,
}

export interface SheetText {
  /** Number of items that are painted before the text. */
  after: number;
  text: string;
  /** One for each UTF-16 unit; null if the font's own advances count. */
  advances: Float32Array | null;
  x: number;
  y: number;
  /** In radians, positive is clockwise. */
  angle: number;
  font: SheetFont;
  color: number;
  across: Across;
  along: Along;
  /** The clip region at its time, or null. */
  clip: Box[] | null;
}

export interface Sheet {
  frame: Box;
  /** Of all items; equal to an empty box if there are none. */
  bounds: Box;
  count: number;
  kinds: Uint8Array;
  pens: Uint32Array;
  data: Float32Array;
  curves: Float64Array;
  penTable: Pen[];
  texts: SheetText[];
}

export function widthOf(box: Box): number {
  return box.right - box.left;
}

export function heightOf(box: Box): number {
  return box.bottom - box.top;
}

export function emptyBox(): Box {
  return { left: Infinity, top: Infinity, right: -Infinity, bottom: -Infinity };
}

export function addPoint(box: Box, x: number, y: number): void {
  if (x < box.left) box.left = x;
  if (x > box.right) box.right = x;
  if (y < box.top) box.top = y;
  if (y > box.bottom) box.bottom = y;
}

export function overlaps(a: Box, b: Box): boolean {
  return a.left <= b.right && a.right >= b.left && a.top <= b.bottom && a.bottom >= b.top;
}

export function pointOnArc(data: ArrayLike<number>, first: number, angle: number): Point {
  return {
    x: data[first]! + data[first + 2]! * Math.cos(angle),
    y: data[first + 1]! + data[first + 3]! * Math.sin(angle),
  };
}

/** Bounds of one item, without the width of its pen. */
export function boundsOf(sheet: Sheet, item: number, box: Box): Box {
  const { data, curves } = sheet;
  const first = item * perItem;
  box.left = box.top = Infinity;
  box.right = box.bottom = -Infinity;
  switch (sheet.kinds[item]) {
    case Kind.arc: {
      const x = data[first]!,
        y = data[first + 1]!,
        rx = data[first + 2]!,
        ry = data[first + 3]!;
      addPoint(box, x - rx, y - ry);
      addPoint(box, x + rx, y + ry);
      break;
    }
    case Kind.curve:
      for (let i = data[first]!, end = i + perCurve; i < end; i += 2) addPoint(box, curves[i]!, curves[i + 1]!);
      break;
    case Kind.trapezoid:
      addPoint(box, Math.min(data[first]!, data[first + 4]!), data[first + 1]!);
      addPoint(box, Math.max(data[first + 2]!, data[first + 5]!), data[first + 3]!);
      break;
    case Kind.pixel:
      addPoint(box, data[first]!, data[first + 1]!);
      break;
    default:
      addPoint(box, data[first]!, data[first + 1]!);
      addPoint(box, data[first + 2]!, data[first + 3]!);
  }
  return box;
}

/** Whether an item is a filled shape, not a stroke. */
export function isFill(kind: number): boolean {
  return kind === Kind.box || kind === Kind.trapezoid;
}
