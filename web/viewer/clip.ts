// The clip region of a metafile: boxes from top to bottom, which don't overlap.
import type { Box } from "./sheet";

/** The first box that reaches as far down as y. */
export function firstBelow(boxes: readonly Box[], y: number): number {
  let low = 0,
    high = boxes.length;
  while (low < high) {
    const middle = (low + high) >> 1;
    if (boxes[middle]!.bottom < y) low = middle + 1;
    else high = middle;
  }
  return low;
}

/** The parts of a line from 0 to 1 that are inside the boxes, merged: pairs of start and end. */
export function partsInside(boxes: readonly Box[], x0: number, y0: number, x1: number, y1: number): number[] {
  const parts: [number, number][] = [],
    bottom = Math.max(y0, y1);
  for (let i = firstBelow(boxes, Math.min(y0, y1)); i < boxes.length && boxes[i]!.top <= bottom; ++i) {
    const part = partInBox(boxes[i]!, x0, y0, x1, y1);
    if (part) parts.push(part);
  }
  parts.sort((a, b) => a[0] - b[0]);
  return merge(parts, 1e-6);
}

function merge(parts: readonly [number, number][], gap: number): number[] {
  const merged: number[] = [];
  for (const [start, end] of parts) {
    const last = merged.length - 1;
    if (last > 0 && start <= merged[last]! + gap) merged[last] = Math.max(merged[last]!, end);
    else merged.push(start, end);
  }
  return merged;
}

function partInBox(box: Box, x0: number, y0: number, x1: number, y1: number): [number, number] | null {
  let start = 0,
    end = 1;
  // Cuts at one side: the line is inside while distance + part * slope >= 0.
  const keep = (distance: number, slope: number): boolean => {
    if (slope === 0) return distance >= 0;
    const part = -distance / slope;
    if (slope > 0) start = Math.max(start, part);
    else end = Math.min(end, part);
    return start <= end;
  };
  const inside =
    keep(x0 - box.left, x1 - x0) &&
    keep(box.right - x0, x0 - x1) &&
    keep(y0 - box.top, y1 - y0) &&
    keep(box.bottom - y0, y0 - y1);
  return inside ? [start, end] : null;
}

/** Whether the region has all of a box. */
export function contains(boxes: readonly Box[], box: Box): boolean {
  let reached = box.top;
  for (let i = firstBelow(boxes, box.top); i < boxes.length; ++i) {
    const each = boxes[i]!;
    if (each.bottom <= reached || each.left > box.left || each.right < box.right) continue;
    if (each.top > reached) return false;
    reached = each.bottom;
    if (reached >= box.bottom) return true;
  }
  return false;
}

const enum Mode {
  intersect = 1,
  unite = 2,
  exclusive = 3,
  subtract = 4,
  copy = 5,
}

/** The region after a call of ExtSelectClipRgn; null is everything. */
export function combine(current: Box[] | null, boxes: Box[], mode: number): Box[] | null {
  if (current === null && mode === Mode.intersect) return boxes;
  const everything: Box = { left: -1e9, top: -1e9, right: 1e9, bottom: 1e9 };
  const old = current ?? [everything];
  switch (mode) {
    case Mode.intersect:
      return byBands(old, boxes, (a, b) => a && b);
    case Mode.unite:
      return byBands(old, boxes, (a, b) => a || b);
    case Mode.exclusive:
      return byBands(old, boxes, (a, b) => a !== b);
    case Mode.subtract:
      return byBands(old, boxes, (a, b) => a && !b);
    case Mode.copy:
      return boxes;
    default:
      return current;
  }
}

/** Gives the boxes that a band meets, band by band from top to bottom. */
class Bands {
  private readonly sorted: Box[];
  private next = 0;
  private active: Box[] = [];

  constructor(boxes: readonly Box[]) {
    this.sorted = [...boxes].sort((a, b) => a.top - b.top);
  }

  at(top: number): Box[] {
    this.active = this.active.filter((box) => box.bottom > top);
    while (this.next < this.sorted.length && this.sorted[this.next]!.top <= top) {
      const box = this.sorted[this.next++]!;
      if (box.bottom > top) this.active.push(box);
    }
    return this.active;
  }
}

function byBands(a: readonly Box[], b: readonly Box[], keep: (a: boolean, b: boolean) => boolean): Box[] {
  const levels = [...new Set([...a, ...b].flatMap((box) => [box.top, box.bottom]))].sort((p, q) => p - q);
  const result: Box[] = [],
    first = new Bands(a),
    second = new Bands(b);
  for (let i = 0; i + 1 < levels.length; ++i) {
    const top = levels[i]!,
      bottom = levels[i + 1]!,
      rowA = first.at(top),
      rowB = second.at(top);
    const edges = [...new Set([...rowA, ...rowB].flatMap((box) => [box.left, box.right]))].sort((p, q) => p - q);
    for (let k = 0; k + 1 < edges.length; ++k) {
      const left = edges[k]!,
        right = edges[k + 1]!;
      const covers = (box: Box): boolean => box.left <= left && box.right >= right;
      if (!keep(rowA.some(covers), rowB.some(covers))) continue;
      const last = result[result.length - 1];
      if (last && last.top === top && last.right === left) last.right = right;
      else result.push({ left, top, right, bottom });
    }
  }
  return result;
}
