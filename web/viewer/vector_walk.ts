// Goes through a sheet in the order of painting, for files of strokes: SVG and PDF.
import { isFill, Kind, perCurve, perItem } from "./sheet";
import type { Pen, Sheet } from "./sheet";

export interface VectorSink {
  /** Strokes of one pen and colour follow, until end. */
  begin(pen: Pen, color: number): void;
  move(x: number, y: number): void;
  line(x: number, y: number): void;
  curve(x1: number, y1: number, x2: number, y2: number, x3: number, y3: number): void;
  end(): void;
  /** A filled shape of four corners: x and y of each. */
  fill(corners: readonly number[], color: number): void;
  text(index: number): void;
}

const mostTogether = 4000;

/** The thinnest line of a file, in hundredths of a millimetre. */
export const fileHairline = 10;

export function walkSheet(sheet: Sheet, colorOf: (item: number) => number, sink: VectorSink): void {
  let pen: Pen | null = null,
    color = -1,
    together = 0,
    text = 0,
    x = NaN,
    y = NaN;
  const end = (): void => {
    if (pen) sink.end();
    pen = null;
    x = y = NaN;
  };
  const goTo = (toX: number, toY: number): void => {
    if (toX !== x || toY !== y) sink.move(toX, toY);
  };
  for (let item = 0; item <= sheet.count; ++item) {
    while (text < sheet.texts.length && sheet.texts[text]!.after === item) {
      end();
      sink.text(text++);
    }
    if (item === sheet.count) break;
    const itemColor = colorOf(item),
      kind = sheet.kinds[item]!,
      itemPen = sheet.penTable[sheet.pens[item]!]!;
    if (itemColor < 0) continue;
    if (isFill(kind) || kind === Kind.pixel) {
      end();
      sink.fill(cornersOf(sheet, item), itemColor);
      continue;
    }
    if (pen !== itemPen || color !== itemColor || together >= mostTogether) {
      end();
      sink.begin(itemPen, itemColor);
      pen = itemPen;
      color = itemColor;
      together = 0;
    }
    ++together;
    const { data, curves } = sheet,
      first = item * perItem;
    if (kind === Kind.line) {
      goTo(data[first]!, data[first + 1]!);
      sink.line((x = data[first + 2]!), (y = data[first + 3]!));
    } else if (kind === Kind.arc) {
      walkArc(data, first, goTo, sink);
      x = y = NaN;
    } else {
      const at = data[first]!;
      goTo(curves[at]!, curves[at + 1]!);
      const [, , x1, y1, x2, y2, x3, y3] = curves.subarray(at, at + perCurve);
      sink.curve(x1!, y1!, x2!, y2!, (x = x3!), (y = y3!));
    }
  }
  end();
}

function cornersOf(sheet: Sheet, item: number): number[] {
  const first = item * perItem,
    at = (index: number): number => sheet.data[first + index]!;
  const half = fileHairline / 2;
  switch (sheet.kinds[item]) {
    case Kind.trapezoid:
      return [at(0), at(1), at(2), at(1), at(5), at(3), at(4), at(3)];
    case Kind.box:
      return [at(0), at(1), at(2), at(1), at(2), at(3), at(0), at(3)];
    default:
      return [
        at(0) - half,
        at(1) - half,
        at(0) + half,
        at(1) - half,
        at(0) + half,
        at(1) + half,
        at(0) - half,
        at(1) + half,
      ];
  }
}

/** An arc as Bezier curves of at most an eighth of a turn. */
function walkArc(data: ArrayLike<number>, first: number, goTo: (x: number, y: number) => void, sink: VectorSink): void {
  const x = data[first]!,
    y = data[first + 1]!,
    rx = data[first + 2]!,
    ry = data[first + 3]!;
  const start = data[first + 4]!,
    sweep = data[first + 5]!;
  const count = Math.max(1, Math.ceil(Math.abs(sweep) / (Math.PI / 4) - 1e-9)),
    step = sweep / count;
  const handle = (4 / 3) * Math.tan(step / 4);
  goTo(x + rx * Math.cos(start), y + ry * Math.sin(start));
  for (let i = 0; i < count; ++i) {
    const a = start + i * step,
      b = a + step;
    sink.curve(
      x + rx * (Math.cos(a) - handle * Math.sin(a)),
      y + ry * (Math.sin(a) + handle * Math.cos(a)),
      x + rx * (Math.cos(b) + handle * Math.sin(b)),
      y + ry * (Math.sin(b) - handle * Math.cos(b)),
      x + rx * Math.cos(b),
      y + ry * Math.sin(b),
    );
  }
}
