// The records of an enhanced metafile in memory. A read beyond its record throws.

export const enum RecordType {
  header = 1,
  polyBezier = 2,
  polygon = 3,
  eof = 14,
  setPixelV = 15,
  setMapMode = 17,
  setPolyFillMode = 19,
  setTextAlign = 22,
  setTextColor = 24,
  moveToEx = 27,
  selectObject = 37,
  createPen = 38,
  createBrushIndirect = 39,
  deleteObject = 40,
  angleArc = 41,
  ellipse = 42,
  arc = 45,
  lineTo = 54,
  setArcDirection = 57,
  fillRgn = 71,
  extSelectClipRgn = 75,
  extCreateFontIndirectW = 82,
  extTextOutW = 84,
  polyBezier16 = 85,
  polygon16 = 86,
}

export class BadMetafile extends Error {
  constructor() {
    super("malformed metafile");
  }
}

/** Walks over the records. All offsets are in bytes from the start of the current record. */
export class RecordReader {
  private readonly ints: Int32Array;
  private readonly floats: Float32Array;
  private readonly shorts: Int16Array;
  private start = 0;
  type = 0;
  size = 0;

  constructor(bytes: Uint8Array) {
    const aligned = bytes.byteOffset % 4 === 0 ? bytes : bytes.slice();
    const words = aligned.byteLength >> 2;
    this.ints = new Int32Array(aligned.buffer, aligned.byteOffset, words);
    this.floats = new Float32Array(aligned.buffer, aligned.byteOffset, words);
    this.shorts = new Int16Array(aligned.buffer, aligned.byteOffset, words * 2);
  }

  /** Goes to the next record. */
  next(): void {
    this.start += this.size;
    const at = this.start >> 2;
    if (at + 2 > this.ints.length) throw new BadMetafile();
    this.type = this.ints[at]!;
    this.size = this.ints[at + 1]! >>> 0;
    if (this.size < 8 || this.size % 4 !== 0 || this.size > this.ints.length * 4 - this.start) throw new BadMetafile();
  }

  int(offset: number): number {
    if (offset + 4 > this.size) throw new BadMetafile();
    return this.ints[(this.start + offset) >> 2]!;
  }

  uint(offset: number): number {
    return this.int(offset) >>> 0;
  }

  float(offset: number): number {
    if (offset + 4 > this.size) throw new BadMetafile();
    return this.floats[(this.start + offset) >> 2]!;
  }

  short(offset: number): number {
    if (offset + 2 > this.size) throw new BadMetafile();
    return this.shorts[(this.start + offset) >> 1]!;
  }

  byte(offset: number): number {
    return (this.short(offset & ~1) >> ((offset & 1) * 8)) & 0xff;
  }

  /** Checks that count items of so many bytes are within the record. */
  require(offset: number, count: number, bytes: number): void {
    if (offset > this.size || count > (this.size - offset) / bytes) throw new BadMetafile();
  }

  /** UTF-16 units. */
  text(offset: number, count: number): string {
    this.require(offset, count, 2);
    let text = "";
    for (let i = 0; i < count; ++i) text += String.fromCharCode(this.short(offset + 2 * i) & 0xffff);
    return text;
  }
}
