// Compares two sheets stroke by stroke. Colours and pens don't count.
import { boundsOf, emptyBox, heightOf, Kind, perCurve, perItem, widthOf } from "./sheet";
import type { Box, Sheet } from "./sheet";

export const enum Only {
  both,
  first,
  second,
}

export interface Comparison {
  /** All of the first sheet, and what only the second one has. */
  sheet: Sheet;
  /** One for each item and text of the sheet: an Only. */
  items: Uint8Array;
  texts: Uint8Array;
  onlyFirst: number;
  onlySecond: number;
  both: number;
  /** Places that differ, from top to bottom. */
  places: Box[];
}

/** Two hashes of 32 bits are joined to one number of 52. */
class Hash {
  private a = 0x811c9dc5;
  private b = 0x1b873593;

  add(value: number): void {
    const whole = Math.round(value * 4) | 0;
    this.a = Math.imul(this.a ^ whole, 0x01000193) ^ (this.a >>> 15);
    this.b = Math.imul(this.b ^ ((whole << 7) | (whole >>> 25)), 0xcc9e2d51) ^ (this.b >>> 13);
  }

  value(): number {
    return (this.a >>> 0) * 0x100000 + ((this.b >>> 0) & 0xfffff);
  }
}

function itemHash(sheet: Sheet, item: number): number {
  const { data, curves } = sheet,
    first = item * perItem,
    kind = sheet.kinds[item]!,
    hash = new Hash();
  hash.add(kind);
  if (kind === Kind.curve) {
    for (let i = 0; i < perCurve; ++i) hash.add(curves[data[first]! + i]!);
    return hash.value();
  }
  // A line is the same in both directions.
  const x0 = data[first]!,
    y0 = data[first + 1]!,
    x1 = data[first + 2]!,
    y1 = data[first + 3]!;
  const turned = kind === Kind.line && (x0 > x1 || (x0 === x1 && y0 > y1));
  for (const value of turned ? [x1, y1, x0, y0] : [x0, y0, x1, y1]) hash.add(value);
  // Angles are small numbers.
  const factor = kind === Kind.arc ? 1000 : 1;
  hash.add(data[first + 4]! * factor);
  hash.add(data[first + 5]! * factor);
  return hash.value();
}

function textHash(sheet: Sheet, index: number): number {
  const text = sheet.texts[index]!,
    hash = new Hash();
  for (const value of [text.x, text.y, text.angle * 1000, text.font.height, text.font.width]) hash.add(value);
  for (let i = 0; i < text.text.length; ++i) hash.add(text.text.charCodeAt(i));
  return hash.value();
}

/** Marks what each list has for itself; as many of a kind are alike as both have. */
function match(first: number[], second: number[]): { first: Uint8Array; second: number[] } {
  const left = new Map<number, number>();
  for (const hash of second) left.set(hash, (left.get(hash) ?? 0) + 1);
  const marks = new Uint8Array(first.length);
  first.forEach((hash, i) => {
    const count = left.get(hash) ?? 0;
    if (count > 0) left.set(hash, count - 1);
    else marks[i] = Only.first;
  });
  const rest = second.flatMap((hash, i) => {
    const count = left.get(hash) ?? 0;
    if (count > 0) left.set(hash, count - 1);
    return count > 0 ? [i] : [];
  });
  return { first: marks, second: rest };
}

function hashes(count: number, hash: (index: number) => number): number[] {
  return Array.from({ length: count }, (_, i) => hash(i));
}

export function compareSheets(a: Sheet, b: Sheet): Comparison {
  const items = match(
    hashes(a.count, (i) => itemHash(a, i)),
    hashes(b.count, (i) => itemHash(b, i)),
  );
  const texts = match(
    hashes(a.texts.length, (i) => textHash(a, i)),
    hashes(b.texts.length, (i) => textHash(b, i)),
  );
  const sheet = merged(a, b, items.second, texts.second);
  const marks = concatenate(items.first, items.second.length),
    textMarks = concatenate(texts.first, texts.second.length);
  const countOf = (only: Only): number =>
    marks.reduce((sum, mark) => sum + Number(mark === only), 0) +
    textMarks.reduce((sum, mark) => sum + Number(mark === only), 0);
  return {
    sheet,
    items: marks,
    texts: textMarks,
    onlyFirst: countOf(Only.first),
    onlySecond: countOf(Only.second),
    both: countOf(Only.both),
    places: placesOf(sheet, marks, textMarks),
  };
}

function concatenate(marks: Uint8Array, more: number): Uint8Array {
  const all = new Uint8Array(marks.length + more).fill(Only.second);
  all.set(marks);
  return all;
}

function merged(a: Sheet, b: Sheet, items: number[], texts: number[]): Sheet {
  const count = a.count + items.length;
  const kinds = new Uint8Array(count),
    pens = new Uint32Array(count),
    data = new Float32Array(count * perItem);
  const curves = new Float64Array(a.curves.length + b.curves.length);
  kinds.set(a.kinds);
  pens.set(a.pens);
  data.set(a.data);
  curves.set(a.curves);
  curves.set(b.curves, a.curves.length);
  items.forEach((item, i) => {
    const to = a.count + i;
    kinds[to] = b.kinds[item]!;
    pens[to] = b.pens[item]! + a.penTable.length;
    data.set(b.data.subarray(item * perItem, (item + 1) * perItem), to * perItem);
    if (kinds[to] === Kind.curve) data[to * perItem]! += a.curves.length;
  });
  const union = (p: Box, q: Box): Box => ({
    left: Math.min(p.left, q.left),
    top: Math.min(p.top, q.top),
    right: Math.max(p.right, q.right),
    bottom: Math.max(p.bottom, q.bottom),
  });
  return {
    frame: union(a.frame, b.frame),
    bounds: union(a.bounds, b.bounds),
    count,
    kinds,
    pens,
    data,
    curves,
    penTable: [...a.penTable, ...b.penTable],
    texts: [...a.texts, ...texts.map((index) => ({ ...b.texts[index]!, after: count }))],
  };
}

/** Joins what differs to places: cells of a grid that touch each other. */
function placesOf(sheet: Sheet, items: Uint8Array, texts: Uint8Array): Box[] {
  const cells = 40,
    cell = Math.max(1, Math.max(widthOf(sheet.frame), heightOf(sheet.frame)) / cells);
  const boxes = new Map<string, Box>(),
    box = emptyBox();
  const add = (at: Box): void => {
    const key = `${Math.floor((at.left + at.right) / 2 / cell)} ${Math.floor((at.top + at.bottom) / 2 / cell)}`;
    const place = boxes.get(key);
    if (!place) boxes.set(key, { ...at });
    else grow(place, at);
  };
  items.forEach((only, item) => {
    if (only !== Only.both) add(boundsOf(sheet, item, box));
  });
  texts.forEach((only, index) => {
    const { x, y } = sheet.texts[index]!;
    if (only !== Only.both) add({ left: x, top: y, right: x, bottom: y });
  });
  return joined([...boxes.values()], cell / 2).sort((a, b) => a.top - b.top || a.left - b.left);
}

function grow(place: Box, box: Box): void {
  place.left = Math.min(place.left, box.left);
  place.top = Math.min(place.top, box.top);
  place.right = Math.max(place.right, box.right);
  place.bottom = Math.max(place.bottom, box.bottom);
}

function joined(boxes: Box[], gap: number): Box[] {
  const places: Box[] = [];
  for (const box of boxes) {
    const near = places.filter(
      (place) =>
        place.left - gap <= box.right &&
        place.right + gap >= box.left &&
        place.top - gap <= box.bottom &&
        place.bottom + gap >= box.top,
    );
    const place = near.shift();
    if (!place) {
      places.push(box);
      continue;
    }
    grow(place, box);
    for (const other of near) {
      grow(place, other);
      places.splice(places.indexOf(other), 1);
    }
  }
  return places;
}
