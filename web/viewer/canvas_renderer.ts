// Draws a sheet where the browser has no WebGL 2. While a view of many strokes is moved, the last picture is shown.
import { cssColor, paintSheet } from "./canvas_paint";
import type { Instances } from "./instances";
import type { Look, Renderer } from "./renderer";
import type { Sheet } from "./sheet";
import type { Viewport } from "./viewport";

export class CanvasRenderer implements Renderer {
  readonly name = "Canvas 2D";
  private readonly context: CanvasRenderingContext2D;
  private readonly picture = document.createElement("canvas");
  private sheet: Sheet | null = null;
  private colorOf: (item: number) => number = () => 0;
  private pictureView: Viewport | null = null;
  private pictureLook = "";
  private lastView: Viewport | null = null;
  private took = 0;

  constructor(private readonly canvas: HTMLCanvasElement) {
    this.context = canvas.getContext("2d", { alpha: false })!;
  }

  setSheet(sheet: Sheet | null, _instances: Instances | null, colorOf: (item: number) => number): void {
    this.sheet = sheet;
    this.colorOf = colorOf;
    this.pictureView = null;
  }

  draw(view: Viewport, density: number, look: Look): boolean {
    this.resize(view, density);
    const key = JSON.stringify(look);
    const isSharp = this.pictureView?.equals(view) === true && key === this.pictureLook;
    const moving = !this.lastView?.equals(view);
    this.lastView = view.copy();
    if (!isSharp && !(moving && this.pictureView && this.took > 12)) this.paint(view, density, look, key);
    this.show(view, density, look);
    return this.pictureView?.equals(view) === true && key === this.pictureLook;
  }

  dispose(): void {
    this.picture.width = this.picture.height = 0;
  }

  private resize(view: Viewport, density: number): void {
    const width = Math.max(1, Math.round(view.width * density)), height = Math.max(1, Math.round(view.height * density));
    if (this.canvas.width === width && this.canvas.height === height) return;
    this.canvas.width = this.picture.width = width;
    this.canvas.height = this.picture.height = height;
    this.pictureView = null;
  }

  private paint(view: Viewport, density: number, look: Look, key: string): void {
    const start = performance.now(), context = this.picture.getContext("2d", { alpha: false })!;
    this.clear(context, view, density, look);
    if (this.sheet) {
      paintSheet(context, this.sheet, {
        scale: view.scale * density, x: view.x, y: view.y, box: view.box, hairline: Math.max(1, density * 0.8),
        colorOf: this.colorOf, textColorOf: () => 0, texts: null,
      });
    }
    this.pictureView = view.copy();
    this.pictureLook = key;
    this.took = performance.now() - start;
  }

  private clear(context: CanvasRenderingContext2D, view: Viewport, density: number, look: Look): void {
    context.fillStyle = cssColor(look.around);
    context.fillRect(0, 0, this.canvas.width, this.canvas.height);
    const from = view.toScreen({ x: look.frame.left, y: look.frame.top });
    const to = view.toScreen({ x: look.frame.right, y: look.frame.bottom });
    context.fillStyle = cssColor(look.paper);
    context.fillRect(from.x * density, from.y * density, (to.x - from.x) * density, (to.y - from.y) * density);
  }

  private show(view: Viewport, density: number, look: Look): void {
    const old = this.pictureView!;
    this.clear(this.context, view, density, look);
    const at = view.toScreen({ x: old.x, y: old.y }), part = (view.scale / old.scale) * density;
    this.context.drawImage(this.picture, at.x * density, at.y * density, old.width * part, old.height * part);
  }
}
