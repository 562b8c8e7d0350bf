// Chooses a part of the sheet: by dragging, by two clicks, or with the keys.
import { heightOf, widthOf } from "./sheet";
import type { Box, Point } from "./sheet";
import type { Tool } from "./stage";
import { t } from "./texts";
import type { Viewport } from "./viewport";

export class PartTool implements Tool {
  readonly pans = false;
  private first: Point | null = null;
  private second: Point | null = null;
  private isClicked = false;

  constructor(
    private readonly frame: Box,
    private readonly done: (box: Box) => void,
  ) {}

  get hint(): string {
    return t("partHint");
  }

  move(at: Point): void {
    if (this.first) this.second = at;
  }

  press(at: Point): void {
    if (!this.first) this.first = this.second = at;
  }

  release(at: Point, dragged: boolean): void {
    this.second = at;
    if (!dragged && !this.isClicked) {
      this.isClicked = true;
      return;
    }
    const box = this.box();
    this.first = this.second = null;
    this.isClicked = false;
    if (box && widthOf(box) >= 10 && heightOf(box) >= 10) this.done(box);
  }

  doubleClick(): void {}

  key(key: string): boolean {
    if ((key !== "Escape" && key !== "Backspace") || !this.first) return false;
    this.first = this.second = null;
    this.isClicked = false;
    return true;
  }

  paint(context: CanvasRenderingContext2D, view: Viewport): void {
    const box = this.box();
    if (!box) return;
    const from = view.toScreen({ x: box.left, y: box.top }),
      to = view.toScreen({ x: box.right, y: box.bottom });
    context.fillStyle = "rgba(20, 24, 32, .35)";
    context.beginPath();
    context.rect(0, 0, view.width, view.height);
    context.rect(from.x, from.y, to.x - from.x, to.y - from.y);
    context.fill("evenodd");
    context.strokeStyle = "#d0006f";
    context.lineWidth = 1.5;
    context.strokeRect(from.x, from.y, to.x - from.x, to.y - from.y);
  }

  /** The part in whole hundredths, within the sheet. */
  private box(): Box | null {
    const { first, second, frame } = this;
    if (!first || !second) return null;
    const x = (value: number): number => Math.round(Math.min(frame.right, Math.max(frame.left, value)));
    const y = (value: number): number => Math.round(Math.min(frame.bottom, Math.max(frame.top, value)));
    return {
      left: x(Math.min(first.x, second.x)),
      top: y(Math.min(first.y, second.y)),
      right: x(Math.max(first.x, second.x)),
      bottom: y(Math.max(first.y, second.y)),
    };
  }
}
