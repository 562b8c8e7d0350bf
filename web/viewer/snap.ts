// The end, crossing or centre of strokes that is nearest to a place.
import type { Point } from "./sheet";
import type { Segments } from "./segments";

export type SnapKind = "end" | "crossing" | "centre";

export interface Snap {
  point: Point;
  kind: SnapKind;
}

/** Lines that are looked at around the pointer. */
const mostLines = 400;

export function crossingOf(data: ArrayLike<number>, a: number, b: number): Point | null {
  const ax = data[4 * a]!,
    ay = data[4 * a + 1]!,
    bx = data[4 * b]!,
    by = data[4 * b + 1]!;
  const ux = data[4 * a + 2]! - ax,
    uy = data[4 * a + 3]! - ay,
    vx = data[4 * b + 2]! - bx,
    vy = data[4 * b + 3]! - by;
  const turn = ux * vy - uy * vx;
  if (Math.abs(turn) < 1e-9 * (Math.hypot(ux, uy) * Math.hypot(vx, vy) || 1)) return null;
  const s = ((bx - ax) * vy - (by - ay) * vx) / turn,
    r = ((bx - ax) * uy - (by - ay) * ux) / turn,
    slack = 1e-6;
  if (s < -slack || s > 1 + slack || r < -slack || r > 1 + slack) return null;
  return { x: ax + s * ux, y: ay + s * uy };
}

/** @param radius  how far a mark may be away, on the sheet */
export function findSnap(segments: Segments, at: Point, radius: number): Snap | null {
  const box = { left: at.x - radius, top: at.y - radius, right: at.x + radius, bottom: at.y + radius };
  const lines = segments.near(box, mostLines);
  let best: Snap | null = null,
    nearest = radius;
  // A later kind must be nearer by a bit: an end is preferred to a crossing at the same place.
  const consider = (point: Point, kind: SnapKind, handicap: number): void => {
    const distance = Math.hypot(point.x - at.x, point.y - at.y) + handicap * radius;
    if (distance >= nearest) return;
    nearest = distance;
    best = { point, kind };
  };
  for (const line of lines) {
    const { ends, centres } = segments.marks(line);
    for (const end of ends) consider(end, "end", 0);
    for (const centre of centres) consider(centre, "centre", 0.02);
  }
  lines.forEach((a, i) => {
    for (let k = i + 1; k < lines.length; ++k) {
      const b = lines[k]!;
      if (segments.items[a] === segments.items[b]) continue;
      const point = crossingOf(segments.data, a, b);
      if (point) consider(point, "crossing", 0.05);
    }
  });
  return best ?? centreNear(segments, at, radius);
}

/** The centre of a circle is far from its stroke: it is found while the pointer is near the centre. */
function centreNear(segments: Segments, at: Point, radius: number): Snap | null {
  for (const centre of segments.centres()) {
    if (Math.hypot(centre.x - at.x, centre.y - at.y) < radius) return { point: centre, kind: "centre" };
  }
  return null;
}
