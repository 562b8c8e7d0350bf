// Measures distances, angles and areas by points, which snap to marks of the strokes.
import type { Point } from "./sheet";
import { findSnap } from "./snap";
import type { Snap } from "./snap";
import type { Segments } from "./segments";
import type { Tool } from "./stage";
import { numberText, t } from "./texts";
import type { TextKey } from "./texts";
import type { Viewport } from "./viewport";

export type MeasureKind = "distance" | "angle" | "area";

export interface Measured {
  kind: MeasureKind;
  points: Point[];
}

/** What the tool needs to know about the drawing. */
export interface MeasureHost {
  /** Null if points don't snap. */
  segments(): Segments | null;
  viewport(): Viewport;
  /** Units of the drawing for a hundredth of a millimetre; 0 if unknown. */
  units(): number;
  done(measured: Measured): void;
  /** A point was set, or the pointer has moved. */
  changed(text: string): void;
  toggleSnap(): void;
}

const hints: { [kind in MeasureKind]: TextKey } = {
  distance: "measureDistance",
  angle: "measureAngle",
  area: "measureArea",
};

/** The most that a snap may be away from the pointer, in pixels. */
const snapReach = 12;

export function lengthOf(points: readonly Point[], closed: boolean): number {
  let length = 0;
  for (let i = closed ? 0 : 1; i < points.length; ++i) {
    const from = points[(i + points.length - 1) % points.length]!,
      to = points[i]!;
    length += Math.hypot(to.x - from.x, to.y - from.y);
  }
  return length;
}

export function areaOf(points: readonly Point[]): number {
  let twice = 0;
  points.forEach((from, i) => {
    const to = points[(i + 1) % points.length]!;
    twice += from.x * to.y - to.x * from.y;
  });
  return Math.abs(twice) / 2;
}

/** The angle at the first point between the two others, in degrees. */
export function angleOf([corner, a, b]: readonly Point[]): number {
  if (!corner || !a || !b) return 0;
  const turn = Math.atan2(a.y - corner.y, a.x - corner.x) - Math.atan2(b.y - corner.y, b.x - corner.x);
  const degrees = Math.abs((turn * 180) / Math.PI) % 360;
  return degrees > 180 ? 360 - degrees : degrees;
}

/** The numbers of a measurement: in units of the drawing if they are known, otherwise in millimetres. */
export function measuredText(measured: Measured, units: number): string {
  const { kind, points } = measured,
    factor = units > 0 ? units : 0.01;
  const unit = units > 0 ? "" : " mm";
  if (kind === "angle") return `${numberText(angleOf(points), 2)}°`;
  if (kind === "distance") return `${numberText(lengthOf(points, false) * factor, 3)}${unit}`;
  return `${numberText(areaOf(points) * factor * factor, 3)}${unit}${units > 0 ? "" : "²"}`;
}

export class MeasureTool implements Tool {
  readonly pans = true;
  private points: Point[] = [];
  private pointer: Point | null = null;
  private snapped: Snap | null = null;

  constructor(
    readonly kind: MeasureKind,
    private readonly host: MeasureHost,
  ) {}

  get hint(): string {
    return t(hints[this.kind]);
  }

  move(at: Point): void {
    const segments = this.host.segments();
    this.snapped = segments ? findSnap(segments, at, snapReach / this.host.viewport().scale) : null;
    this.pointer = this.snapped?.point ?? at;
    this.host.changed(this.liveText());
  }

  press(): void {}

  release(at: Point, dragged: boolean): void {
    if (dragged) return;
    this.move(at);
    this.points.push(this.pointer!);
    const needed = this.kind === "distance" ? 2 : this.kind === "angle" ? 3 : Infinity;
    if (this.points.length >= needed) this.finish();
  }

  /** The second click of a double click has set its point twice. */
  doubleClick(): void {
    if (this.kind !== "area") return;
    this.points.pop();
    this.finish();
  }

  key(key: string): boolean {
    if (key === "Backspace" && this.points.length > 0) {
      this.points.pop();
      return true;
    }
    if (key === "Escape" && this.points.length > 0) {
      this.points = [];
      return true;
    }
    if (key.toLowerCase() === "c" && this.kind === "area" && this.points.length > 2) {
      this.finish();
      return true;
    }
    if (key.toLowerCase() === "n") {
      this.host.toggleSnap();
      return true;
    }
    return false;
  }

  paint(context: CanvasRenderingContext2D, view: Viewport): void {
    const points = this.pointer && this.points.length > 0 ? [...this.points, this.pointer] : this.points;
    if (points.length > 0) paintMeasured(context, view, { kind: this.kind, points }, this.liveText(), true);
    if (this.snapped) paintSnap(context, view, this.snapped);
  }

  private liveText(): string {
    const points = this.pointer ? [...this.points, this.pointer] : this.points;
    const enough = this.kind === "distance" ? 2 : 3;
    return points.length >= enough && this.points.length > 0
      ? measuredText({ kind: this.kind, points }, this.host.units())
      : "";
  }

  private finish(): void {
    const points = this.points;
    this.points = [];
    if (points.length >= (this.kind === "distance" ? 2 : 3)) this.host.done({ kind: this.kind, points });
  }
}

const snapTexts: { [kind in Snap["kind"]]: TextKey } = {
  end: "snapEnd",
  crossing: "snapCrossing",
  centre: "snapCentre",
};

function paintSnap(context: CanvasRenderingContext2D, view: Viewport, snap: Snap): void {
  const { x, y } = view.toScreen(snap.point),
    size = 6;
  context.strokeStyle = "#d0006f";
  context.lineWidth = 2;
  context.beginPath();
  if (snap.kind === "end") context.rect(x - size, y - size, 2 * size, 2 * size);
  else if (snap.kind === "centre") context.arc(x, y, size, 0, 2 * Math.PI);
  else {
    context.moveTo(x - size, y - size);
    context.lineTo(x + size, y + size);
    context.moveTo(x + size, y - size);
    context.lineTo(x - size, y + size);
  }
  context.stroke();
  label(context, t(snapTexts[snap.kind]), x + 12, y + 20);
}

function label(context: CanvasRenderingContext2D, text: string, x: number, y: number): void {
  context.font = "600 12px system-ui, sans-serif";
  const width = context.measureText(text).width;
  context.fillStyle = "rgba(20, 24, 32, .88)";
  context.beginPath();
  context.roundRect(x - 5, y - 13, width + 10, 18, 4);
  context.fill();
  context.fillStyle = "#fff";
  context.fillText(text, x, y);
}

export function paintMeasured(
  context: CanvasRenderingContext2D,
  view: Viewport,
  measured: Measured,
  text: string,
  live: boolean,
): void {
  const { kind } = measured;
  const points = measured.points.map((point) => view.toScreen(point));
  const path = kind === "angle" && points.length > 2 ? [points[1]!, points[0]!, points[2]!] : points;
  context.strokeStyle = context.fillStyle = "#d0006f";
  context.lineWidth = 1.5;
  context.setLineDash(live ? [5, 4] : []);
  context.beginPath();
  for (const { x, y } of path) context.lineTo(x, y);
  if (kind === "area" && path.length > 2) {
    context.closePath();
    context.globalAlpha = 0.12;
    context.fill();
    context.globalAlpha = 1;
  }
  context.stroke();
  context.setLineDash([]);
  for (const { x, y } of points) {
    context.beginPath();
    context.arc(x, y, 3, 0, 2 * Math.PI);
    context.fill();
  }
  if (text === "") return;
  const middle =
    kind === "angle"
      ? points[0]!
      : {
          x: points.reduce((sum, point) => sum + point.x, 0) / points.length,
          y: points.reduce((sum, point) => sum + point.y, 0) / points.length,
        };
  label(context, text, middle.x + 10, middle.y - 8);
}
