// Which part of the sheet is seen, and how large.
import { heightOf, widthOf } from "./sheet";
import type { Box, Point } from "./sheet";

export class Viewport {
  /** Pixels of the page for a hundredth of a millimetre. */
  scale = 0.02;
  /** The place on the sheet at the left and top edge of the window. */
  x = 0;
  y = 0;
  /** Size of the window in pixels of the page. */
  width = 1;
  height = 1;
  /** What is shown as a whole, until the user moves or zooms. */
  fitted: Box | null = null;

  static readonly most = 10;

  toSheet(x: number, y: number): Point {
    return { x: this.x + x / this.scale, y: this.y + y / this.scale };
  }

  toScreen(point: Point): Point {
    return { x: (point.x - this.x) * this.scale, y: (point.y - this.y) * this.scale };
  }

  get box(): Box {
    return {
      left: this.x,
      top: this.y,
      right: this.x + this.width / this.scale,
      bottom: this.y + this.height / this.scale,
    };
  }

  /** Shows all of a box, with a margin in pixels. */
  fit(box: Box, margin = 24): void {
    const width = Math.max(1, widthOf(box)),
      height = Math.max(1, heightOf(box));
    const inner = (size: number): number => Math.max(16, size - 2 * margin);
    this.scale = Math.min(inner(this.width) / width, inner(this.height) / height, Viewport.most);
    this.centreOn({ x: (box.left + box.right) / 2, y: (box.top + box.bottom) / 2 });
    this.fitted = box;
  }

  centreOn(point: Point): void {
    this.fitted = null;
    this.x = point.x - this.width / this.scale / 2;
    this.y = point.y - this.height / this.scale / 2;
  }

  /** The place under x, y of the window keeps its place. */
  zoomAt(x: number, y: number, factor: number, least: number): void {
    const scale = Math.min(Viewport.most, Math.max(least, this.scale * factor));
    const place = this.toSheet(x, y);
    this.fitted = null;
    this.scale = scale;
    this.x = place.x - x / scale;
    this.y = place.y - y / scale;
  }

  panBy(x: number, y: number): void {
    this.fitted = null;
    this.x -= x / this.scale;
    this.y -= y / this.scale;
  }

  copy(): Viewport {
    return Object.assign(new Viewport(), this);
  }

  equals(other: Viewport): boolean {
    return (
      this.scale === other.scale &&
      this.x === other.x &&
      this.y === other.y &&
      this.width === other.width &&
      this.height === other.height
    );
  }
}
