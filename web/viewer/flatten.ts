// Curves as short lines.
import { Kind, perItem, pointOnArc } from "./sheet";
import type { Sheet } from "./sheet";

export type AddPoint = (x: number, y: number) => void;

const mostPieces = 8192;

/** The number of pieces of an arc that differ from it by at most the tolerance. */
export function arcPieces(radius: number, sweep: number, tolerance: number): number {
  if (!(radius > 0)) return 1;
  const step = 2 * Math.acos(Math.max(0, 1 - tolerance / radius));
  return Math.min(mostPieces, Math.max(4 * Math.abs(sweep) > Math.PI ? 4 : 1, Math.ceil(Math.abs(sweep) / step)));
}

/** Gives the points of an arc of six numbers, both ends included. */
export function flattenArc(data: ArrayLike<number>, first: number, tolerance: number, add: AddPoint): void {
  const start = data[first + 4]!,
    sweep = data[first + 5]!;
  const pieces = arcPieces(Math.max(data[first + 2]!, data[first + 3]!), sweep, tolerance);
  for (let i = 0; i <= pieces; ++i) {
    const point = pointOnArc(data, first, start + (sweep * i) / pieces);
    add(point.x, point.y);
  }
}

/** Gives the points of a Bezier curve of eight numbers, both ends included. */
export function flattenCurve(points: ArrayLike<number>, first: number, tolerance: number, add: AddPoint): void {
  const at = (i: number): number => points[first + i]!;
  // The second differences bound the distance between a curve and its chords.
  const bend = Math.max(
    Math.hypot(at(0) - 2 * at(2) + at(4), at(1) - 2 * at(3) + at(5)),
    Math.hypot(at(2) - 2 * at(4) + at(6), at(3) - 2 * at(5) + at(7)),
  );
  const pieces = Math.min(mostPieces, Math.max(1, Math.ceil(Math.sqrt((0.75 * bend) / tolerance))));
  for (let i = 0; i <= pieces; ++i) {
    const t = i / pieces,
      u = 1 - t;
    const a = u * u * u,
      b = 3 * u * u * t,
      c = 3 * u * t * t,
      d = t * t * t;
    add(a * at(0) + b * at(2) + c * at(4) + d * at(6), a * at(1) + b * at(3) + c * at(5) + d * at(7));
  }
}

/** Gives the points of a stroke of any kind. */
export function flattenItem(sheet: Sheet, item: number, tolerance: number, add: AddPoint): void {
  const { data } = sheet;
  const first = item * perItem;
  switch (sheet.kinds[item]) {
    case Kind.arc:
      return flattenArc(data, first, tolerance, add);
    case Kind.curve:
      return flattenCurve(sheet.curves, data[first]!, tolerance, add);
    case Kind.line:
      add(data[first]!, data[first + 1]!);
      add(data[first + 2]!, data[first + 3]!);
  }
}
