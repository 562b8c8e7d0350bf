// Draws lines with soft edges and filled shapes into memory. Where WebGL is emulated by the processor, this is many
// times faster.
import { screenPixel } from "./sheet";
import { Shape } from "./instances";

/** Where sheet coordinates are in the picture. */
export interface Projection {
  x: number;
  y: number;
  /** Pixels for a hundredth of a millimetre. */
  scale: number;
  leastHalf: number;
}

/** Fully drawn. */
const whole = 256;

/** Where dashes begin and end, in pixels at 96 dpi; the last number is the length of the pattern. */
const patterns: readonly (readonly number[])[] = [[], [18, 24], [3, 6], [9, 15, 18, 24], [9, 12, 15, 18, 21, 24]];

function isGap(dash: number, distance: number): boolean {
  const pattern = patterns[dash]!,
    length = pattern[pattern.length - 1]!,
    place = distance - Math.floor(distance / length) * length;
  let drawn = true;
  for (const change of pattern) {
    if (place < change) return !drawn;
    drawn = !drawn;
  }
  return false;
}

export class Raster {
  readonly pixels: Uint32Array;
  readonly image: ImageData;

  constructor(
    readonly width: number,
    readonly height: number,
  ) {
    this.image = new ImageData(width, height);
    this.pixels = new Uint32Array(this.image.data.buffer);
  }

  /** @param color  as it is in memory: 0xAABBGGRR */
  clear(color: number): void {
    this.pixels.fill(color);
  }

  /** Fills whole pixels; the right and the bottom edge aren't inside. */
  box(left: number, top: number, right: number, bottom: number, color: number): void {
    const x0 = Math.max(0, left),
      x1 = Math.min(this.width, right),
      y0 = Math.max(0, top),
      y1 = Math.min(this.height, bottom);
    if (x0 >= x1) return;
    for (let y = y0; y < y1; ++y) this.pixels.fill(color, y * this.width + x0, y * this.width + x1);
  }

  /** Draws records, as makeInstances makes them. */
  draw(floats: Float32Array, words: Uint32Array, first: number, count: number, at: Projection): void {
    const { x: originX, y: originY, scale, leastHalf } = at,
      dashPixel = Math.max(1, screenPixel * scale);
    for (let record = first, end = first + count; record < end; ++record) {
      const base = record * 7,
        word = words[base + 6]!,
        shape = word >>> 24,
        color = (word | 0xff000000) >>> 0;
      const x0 = (floats[base]! - originX) * scale,
        y0 = (floats[base + 1]! - originY) * scale;
      const x1 = (floats[base + 2]! - originX) * scale,
        y1 = (floats[base + 3]! - originY) * scale;
      if (shape < Shape.box) {
        const half = floats[base + 4]! * scale,
          thin = half <= leastHalf;
        this.line(
          x0,
          y0,
          x1,
          y1,
          thin ? leastHalf : half,
          color,
          thin ? shape : 0,
          floats[base + 5]! * scale,
          dashPixel,
        );
      } else if (shape === Shape.box) {
        this.box(Math.round(x0), Math.round(y0), Math.round(x1), Math.round(y1), color);
      } else if (shape === Shape.trapezoid) {
        this.trapezoid(
          x0,
          y0,
          x1,
          y1,
          (floats[base + 4]! - originX) * scale,
          (floats[base + 5]! - originX) * scale,
          color,
        );
      } else {
        const x = Math.floor(x0),
          y = Math.floor(y0);
        this.box(x, y, x + 1, y + 1, color);
      }
    }
  }

  private line(
    x0: number,
    y0: number,
    x1: number,
    y1: number,
    half: number,
    color: number,
    dash: number,
    before: number,
    unit: number,
  ): void {
    const { width, height } = this,
      reach = half + 1;
    if ((x0 < -reach && x1 < -reach) || (x0 > width + reach && x1 > width + reach)) return;
    if ((y0 < -reach && y1 < -reach) || (y0 > height + reach && y1 > height + reach)) return;
    if (half <= 0.75 && dash === 0) {
      // A thin level or upright line is in the middle of its pixels.
      if (x0 === x1) return this.upright(Math.floor(x0), y0, y1, color);
      if (y0 === y1) return this.level(Math.floor(y0), x0, x1, color);
    }
    if (Math.abs(x1 - x0) >= Math.abs(y1 - y0))
      this.sweep(x0, y0, x1, y1, half, color, dash, before, unit, 1, width, width, height);
    else this.sweep(y0, x0, y1, x1, half, color, dash, before, unit, width, 1, height, width);
    if (half > 1) {
      this.disc(x0, y0, half, color);
      this.disc(x1, y1, half, color);
    }
  }

  private upright(x: number, y0: number, y1: number, color: number): void {
    this.box(x, Math.floor(Math.min(y0, y1)), x + 1, Math.floor(Math.max(y0, y1)) + 1, color);
  }

  private level(y: number, x0: number, x1: number, color: number): void {
    this.box(Math.floor(Math.min(x0, x1)), y, Math.floor(Math.max(x0, x1)) + 1, y + 1, color);
  }

  /** Draws a line column by column: a along the longer axis, b across. The steps are those of the axes in memory. */
  private sweep(
    a0: number,
    b0: number,
    a1: number,
    b1: number,
    half: number,
    color: number,
    dash: number,
    before: number,
    unit: number,
    stepA: number,
    stepB: number,
    sizeA: number,
    sizeB: number,
  ): void {
    const way = a1 - a0,
      slope = way === 0 ? 0 : (b1 - b0) / way,
      stretch = Math.sqrt(1 + slope * slope);
    const across = half * stretch,
      cap = half <= 1 ? half / stretch : 0;
    let from = a0,
      to = a1;
    if (from > to) {
      from = a1;
      to = a0;
    }
    from -= cap;
    to += cap;
    const first = Math.max(0, Math.floor(from)),
      last = Math.min(sizeA - 1, Math.floor(to)),
      { pixels } = this;
    for (let a = first; a <= last; ++a) {
      const left = a < from ? from : a,
        right = a + 1 > to ? to : a + 1,
        share = (right - left) * whole;
      const middle = (left + right) / 2;
      if (dash !== 0 && isGap(dash, (before + Math.abs(middle - a0) * stretch) / unit)) continue;
      const b = b0 + (middle - a0) * slope,
        top = b - across,
        bottom = b + across;
      const begin = top < 0 ? 0 : Math.floor(top),
        end = bottom > sizeB ? sizeB - 1 : Math.ceil(bottom) - 1;
      for (let k = begin; k <= end; ++k) {
        const low = k < top ? top : k,
          high = k + 1 > bottom ? bottom : k + 1;
        const cover = ((high - low) * share) | 0,
          index = a * stepA + k * stepB;
        if (cover >= 250) pixels[index] = color;
        else if (cover > 0) pixels[index] = mixed(pixels[index]!, color, cover);
      }
    }
  }

  /** The round end of a wide line. */
  private disc(x: number, y: number, radius: number, color: number): void {
    const top = Math.max(0, Math.floor(y - radius)),
      bottom = Math.min(this.height - 1, Math.ceil(y + radius));
    const left = Math.max(0, Math.floor(x - radius)),
      right = Math.min(this.width - 1, Math.ceil(x + radius));
    for (let row = top; row <= bottom; ++row) {
      for (let column = left; column <= right; ++column) {
        const cover = ((radius + 0.5 - Math.hypot(column + 0.5 - x, row + 0.5 - y)) * whole) | 0,
          index = row * this.width + column;
        if (cover >= whole) this.pixels[index] = color;
        else if (cover > 0) this.pixels[index] = mixed(this.pixels[index]!, color, cover);
      }
    }
  }

  /** Fills the pixels whose middle is inside, so that neighbours meet without a seam. */
  private trapezoid(
    leftTop: number,
    top: number,
    rightTop: number,
    bottom: number,
    leftBottom: number,
    rightBottom: number,
    color: number,
  ): void {
    const first = Math.max(0, Math.ceil(top - 0.5)),
      last = Math.min(this.height - 1, Math.ceil(bottom - 0.5) - 1);
    for (let row = first; row <= last; ++row) {
      const part = (row + 0.5 - top) / (bottom - top);
      const left = leftTop + part * (leftBottom - leftTop),
        right = rightTop + part * (rightBottom - rightTop);
      const from = Math.max(0, Math.ceil(left - 0.5)),
        to = Math.min(this.width, Math.ceil(right - 0.5));
      if (from < to) this.pixels.fill(color, row * this.width + from, row * this.width + to);
    }
  }
}

function mixed(below: number, color: number, cover: number): number {
  const rest = whole - cover;
  const redBlue = ((below & 0xff00ff) * rest + (color & 0xff00ff) * cover) >>> 8;
  const green = ((below & 0x00ff00) * rest + (color & 0x00ff00) * cover) >>> 8;
  return ((redBlue & 0xff00ff) | (green & 0x00ff00) | 0xff000000) >>> 0;
}
