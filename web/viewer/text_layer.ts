// The texts of a sheet on the screen, over its strokes and fills. What a later fill covers of a text is erased here.
import { boundsOf, emptyBox, isFill, Kind, overlaps, perItem } from "./sheet";
import type { Box, Sheet } from "./sheet";
import type { TextPainter } from "./text_painter";
import type { Viewport } from "./viewport";

interface Step {
  /** Index of a text, or of an item that covers texts. */
  index: number;
  isText: boolean;
  order: number;
  bounds: Box;
}

/** Pairs of texts and fills that are looked at. */
const mostPairs = 2e7;

export class TextLayer {
  private readonly context: CanvasRenderingContext2D;
  private readonly picture = document.createElement("canvas");
  private pictureView: Viewport | null = null;
  private steps: Step[] = [];
  private sheet: Sheet | null = null;
  private painter: TextPainter | null = null;
  private textColorOf: (text: number) => number = () => 0;
  private took = 0;
  private lastView: Viewport | null = null;

  constructor(private readonly canvas: HTMLCanvasElement) {
    this.context = canvas.getContext("2d")!;
  }

  setSheet(sheet: Sheet | null, painter: TextPainter | null, textColorOf: (text: number) => number): void {
    if (sheet !== this.sheet || painter !== this.painter) this.steps = sheet && painter ? stepsOf(sheet, painter) : [];
    this.sheet = sheet;
    this.painter = painter;
    this.textColorOf = textColorOf;
    this.pictureView = null;
  }

  /** False if draw should be called in the next frame again. */
  draw(view: Viewport, density: number): boolean {
    this.resize(view, density);
    const isSharp = this.pictureView?.equals(view) === true;
    const moving = !this.lastView?.equals(view),
      slow = 10;
    this.lastView = view.copy();
    if (isSharp) return true;
    if (moving && this.took > slow && this.pictureView) {
      this.showMoved(view, density);
      return false;
    }
    this.paint(view, density);
    return true;
  }

  private resize(view: Viewport, density: number): void {
    const width = Math.max(1, Math.round(view.width * density)),
      height = Math.max(1, Math.round(view.height * density));
    if (this.canvas.width === width && this.canvas.height === height) return;
    this.canvas.width = this.picture.width = width;
    this.canvas.height = this.picture.height = height;
    this.pictureView = null;
  }

  private paint(view: Viewport, density: number): void {
    const start = performance.now(),
      { context, sheet, painter } = this,
      box = view.box;
    context.clearRect(0, 0, this.canvas.width, this.canvas.height);
    const place = { scale: view.scale * density, x: view.x, y: view.y };
    for (const step of this.steps) {
      if (!overlaps(step.bounds, box)) continue;
      if (step.isText) painter!.paint(context, sheet!.texts[step.index]!, place, this.textColorOf(step.index));
      else this.erase(step.index, place.scale, view);
    }
    this.pictureView = view.copy();
    this.took = performance.now() - start;
    if (this.steps.length > 0) this.keep();
  }

  private keep(): void {
    const kept = this.picture.getContext("2d")!;
    kept.clearRect(0, 0, this.picture.width, this.picture.height);
    kept.drawImage(this.canvas, 0, 0);
  }

  private showMoved(view: Viewport, density: number): void {
    const old = this.pictureView!,
      at = view.toScreen({ x: old.x, y: old.y }),
      part = (view.scale / old.scale) * density;
    this.context.clearRect(0, 0, this.canvas.width, this.canvas.height);
    this.context.drawImage(this.picture, at.x * density, at.y * density, old.width * part, old.height * part);
  }

  private erase(item: number, scale: number, view: Viewport): void {
    const { context } = this,
      { data, kinds } = this.sheet!,
      first = item * perItem;
    const x = (index: number): number => (data[first + index]! - view.x) * scale;
    const y = (index: number): number => (data[first + index]! - view.y) * scale;
    const isBox = kinds[item] === Kind.box;
    context.globalCompositeOperation = "destination-out";
    context.fillStyle = "#000";
    context.beginPath();
    context.moveTo(x(0), y(1));
    context.lineTo(x(2), y(1));
    context.lineTo(x(isBox ? 2 : 5), y(3));
    context.lineTo(x(isBox ? 0 : 4), y(3));
    context.fill();
    context.globalCompositeOperation = "source-over";
  }
}

function stepsOf(sheet: Sheet, painter: TextPainter): Step[] {
  const steps: Step[] = sheet.texts.map((text, index) => ({
    index,
    isText: true,
    order: text.after - 0.5,
    bounds: painter.bounds(text),
  }));
  const fills: number[] = [];
  sheet.kinds.forEach((kind, item) => {
    if (isFill(kind)) fills.push(item);
  });
  if (fills.length * steps.length > mostPairs) return steps;
  const texts = steps.slice(),
    box = emptyBox();
  for (const item of fills) {
    boundsOf(sheet, item, box);
    if (texts.some((text) => text.order < item && overlaps(text.bounds, box))) {
      steps.push({ index: item, isText: false, order: item, bounds: { ...box } });
    }
  }
  return steps.sort((a, b) => a.order - b.order);
}
