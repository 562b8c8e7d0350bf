// The records that a view shows.
import type { Instances } from "./instances";
import { overlaps } from "./sheet";
import type { Viewport } from "./viewport";

/** Records that follow each other. */
export interface Run {
  first: number;
  count: number;
}

export function runsIn(instances: Instances | null, view: Viewport): Run[] {
  const runs: Run[] = [],
    box = view.box,
    margin = 3 / view.scale;
  const grown = {
    left: box.left - margin,
    top: box.top - margin,
    right: box.right + margin,
    bottom: box.bottom + margin,
  };
  let last: Run | null = null;
  for (const { first, count, bounds } of instances?.chunks ?? []) {
    if (!overlaps(bounds, grown)) continue;
    if (last && last.first + last.count === first) last.count += count;
    else runs.push((last = { first, count }));
  }
  return runs;
}

/** Takes so many records from the start of the runs. */
export function takeRecords(runs: Run[], most: number): Run[] {
  const taken: Run[] = [];
  for (let left = most; left > 0 && runs.length > 0;) {
    const run = runs[0]!,
      count = Math.min(left, run.count);
    taken.push({ first: run.first, count });
    run.first += count;
    run.count -= count;
    left -= count;
    if (run.count === 0) runs.shift();
  }
  return taken;
}

export function countOf(runs: readonly Run[]): number {
  return runs.reduce((sum, run) => sum + run.count, 0);
}
