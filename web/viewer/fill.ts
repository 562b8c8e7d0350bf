// Cuts filled polygons into trapezoids with level sides.
import type { Point } from "./sheet";

export type AddTrapezoid = (
  leftTop: number,
  top: number,
  rightTop: number,
  bottom: number,
  leftBottom: number,
  rightBottom: number,
) => void;

interface Side {
  top: Point;
  bottom: Point;
  /** 1 if the polygon runs downward here, otherwise -1. */
  sense: number;
}

/** Polygons of more points aren't cut where their sides cross. */
const mostCrossedSides = 400;

function sidesOf(points: readonly Point[]): Side[] {
  const sides: Side[] = [];
  points.forEach((from, i) => {
    const to = points[(i + 1) % points.length]!;
    if (from.y < to.y) sides.push({ top: from, bottom: to, sense: 1 });
    if (from.y > to.y) sides.push({ top: to, bottom: from, sense: -1 });
  });
  return sides;
}

function xAt(side: Side, y: number): number {
  const part = (y - side.top.y) / (side.bottom.y - side.top.y);
  return side.top.x + part * (side.bottom.x - side.top.x);
}

function addCrossings(sides: readonly Side[], levels: Set<number>): void {
  if (sides.length > mostCrossedSides) return;
  sides.forEach((a, i) => {
    for (const b of sides.slice(i + 1)) {
      const top = Math.max(a.top.y, b.top.y),
        bottom = Math.min(a.bottom.y, b.bottom.y);
      if (top >= bottom) continue;
      const above = xAt(a, top) - xAt(b, top),
        below = xAt(a, bottom) - xAt(b, bottom);
      if (above * below < 0) levels.add(top + ((bottom - top) * above) / (above - below));
    }
  });
}

/** Fills a closed polygon by the rule of even and odd, or of winding. */
export function fillPolygon(points: readonly Point[], winding: boolean, add: AddTrapezoid): void {
  const sides = sidesOf(points);
  const levelSet = new Set(points.map((point) => point.y));
  addCrossings(sides, levelSet);
  const levels = [...levelSet].sort((a, b) => a - b);
  for (let i = 0; i + 1 < levels.length; ++i) fillBand(sides, levels[i]!, levels[i + 1]!, winding, add);
}

function fillBand(sides: readonly Side[], top: number, bottom: number, winding: boolean, add: AddTrapezoid): void {
  const middle = (top + bottom) / 2;
  const crossed = sides
    .filter((side) => side.top.y <= top && side.bottom.y >= bottom)
    .sort((a, b) => xAt(a, middle) - xAt(b, middle));
  let turns = 0;
  crossed.forEach((side, i) => {
    turns += winding ? side.sense : 1;
    const next = crossed[i + 1];
    if (!next || (winding ? turns === 0 : turns % 2 === 0)) return;
    add(xAt(side, top), top, xAt(next, top), bottom, xAt(side, bottom), xAt(next, bottom));
  });
}

/** The part of a convex or other polygon within a box (Sutherland and Hodgman). */
export function cutToBox(points: readonly Point[], left: number, top: number, right: number, bottom: number): Point[] {
  const byLeft = cut(points, (p) => p.x - left);
  const byRight = cut(byLeft, (p) => right - p.x);
  const byTop = cut(byRight, (p) => p.y - top);
  return cut(byTop, (p) => bottom - p.y);
}

function cut(points: readonly Point[], inside: (point: Point) => number): Point[] {
  const kept: Point[] = [];
  points.forEach((to, i) => {
    const from = points[(i + points.length - 1) % points.length]!;
    const a = inside(from),
      b = inside(to);
    if (a * b < 0) {
      const part = a / (a - b);
      kept.push({ x: from.x + part * (to.x - from.x), y: from.y + part * (to.y - from.y) });
    }
    if (b >= 0) kept.push(to);
  });
  return kept;
}
