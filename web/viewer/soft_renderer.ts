// Draws a sheet without a graphics card. What takes longer than a part of a frame is drawn in slices; until the picture
// is finished, the last finished one is shown at its place.
import { cssColor } from "./canvas_paint";
import type { Instances } from "./instances";
import { Raster } from "./raster";
import type { Projection } from "./raster";
import type { Look, Renderer } from "./renderer";
import type { Viewport } from "./viewport";
import { runsIn, takeRecords } from "./visible";
import type { Run } from "./visible";

interface Job {
  view: Viewport;
  look: string;
  runs: Run[];
  at: Projection;
}

/** Milliseconds of a frame, and records between two looks at the clock. */
const budget = 9,
  pace = 4000;

/** 0xRRGGBB as it is in memory. */
function inMemory(color: number): number {
  return (((color & 255) << 16) | (color & 0xff00) | (color >> 16) | 0xff000000) >>> 0;
}

export class SoftRenderer implements Renderer {
  readonly name = "software";
  finished = 0;
  private readonly context: CanvasRenderingContext2D;
  private readonly picture = document.createElement("canvas");
  private raster: Raster | null = null;
  private instances: Instances | null = null;
  private floats: Float32Array = new Float32Array(0);
  private words: Uint32Array = new Uint32Array(0);
  private job: Job | null = null;
  private shownView: Viewport | null = null;
  private shownLook = "";

  constructor(private readonly canvas: HTMLCanvasElement) {
    this.context = canvas.getContext("2d", { alpha: false })!;
  }

  setInstances(instances: Instances | null): void {
    this.instances = instances;
    const { buffer, byteOffset, byteLength } = instances?.bytes ?? new Uint8Array(0);
    this.floats = new Float32Array(buffer, byteOffset, byteLength >> 2);
    this.words = new Uint32Array(buffer, byteOffset, byteLength >> 2);
    this.job = null;
    this.shownView = null;
  }

  draw(view: Viewport, density: number, look: Look): boolean {
    this.resize(view, density);
    const key = JSON.stringify(look);
    const isSharp = (): boolean => key === this.shownLook && this.shownView?.equals(view) === true;
    if (!isSharp()) {
      if (!this.job || this.job.look !== key) this.job = this.begin(view, density, look, key);
      this.work();
    }
    this.show(view, density, look);
    return isSharp();
  }

  private resize(view: Viewport, density: number): void {
    const width = Math.max(1, Math.round(view.width * density)),
      height = Math.max(1, Math.round(view.height * density));
    if (this.raster && this.canvas.width === width && this.canvas.height === height) return;
    this.canvas.width = this.picture.width = width;
    this.canvas.height = this.picture.height = height;
    this.raster = new Raster(width, height);
    this.job = this.shownView = null;
  }

  private begin(view: Viewport, density: number, look: Look, key: string): Job {
    const raster = this.raster!,
      { left, top, right, bottom } = look.frame;
    const from = view.toScreen({ x: left, y: top }),
      to = view.toScreen({ x: right, y: bottom });
    const pixel = (value: number): number => Math.round(value * density);
    raster.clear(inMemory(look.around));
    raster.box(pixel(from.x), pixel(from.y), pixel(to.x), pixel(to.y), inMemory(look.paper));
    return {
      view: view.copy(),
      look: key,
      runs: runsIn(this.instances, view),
      at: { x: view.x, y: view.y, scale: view.scale * density, leastHalf: Math.max(0.5, density * 0.4) },
    };
  }

  private work(): void {
    const job = this.job!,
      raster = this.raster!,
      end = performance.now() + budget;
    while (job.runs.length > 0 && performance.now() < end) {
      for (const run of takeRecords(job.runs, pace)) raster.draw(this.floats, this.words, run.first, run.count, job.at);
    }
    if (job.runs.length > 0) return;
    this.picture.getContext("2d", { alpha: false })!.putImageData(raster.image, 0, 0);
    this.shownView = job.view;
    this.shownLook = job.look;
    ++this.finished;
    this.job = null;
  }

  /** Shows the last finished picture where its part of the sheet is now. */
  private show(view: Viewport, density: number, look: Look): void {
    const { context, shownView: old } = this;
    if (old?.equals(view)) return void context.drawImage(this.picture, 0, 0);
    context.fillStyle = cssColor(look.around);
    context.fillRect(0, 0, this.canvas.width, this.canvas.height);
    const from = view.toScreen({ x: look.frame.left, y: look.frame.top });
    const to = view.toScreen({ x: look.frame.right, y: look.frame.bottom });
    context.fillStyle = cssColor(look.paper);
    context.fillRect(from.x * density, from.y * density, (to.x - from.x) * density, (to.y - from.y) * density);
    if (!old) return;
    const at = view.toScreen({ x: old.x, y: old.y }),
      part = (view.scale / old.scale) * density;
    context.imageSmoothingEnabled = view.scale !== old.scale;
    context.drawImage(this.picture, at.x * density, at.y * density, old.width * part, old.height * part);
  }
}
