// Paints a sheet on a canvas of two dimensions, in its exact order, texts included: for saved and printed pictures,
// thumbnails, and browsers without WebGL.
import type { TextPainter } from "./text_painter";
import { flattenItem } from "./flatten";
import { boundsOf, dashLengths, emptyBox, isFill, Kind, overlaps, perItem, screenPixel } from "./sheet";
import type { Box, Pen, Sheet } from "./sheet";

export interface PaintOptions {
  /** Pixels for a hundredth of a millimetre. */
  scale: number;
  /** The place on the sheet at the left and top edge. */
  x: number;
  y: number;
  /** What is painted, on the sheet. */
  box: Box;
  /** The thinnest line, in pixels. */
  hairline: number;
  /** 0xRRGGBB, or -1 to leave the item out. */
  colorOf(item: number): number;
  textColorOf(text: number): number;
  /** Null: without texts. */
  texts: TextPainter | null;
}

export function cssColor(color: number): string {
  return `#${color.toString(16).padStart(6, "0")}`;
}

type Context = CanvasRenderingContext2D | OffscreenCanvasRenderingContext2D;

/** Lines of one pen are stroked together, up to so many. */
const mostTogether = 2000;

class Painter {
  private color = -1;
  private pen: Pen | null = null;
  private together = 0;

  constructor(
    private readonly context: Context,
    private readonly sheet: Sheet,
    private readonly options: PaintOptions,
  ) {}

  paint(): void {
    const { sheet, options, context } = this;
    context.save();
    context.lineJoin = "round";
    const box = emptyBox();
    let text = 0;
    for (let item = 0; item <= sheet.count; ++item) {
      while (text < sheet.texts.length && sheet.texts[text]!.after === item) this.paintText(text++);
      if (item === sheet.count) break;
      const color = options.colorOf(item);
      if (color < 0 || !overlaps(boundsOf(sheet, item, box), options.box)) continue;
      if (isFill(sheet.kinds[item]!) || sheet.kinds[item] === Kind.pixel) this.paintFill(item, color);
      else this.paintStroke(item, color);
    }
    this.flush();
    context.restore();
  }

  private x(x: number): number {
    return (x - this.options.x) * this.options.scale;
  }

  private y(y: number): number {
    return (y - this.options.y) * this.options.scale;
  }

  private paintText(index: number): void {
    const { texts, textColorOf, scale, x, y } = this.options;
    if (!texts) return;
    this.flush();
    texts.paint(this.context, this.sheet.texts[index]!, { scale, x, y }, textColorOf(index));
  }

  private paintFill(item: number, color: number): void {
    const {
        context,
        sheet: { data, kinds },
      } = this,
      first = item * perItem;
    this.flush();
    context.fillStyle = cssColor(color);
    const at = (i: number): number => data[first + i]!;
    if (kinds[item] === Kind.pixel) {
      const size = this.options.hairline;
      context.fillRect(this.x(at(0)) - size / 2, this.y(at(1)) - size / 2, size, size);
    } else if (kinds[item] === Kind.box) {
      const left = Math.round(this.x(at(0))),
        top = Math.round(this.y(at(1)));
      context.fillRect(left, top, Math.round(this.x(at(2))) - left, Math.round(this.y(at(3))) - top);
    } else {
      context.beginPath();
      context.moveTo(this.x(at(0)), this.y(at(1)));
      context.lineTo(this.x(at(2)), this.y(at(1)));
      context.lineTo(this.x(at(5)), this.y(at(3)));
      context.lineTo(this.x(at(4)), this.y(at(3)));
      context.fill();
    }
  }

  private paintStroke(item: number, color: number): void {
    const { context, sheet } = this,
      pen = sheet.penTable[sheet.pens[item]!]!;
    if (pen !== this.pen || color !== this.color || this.together >= mostTogether) this.begin(pen, color);
    ++this.together;
    if (sheet.kinds[item] === Kind.line) return this.addLine(item, pen);
    let first = true;
    flattenItem(sheet, item, 0.15 / this.options.scale, (x, y) => {
      if (first) context.moveTo(this.x(x), this.y(y));
      else context.lineTo(this.x(x), this.y(y));
      first = false;
    });
  }

  private addLine(item: number, pen: Pen): void {
    const {
        context,
        sheet: { data },
      } = this,
      first = item * perItem;
    let x0 = this.x(data[first]!),
      y0 = this.y(data[first + 1]!),
      x1 = this.x(data[first + 2]!),
      y1 = this.y(data[first + 3]!);
    // A thin level or upright line is in the middle of its pixels.
    if ((x0 === x1 || y0 === y1) && pen.width * this.options.scale <= this.options.hairline) {
      [x0, y0, x1, y1] = [Math.floor(x0) + 0.5, Math.floor(y0) + 0.5, Math.floor(x1) + 0.5, Math.floor(y1) + 0.5];
    }
    context.moveTo(x0, y0);
    context.lineTo(x1, y1);
  }

  private begin(pen: Pen, color: number): void {
    this.flush();
    const { context, options } = this,
      width = pen.width * options.scale;
    this.pen = pen;
    this.color = color;
    const dashes = width <= options.hairline ? dashLengths[pen.dash]! : [];
    const unit = Math.max(options.hairline, screenPixel * options.scale);
    context.setLineDash(dashes.map((length) => length * unit));
    context.lineCap = dashes.length > 0 ? "butt" : "round";
    context.lineWidth = Math.max(width, options.hairline);
    context.strokeStyle = cssColor(color);
    context.beginPath();
  }

  private flush(): void {
    if (this.together > 0) this.context.stroke();
    this.together = 0;
    this.pen = null;
  }
}

export function paintSheet(context: Context, sheet: Sheet, options: PaintOptions): void {
  new Painter(context, sheet, options).paint();
}
