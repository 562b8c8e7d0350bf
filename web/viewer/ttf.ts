// Reads what the page needs of a TrueType font: measures, glyphs of characters, and a smaller font for a PDF file.

interface Table {
  offset: number;
  length: number;
}

export class TrueType {
  private readonly view: DataView;
  private readonly tables = new Map<string, Table>();
  readonly unitsPerEm: number;
  readonly glyphCount: number;
  private readonly longOffsets: boolean;
  private readonly widthCount: number;
  private readonly cmap: number;
  private readonly cmapFormat: number;

  constructor(readonly bytes: Uint8Array) {
    this.view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
    const count = this.view.getUint16(4);
    for (let i = 0; i < count; ++i) {
      const at = 12 + 16 * i;
      const tag = String.fromCharCode(...bytes.subarray(at, at + 4));
      this.tables.set(tag, { offset: this.view.getUint32(at + 8), length: this.view.getUint32(at + 12) });
    }
    this.unitsPerEm = this.view.getUint16(this.at("head") + 18);
    this.longOffsets = this.view.getInt16(this.at("head") + 50) === 1;
    this.glyphCount = this.view.getUint16(this.at("maxp") + 4);
    this.widthCount = this.view.getUint16(this.at("hhea") + 34);
    [this.cmap, this.cmapFormat] = this.findCmap();
  }

  private at(tag: string): number {
    const table = this.tables.get(tag);
    if (!table) throw new Error(`the font has no table ${tag}`);
    return table.offset;
  }

  private em(value: number): number {
    return value / this.unitsPerEm;
  }

  /** Measures in parts of the em; those of the system's cell. */
  measures(): {
    ascent: number;
    descent: number;
    averageWidth: number;
    underline: number;
    thickness: number;
    strikeOut: number;
  } {
    const { view } = this,
      os2 = this.at("OS/2"),
      post = this.at("post");
    return {
      ascent: this.em(view.getUint16(os2 + 74)),
      descent: this.em(view.getUint16(os2 + 76)),
      averageWidth: this.em(view.getInt16(os2 + 2)),
      strikeOut: this.em(view.getInt16(os2 + 28)),
      underline: -this.em(view.getInt16(post + 8)),
      thickness: this.em(view.getInt16(post + 10)),
    };
  }

  /** Left, bottom, right and top of all glyphs, in units of the font. */
  box(): [number, number, number, number] {
    const head = this.at("head");
    const at = (offset: number): number => this.view.getInt16(head + offset);
    return [at(36), at(38), at(40), at(42)];
  }

  private findCmap(): [number, number] {
    const { view } = this,
      start = this.at("cmap"),
      count = view.getUint16(start + 2);
    let best: [number, number] = [0, 0];
    for (let i = 0; i < count; ++i) {
      const platform = view.getUint16(start + 4 + 8 * i);
      const offset = start + view.getUint32(start + 8 + 8 * i),
        format = view.getUint16(offset);
      if ((platform === 3 || platform === 0) && (format === 12 || (format === 4 && best[1] !== 12)))
        best = [offset, format];
    }
    return best;
  }

  glyphOf(codePoint: number): number {
    if (this.cmapFormat === 12) return this.glyphOf12(codePoint);
    return this.cmapFormat === 4 && codePoint <= 0xffff ? this.glyphOf4(codePoint) : 0;
  }

  private glyphOf12(codePoint: number): number {
    const { view, cmap } = this;
    let low = 0,
      high = view.getUint32(cmap + 12) - 1;
    while (low <= high) {
      const middle = (low + high) >> 1,
        at = cmap + 16 + 12 * middle;
      if (codePoint < view.getUint32(at)) high = middle - 1;
      else if (codePoint > view.getUint32(at + 4)) low = middle + 1;
      else return view.getUint32(at + 8) + codePoint - view.getUint32(at);
    }
    return 0;
  }

  private glyphOf4(codePoint: number): number {
    const { view, cmap } = this,
      doubled = view.getUint16(cmap + 6);
    const ends = cmap + 14,
      starts = ends + doubled + 2,
      deltas = starts + doubled,
      ranges = deltas + doubled;
    for (let i = 0; i < doubled; i += 2) {
      if (codePoint > view.getUint16(ends + i)) continue;
      const start = view.getUint16(starts + i);
      if (codePoint < start) return 0;
      const range = view.getUint16(ranges + i),
        delta = view.getUint16(deltas + i);
      if (range === 0) return (codePoint + delta) & 0xffff;
      const glyph = view.getUint16(ranges + i + range + 2 * (codePoint - start));
      return glyph === 0 ? 0 : (glyph + delta) & 0xffff;
    }
    return 0;
  }

  /** In parts of the em. */
  advanceOf(glyph: number): number {
    const index = Math.min(glyph, this.widthCount - 1);
    return this.em(this.view.getUint16(this.at("hmtx") + 4 * index));
  }

  private glyphRange(glyph: number): [number, number] {
    const { view } = this,
      loca = this.at("loca"),
      glyf = this.at("glyf");
    const offset = (i: number): number =>
      this.longOffsets ? view.getUint32(loca + 4 * i) : 2 * view.getUint16(loca + 2 * i);
    return [glyf + offset(glyph), glyf + offset(glyph + 1)];
  }

  /** Adds the glyphs of which a glyph is composed. */
  private addParts(glyph: number, used: Set<number>): void {
    if (used.has(glyph) || glyph >= this.glyphCount) return;
    used.add(glyph);
    const [start, end] = this.glyphRange(glyph);
    if (end - start < 10 || this.view.getInt16(start) >= 0) return;
    const wordArguments = 1,
      scale = 8,
      more = 32,
      twoScales = 64,
      matrix = 128;
    for (let at = start + 10, flags = more; (flags & more) !== 0 && at + 4 <= end;) {
      flags = this.view.getUint16(at);
      this.addParts(this.view.getUint16(at + 2), used);
      at += 4 + ((flags & wordArguments) !== 0 ? 4 : 2);
      at += (flags & scale) !== 0 ? 2 : (flags & twoScales) !== 0 ? 4 : (flags & matrix) !== 0 ? 8 : 0;
    }
  }

  /** A font with the outlines of these glyphs alone. Glyphs keep their numbers. */
  subset(glyphs: Iterable<number>): Uint8Array {
    const used = new Set<number>();
    this.addParts(0, used);
    for (const glyph of glyphs) this.addParts(glyph, used);
    const loca = new DataView(new ArrayBuffer(4 * (this.glyphCount + 1)));
    const parts: Uint8Array[] = [];
    let length = 0;
    for (let glyph = 0; glyph < this.glyphCount; ++glyph) {
      loca.setUint32(4 * glyph, length);
      if (!used.has(glyph)) continue;
      const [start, end] = this.glyphRange(glyph),
        padded = new Uint8Array((end - start + 3) & ~3);
      padded.set(this.bytes.subarray(start, end));
      parts.push(padded);
      length += padded.length;
    }
    loca.setUint32(4 * this.glyphCount, length);
    const copy = (tag: string): Uint8Array => {
      const table = this.tables.get(tag);
      return table ? this.bytes.slice(table.offset, table.offset + table.length) : new Uint8Array(0);
    };
    const head = copy("head");
    new DataView(head.buffer).setInt16(50, 1);
    const tables: [string, Uint8Array][] = [
      ["cvt ", copy("cvt ")],
      ["fpgm", copy("fpgm")],
      ["glyf", join(parts)],
      ["head", head],
      ["hhea", copy("hhea")],
      ["hmtx", copy("hmtx")],
      ["loca", new Uint8Array(loca.buffer)],
      ["maxp", copy("maxp")],
      ["prep", copy("prep")],
    ];
    return fontFile(tables.filter(([, bytes]) => bytes.length > 0));
  }
}

export function join(parts: readonly Uint8Array[]): Uint8Array {
  const joined = new Uint8Array(parts.reduce((sum, part) => sum + part.length, 0));
  let at = 0;
  for (const part of parts) {
    joined.set(part, at);
    at += part.length;
  }
  return joined;
}

function checksum(bytes: Uint8Array): number {
  let sum = 0;
  for (let i = 0; i < bytes.length; i += 4) {
    sum += ((bytes[i]! << 24) | ((bytes[i + 1] ?? 0) << 16) | ((bytes[i + 2] ?? 0) << 8) | (bytes[i + 3] ?? 0)) >>> 0;
  }
  return sum >>> 0;
}

function fontFile(tables: readonly [string, Uint8Array][]): Uint8Array {
  const directory = new DataView(new ArrayBuffer(12 + 16 * tables.length));
  const power = Math.floor(Math.log2(tables.length));
  directory.setUint32(0, 0x00010000);
  directory.setUint16(4, tables.length);
  directory.setUint16(6, 16 * 2 ** power);
  directory.setUint16(8, power);
  directory.setUint16(10, 16 * (tables.length - 2 ** power));
  const parts = [new Uint8Array(directory.buffer)];
  let offset = directory.byteLength;
  tables.forEach(([tag, bytes], i) => {
    for (let k = 0; k < 4; ++k) directory.setUint8(12 + 16 * i + k, tag.charCodeAt(k));
    directory.setUint32(16 + 16 * i, checksum(bytes));
    directory.setUint32(20 + 16 * i, offset);
    directory.setUint32(24 + 16 * i, bytes.length);
    const padded = new Uint8Array((bytes.length + 3) & ~3);
    padded.set(bytes);
    parts.push(padded);
    offset += padded.length;
  });
  return join(parts);
}
