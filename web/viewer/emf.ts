// Reads an enhanced metafile into a sheet: the records that the library writes, with the meaning that they have for
// the system. Other records are skipped, and malformed ones too.
import { BadMetafile, RecordReader, RecordType } from "./emf_record";
import { combine, contains, firstBelow, partsInside } from "./clip";
import { cutToBox, fillPolygon } from "./fill";
import { flattenArc, flattenCurve } from "./flatten";
import { addPoint, Across, Along, Dash, emptyBox, Kind, overlaps } from "./sheet";
import { SheetBuilder } from "./sheet_builder";
import type { Box, Pen, Point, Sheet, SheetFont } from "./sheet";

interface Brush {
  color: number;
  hollow: boolean;
}

interface LogicalFont extends SheetFont {
  /** In tenths of a degree. */
  escapement: number;
}

type MetafileObject = { pen: Pen | null } | { brush: Brush } | { font: LogicalFont };

const nullPen = 5;
const hollowBrush = 1;
/** Of curves that a clip region cuts. */
const cutTolerance = 2;
const systemFont: LogicalFont = {
  family: "",
  height: 0,
  width: 0,
  weight: 400,
  italic: false,
  underline: false,
  strikeOut: false,
  escapement: 0,
};

const stockObjects = new Map<number, MetafileObject>([
  [0x80000000, { brush: { color: 0xffffff, hollow: false } }],
  [0x80000001, { brush: { color: 0xc0c0c0, hollow: false } }],
  [0x80000002, { brush: { color: 0x808080, hollow: false } }],
  [0x80000003, { brush: { color: 0x404040, hollow: false } }],
  [0x80000004, { brush: { color: 0x000000, hollow: false } }],
  [0x80000005, { brush: { color: 0x000000, hollow: true } }],
  [0x80000006, { pen: { color: 0xffffff, width: 0, dash: Dash.solid } }],
  [0x80000007, { pen: { color: 0x000000, width: 0, dash: Dash.solid } }],
  [0x80000008, { pen: null }],
  [0x8000000d, { font: systemFont }],
]);

/** 0x00BBGGRR to 0xRRGGBB. */
function colorOf(reference: number): number {
  return ((reference & 0xff) << 16) | (reference & 0xff00) | ((reference >> 16) & 0xff);
}

class Player {
  private readonly builder: SheetBuilder;
  private readonly pixelWidth: number;
  private readonly pixelHeight: number;
  private readonly left: number;
  private readonly top: number;
  private readonly objects = new Map<number, MetafileObject>();
  private himetric = false;
  private pen: Pen | null = { color: 0, width: 0, dash: Dash.solid };
  private penIndex = -1;
  private brush: Brush = { color: 0xffffff, hollow: false };
  private font = systemFont;
  private currentX = 0;
  private currentY = 0;
  private winding = false;
  private clockwise = false;
  private align = 0;
  private textColor = 0;
  private clip: Box[] | null = null;

  constructor(private readonly record: RecordReader) {
    const signature = 0x464d4520;
    record.next();
    if (record.type !== RecordType.header || record.int(40) !== signature) throw new BadMetafile();
    const pixels = { x: record.int(72), y: record.int(76) },
      millimetres = { x: record.int(80), y: record.int(84) };
    if (pixels.x <= 0 || pixels.y <= 0 || millimetres.x <= 0 || millimetres.y <= 0) throw new BadMetafile();
    this.pixelWidth = (100 * millimetres.x) / pixels.x;
    this.pixelHeight = (100 * millimetres.y) / pixels.y;
    this.left = record.int(24);
    this.top = record.int(28);
    this.builder = new SheetBuilder({
      left: 0,
      top: 0,
      right: record.int(32) - this.left,
      bottom: record.int(36) - this.top,
    });
  }

  play(): Sheet {
    try {
      for (;;) {
        this.record.next();
        if (this.record.type === RecordType.eof) break;
        this.playRecord();
      }
    } catch (error) {
      if (!(error instanceof BadMetafile)) throw error;
    }
    return this.builder.finish();
  }

  private playRecord(): void {
    try {
      this.playSoundRecord();
    } catch (error) {
      if (!(error instanceof BadMetafile)) throw error;
    }
  }

  private playSoundRecord(): void {
    const { record } = this;
    switch (record.type) {
      case RecordType.polyBezier:
        return this.drawCurves(this.points(false));
      case RecordType.polygon:
        return this.drawPolygon(this.points(false));
      case RecordType.setPixelV:
        return this.setPixel();
      case RecordType.setMapMode:
        return this.setMapMode(record.int(8));
      case RecordType.setPolyFillMode:
        this.winding = record.int(8) === 2;
        return;
      case RecordType.setTextAlign:
        this.align = record.int(8);
        return;
      case RecordType.setTextColor:
        this.textColor = colorOf(record.int(8));
        return;
      case RecordType.moveToEx:
        this.currentX = record.int(8);
        this.currentY = record.int(12);
        return;
      case RecordType.selectObject:
        return this.select(record.uint(8));
      case RecordType.createPen:
        return this.createPen();
      case RecordType.createBrushIndirect:
        return this.createBrush();
      case RecordType.deleteObject:
        this.objects.delete(record.uint(8));
        return;
      case RecordType.angleArc:
        return this.angleArc();
      case RecordType.ellipse:
        return this.ellipse();
      case RecordType.arc:
        return this.arc();
      case RecordType.lineTo:
        return this.lineTo();
      case RecordType.setArcDirection:
        this.clockwise = record.int(8) === 2;
        return;
      case RecordType.fillRgn:
        return this.fillRegion();
      case RecordType.extSelectClipRgn:
        return this.selectClip();
      case RecordType.extCreateFontIndirectW:
        return this.createFont();
      case RecordType.extTextOutW:
        return this.textOut();
      case RecordType.polyBezier16:
        return this.drawCurves(this.points(true));
      case RecordType.polygon16:
        return this.drawPolygon(this.points(true));
    }
  }

  // From the units of the map mode to those of the sheet.

  private x(x: number): number {
    return (this.himetric ? x : x * this.pixelWidth) - this.left;
  }

  private y(y: number): number {
    return (this.himetric ? -y : y * this.pixelHeight) - this.top;
  }

  private place(offset: number): Point {
    return { x: this.x(this.record.int(offset)), y: this.y(this.record.int(offset + 4)) };
  }

  private points(narrow: boolean): Point[] {
    const first = 28,
      { record } = this;
    const count = record.uint(24);
    record.require(first, count, narrow ? 4 : 8);
    return Array.from({ length: count }, (_, i) =>
      narrow
        ? { x: this.x(record.short(first + 4 * i)), y: this.y(record.short(first + 4 * i + 2)) }
        : this.place(first + 8 * i),
    );
  }

  private region(offset: number, size: number, place: (box: Box) => Box): Box[] {
    const { record } = this;
    record.require(offset, size, 1);
    const headerSize = record.uint(offset),
      count = record.uint(offset + 8);
    if (headerSize < 32 || headerSize > size || headerSize % 4 !== 0) throw new BadMetafile();
    if (count > (size - headerSize) / 16) throw new BadMetafile();
    return Array.from({ length: count }, (_, i) => {
      const at = offset + headerSize + 16 * i;
      const box = place({
        left: record.int(at),
        top: record.int(at + 4),
        right: record.int(at + 8),
        bottom: record.int(at + 12),
      });
      if (box.top > box.bottom) [box.top, box.bottom] = [box.bottom, box.top];
      return box;
    });
  }

  // Objects and modes.

  private setMapMode(mode: number): void {
    const text = 1,
      himetric = 3;
    if (mode === text || mode === himetric) this.himetric = mode === himetric;
    this.penIndex = -1;
  }

  private createPen(): void {
    const { record } = this;
    const style = record.uint(12);
    const dash = style >= Dash.dash && style <= Dash.dashDotDot ? (style as Dash) : Dash.solid;
    const pen = style === nullPen ? null : { color: colorOf(record.int(24)), width: Math.abs(record.int(16)), dash };
    this.objects.set(record.uint(8), { pen });
  }

  private createBrush(): void {
    const { record } = this;
    const brush = { color: colorOf(record.int(16)), hollow: record.uint(12) === hollowBrush };
    this.objects.set(record.uint(8), { brush });
  }

  private createFont(): void {
    const { record } = this;
    const name = record.text(40, 32);
    const end = name.indexOf("\0");
    this.objects.set(record.uint(8), {
      font: {
        family: end < 0 ? name : name.slice(0, end),
        height: record.int(12),
        width: record.int(16),
        weight: record.int(28),
        italic: record.byte(32) !== 0,
        underline: record.byte(33) !== 0,
        strikeOut: record.byte(34) !== 0,
        escapement: record.int(20),
      },
    });
  }

  private select(handle: number): void {
    const object = stockObjects.get(handle) ?? this.objects.get(handle);
    if (!object) return;
    if ("pen" in object) {
      this.pen = object.pen;
      this.penIndex = -1;
    } else if ("brush" in object) {
      this.brush = object.brush;
    } else {
      this.font = object.font;
    }
  }

  private selectClip(): void {
    const { record } = this;
    const size = record.uint(8),
      mode = record.int(12),
      copy = 5;
    if (size === 0) {
      if (mode === copy) this.clip = null;
      return;
    }
    const boxes = this.region(16, size, (box) => ({
      left: box.left * this.pixelWidth - this.left,
      top: box.top * this.pixelHeight - this.top,
      right: box.right * this.pixelWidth - this.left,
      bottom: box.bottom * this.pixelHeight - this.top,
    }));
    this.clip = combine(this.clip, boxes, mode);
  }

  // Strokes.

  /** The index of the selected pen; -1 if it draws nothing. */
  private stroke(): number {
    if (!this.pen) return -1;
    if (this.penIndex < 0) {
      const width = this.pen.width * (this.himetric ? 1 : this.pixelWidth);
      this.penIndex = this.builder.penIndex({ ...this.pen, width });
    }
    return this.penIndex;
  }

  private line(pen: number, x0: number, y0: number, x1: number, y1: number): void {
    if (!this.clip) return this.builder.add(Kind.line, pen, x0, y0, x1, y1);
    const parts = partsInside(this.clip, x0, y0, x1, y1);
    for (let i = 0; i < parts.length; i += 2) {
      const a = parts[i]!,
        b = parts[i + 1]!;
      if (a === b) continue;
      this.builder.add(Kind.line, pen, x0 + a * (x1 - x0), y0 + a * (y1 - y0), x0 + b * (x1 - x0), y0 + b * (y1 - y0));
    }
  }

  private lineTo(): void {
    const { record } = this;
    const x = record.int(8),
      y = record.int(12);
    const pen = this.stroke();
    // The thinnest pen leaves out the last pixel of a line, so that a line of length 0 is empty.
    const empty = x === this.currentX && y === this.currentY && this.pen?.width === 0;
    if (pen >= 0 && !empty) this.line(pen, this.x(this.currentX), this.y(this.currentY), this.x(x), this.y(y));
    this.currentX = x;
    this.currentY = y;
  }

  /** An arc of six numbers; positive angles are clockwise on the sheet. */
  private addArc(pen: number, arc: readonly [number, number, number, number, number, number]): void {
    const [x, y, radiusX, radiusY] = arc;
    const box = { left: x - radiusX, top: y - radiusY, right: x + radiusX, bottom: y + radiusY };
    if (this.isWhole(box)) return this.builder.add(Kind.arc, pen, ...arc);
    this.cutStroke(pen, (add) => flattenArc(arc, 0, cutTolerance, add));
  }

  private isWhole(box: Box): boolean {
    return !this.clip || contains(this.clip, box);
  }

  private cutStroke(pen: number, flatten: (add: (x: number, y: number) => void) => void): void {
    let last: Point | null = null;
    flatten((x, y) => {
      if (last) this.line(pen, last.x, last.y, x, y);
      last = { x, y };
    });
  }

  private drawCurves(points: Point[]): void {
    const pen = this.stroke();
    if (pen < 0) return;
    for (let i = 1; i + 3 <= points.length; i += 3) {
      const four = points.slice(i - 1, i + 3);
      const box = emptyBox();
      for (const point of four) addPoint(box, point.x, point.y);
      const numbers = four.flatMap((point) => [point.x, point.y]);
      if (this.isWhole(box)) this.builder.addCurve(pen, numbers);
      else this.cutStroke(pen, (add) => flattenCurve(numbers, 0, cutTolerance, add));
    }
  }

  /** The angles count as if y grew downward, whatever the map mode is. */
  private angleArc(): void {
    const { record } = this;
    const x = record.int(8),
      y = record.int(12),
      radius = record.uint(16),
      start = record.float(20);
    let sweep = record.float(24);
    if (!Number.isFinite(start) || !Number.isFinite(sweep)) return;
    // More than one full turn would only be repeated.
    if (Math.abs(sweep) > 360) sweep = Math.sign(sweep) * (360 + (Math.abs(sweep) % 360));
    const from = ((start % 360) * Math.PI) / 180,
      turn = (sweep * Math.PI) / 180;
    const sense = this.himetric ? 1 : -1,
      pen = this.stroke();
    if (pen >= 0) this.drawAngleArc(pen, { x, y }, radius, sense * from, sense * turn);
    this.currentX = x + radius * Math.cos(from + turn);
    this.currentY = y - radius * Math.sin(from + turn);
  }

  private drawAngleArc(pen: number, centre: Point, radius: number, start: number, sweep: number): void {
    const x = this.x(centre.x),
      y = this.y(centre.y),
      oneUnit = 1;
    const radiusX = radius * (this.himetric ? 1 : this.pixelWidth);
    const radiusY = radius * (this.himetric ? 1 : this.pixelHeight);
    const startX = x + radiusX * Math.cos(start),
      startY = y + radiusY * Math.sin(start);
    const fromX = this.x(this.currentX),
      fromY = this.y(this.currentY);
    // The line to the start is only there if the current place isn't the start, rounded.
    if (Math.hypot(startX - fromX, startY - fromY) > oneUnit) this.line(pen, fromX, fromY, startX, startY);
    // Whole circles are drawn once.
    const once = Math.max(-2 * Math.PI, Math.min(2 * Math.PI, sweep));
    if (radius > 0) this.addArc(pen, [x, y, radiusX, radiusY, start, once]);
  }

  private ellipseBox(): { x: number; y: number; radiusX: number; radiusY: number } {
    const a = this.place(8),
      b = this.place(16);
    return {
      x: (a.x + b.x) / 2,
      y: (a.y + b.y) / 2,
      radiusX: Math.abs(b.x - a.x) / 2,
      radiusY: Math.abs(b.y - a.y) / 2,
    };
  }

  private arc(): void {
    const { x, y, radiusX, radiusY } = this.ellipseBox();
    const angleTo = (to: Point): number => Math.atan2((to.y - y) * radiusX, (to.x - x) * radiusY);
    const start = angleTo(this.place(24));
    let sweep = angleTo(this.place(32)) - start;
    if (this.clockwise && sweep <= 0) sweep += 2 * Math.PI;
    if (!this.clockwise && sweep >= 0) sweep -= 2 * Math.PI;
    const pen = this.stroke();
    if (pen >= 0) this.addArc(pen, [x, y, radiusX, radiusY, start, sweep]);
  }

  private setPixel(): void {
    const { x, y } = this.place(8);
    const pen = this.builder.penIndex({ color: colorOf(this.record.int(16)), width: 0, dash: Dash.solid });
    if (this.isWhole({ left: x, top: y, right: x, bottom: y })) this.builder.add(Kind.pixel, pen, x, y);
  }

  // Filled shapes.

  private fill(points: Point[], winding: boolean): void {
    if (this.brush.hollow) return;
    const pen = this.builder.penIndex({ color: this.brush.color, width: 0, dash: Dash.solid });
    const add = (...corners: [number, number, number, number, number, number]): void =>
      this.builder.add(Kind.trapezoid, pen, ...corners);
    const box = emptyBox();
    for (const point of points) addPoint(box, point.x, point.y);
    if (!this.clip || contains(this.clip, box)) return fillPolygon(points, winding, add);
    for (let i = firstBelow(this.clip, box.top); i < this.clip.length && this.clip[i]!.top <= box.bottom; ++i) {
      const clip = this.clip[i]!;
      if (!overlaps(clip, box)) continue;
      fillPolygon(cutToBox(points, clip.left, clip.top, clip.right, clip.bottom), winding, add);
    }
  }

  private drawPolygon(points: Point[]): void {
    if (points.length < 2) return;
    this.fill(points, this.winding);
    const pen = this.stroke();
    if (pen < 0) return;
    points.forEach((from, i) => {
      const to = points[(i + 1) % points.length]!;
      this.line(pen, from.x, from.y, to.x, to.y);
    });
  }

  private ellipse(): void {
    const { x, y, radiusX, radiusY } = this.ellipseBox();
    const arc = [x, y, radiusX, radiusY, 0, 2 * Math.PI] as const;
    if (!this.brush.hollow) {
      const outline: Point[] = [];
      const tolerance = Math.max(0.5, Math.max(radiusX, radiusY) / 500);
      flattenArc(arc, 0, tolerance, (px, py) => outline.push({ x: px, y: py }));
      outline.pop();
      this.fill(outline, false);
    }
    const pen = this.stroke();
    if (pen >= 0) this.addArc(pen, arc);
  }

  /** A filled region is in logical units, a clip region in device units. */
  private fillRegion(): void {
    const { record } = this;
    const object = stockObjects.get(record.uint(28)) ?? this.objects.get(record.uint(28));
    const boxes = this.region(32, record.uint(24), (box) => ({
      left: this.x(box.left),
      top: this.y(box.top),
      right: this.x(box.right),
      bottom: this.y(box.bottom),
    }));
    if (!object || !("brush" in object) || object.brush.hollow) return;
    const pen = this.builder.penIndex({ color: object.brush.color, width: 0, dash: Dash.solid });
    const inside = this.clip
      ? combine(
          this.clip,
          boxes.sort((a, b) => a.top - b.top),
          1,
        )!
      : boxes;
    for (const box of inside) this.builder.add(Kind.box, pen, box.left, box.top, box.right, box.bottom);
  }

  // Text.

  private textOut(): void {
    const { record } = this;
    const count = record.uint(44),
      advancesOffset = record.uint(72);
    const text = record.text(record.uint(48), count);
    const { x, y } = this.place(36),
      unit = this.himetric ? 1 : this.pixelWidth;
    const escapement = (this.font.escapement * Math.PI) / 1800;
    this.builder.addText({
      after: this.builder.count,
      text,
      x,
      y,
      advances: advancesOffset === 0 ? null : this.advances(advancesOffset, count, unit),
      // Like that of AngleArc, the angle counts as if y grew downward.
      angle: this.himetric ? escapement : -escapement,
      font: this.scaledFont(unit),
      color: this.textColor,
      across: (this.align & 6) === 6 ? Across.centre : (this.align & 6) === 2 ? Across.right : Across.left,
      along: (this.align & 24) === 24 ? Along.baseline : (this.align & 24) === 8 ? Along.bottom : Along.top,
      clip: this.clip,
    });
  }

  private scaledFont(unit: number): SheetFont {
    const { family, height, width, weight, italic, underline, strikeOut } = this.font;
    return { family, height: height * unit, width: Math.abs(width) * unit, weight, italic, underline, strikeOut };
  }

  private advances(offset: number, count: number, unit: number): Float32Array {
    this.record.require(offset, count, 4);
    return Float32Array.from({ length: count }, (_, i) => this.record.int(offset + 4 * i) * unit);
  }
}

/** Reads the bytes of a .emf file. Throws BadMetafile if they don't start with the header of one. */
export function readMetafile(bytes: Uint8Array): Sheet {
  return new Player(new RecordReader(bytes)).play();
}
