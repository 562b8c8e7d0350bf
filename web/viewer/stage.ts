// The window on a sheet: canvases, the view, and what the mouse, fingers and keys do to it.
import { element } from "./dom";
import { coarseTolerance, hasCurves, makeInstances } from "./instances";
import { makeRenderer } from "./renderer";
import type { Look, Renderer } from "./renderer";
import { heightOf, screenPixel, widthOf } from "./sheet";
import type { Box, Point, Sheet } from "./sheet";
import { TextLayer } from "./text_layer";
import type { TextPainter } from "./text_painter";
import { t } from "./texts";
import { Viewport } from "./viewport";

/** What is shown. */
export interface Scene {
  sheet: Sheet;
  look: Look;
  colorOf(item: number): number;
  textColorOf(text: number): number;
}

/** What clicks and moves mean now. Places are on the sheet. */
export interface Tool {
  /** Whether dragging moves the sheet. */
  readonly pans: boolean;
  readonly hint: string;
  move(at: Point): void;
  press(at: Point): void;
  /** @param dragged  whether the pointer was moved since it was pressed */
  release(at: Point, dragged: boolean): void;
  doubleClick(at: Point): void;
  /** Whether the key was the tool's. */
  key(key: string): boolean;
  paint(context: CanvasRenderingContext2D, view: Viewport): void;
}

const idleTime = 140;

export class Stage {
  readonly element: HTMLElement;
  viewport = new Viewport();
  tool: Tool | null = null;
  /** The cross of the keyboard, in pixels of the window; null while the mouse is used. */
  cross: Point | null = null;
  onView: () => void = () => {};
  onPointer: (at: Point | null) => void = () => {};
  paintOver: (context: CanvasRenderingContext2D, view: Viewport) => void = () => {};
  private readonly strokes = element("canvas", { class: "layer" });
  private readonly texts = element("canvas", { class: "layer" });
  private readonly over = element("canvas", { class: "layer" });
  private readonly renderer: Renderer;
  private readonly textLayer: TextLayer;
  private scene: Scene | null = null;
  private painter: TextPainter | null = null;
  private scheduled = false;
  private idle = 0;
  private detailScale = 0;
  private detailRegion: Box | null = null;
  private readonly pointers = new Map<number, Point>();
  private pressed: Point | null = null;
  private dragged = false;

  constructor(private readonly empty: Look) {
    this.renderer = makeRenderer(this.strokes, new URLSearchParams(location.search).get("renderer"));
    this.textLayer = new TextLayer(this.texts);
    this.element = element(
      "div",
      {
        class: "stage",
        tabindex: 0,
        role: "application",
        "aria-label": t("stage"),
      },
      this.strokes,
      this.texts,
      this.over,
    );
    new ResizeObserver(() => this.resize()).observe(this.element);
    this.listen();
  }

  get rendererName(): string {
    return this.renderer.name;
  }

  setPainter(painter: TextPainter): void {
    this.painter = painter;
  }

  show(scene: Scene | null, viewport: Viewport): void {
    viewport.width = this.viewport.width;
    viewport.height = this.viewport.height;
    this.scene = scene;
    this.viewport = viewport;
    this.textLayer.setSheet(scene?.sheet ?? null, this.painter, scene?.textColorOf ?? (() => 0));
    this.makeDetail();
    this.invalidate();
  }

  invalidate(): void {
    if (this.scheduled) return;
    this.scheduled = true;
    requestAnimationFrame(() => this.frame());
  }

  /** Calls after the view was changed. */
  changed(): void {
    clearTimeout(this.idle);
    this.idle = window.setTimeout(() => this.refine(), idleTime);
    this.onView();
    this.invalidate();
  }

  zoom(factor: number, at: Point = { x: this.viewport.width / 2, y: this.viewport.height / 2 }): void {
    this.viewport.zoomAt(at.x, at.y, factor, this.leastScale());
    this.changed();
  }

  pan(x: number, y: number): void {
    this.viewport.panBy(x, y);
    this.changed();
  }

  fit(box: Box, margin?: number): void {
    this.viewport.fit(box, margin);
    this.changed();
  }

  setTool(tool: Tool | null): void {
    this.tool = tool;
    this.cross = null;
    this.element.classList.toggle("aiming", tool !== null);
    this.invalidate();
  }

  private leastScale(): number {
    const frame = this.scene?.sheet.frame;
    return frame ? Math.min(8 / Math.max(1, widthOf(frame), heightOf(frame)), 0.01) : 0.0001;
  }

  // Drawing.

  private resize(): void {
    const { clientWidth: width, clientHeight: height } = this.element;
    if (width === 0 || height === 0) return;
    const { viewport } = this;
    const { fitted } = viewport;
    // The middle of the window keeps its place.
    if (viewport.width > 1 && !fitted) viewport.panBy((width - viewport.width) / 2, (height - viewport.height) / 2);
    viewport.width = width;
    viewport.height = height;
    if (fitted) viewport.fit(fitted);
    this.changed();
  }

  private frame(): void {
    this.scheduled = false;
    const density = window.devicePixelRatio || 1,
      look = this.scene?.look ?? this.empty;
    const sharp = this.renderer.draw(this.viewport, density, look);
    const textsSharp = this.textLayer.draw(this.viewport, density);
    this.paintOverlay(density);
    this.element.dataset["pictures"] = String(this.renderer.finished);
    this.element.dataset["sharp"] = String(sharp && textsSharp);
    if (!sharp || !textsSharp) this.invalidate();
  }

  private paintOverlay(density: number): void {
    const { viewport, over } = this,
      width = Math.round(viewport.width * density),
      height = Math.round(viewport.height * density);
    if (over.width !== width || over.height !== height) {
      over.width = width;
      over.height = height;
    }
    const context = over.getContext("2d")!;
    context.setTransform(density, 0, 0, density, 0, 0);
    context.clearRect(0, 0, viewport.width, viewport.height);
    this.paintOver(context, viewport);
    this.tool?.paint(context, viewport);
    if (this.cross) paintCross(context, this.cross);
  }

  // Curves are cut as finely as the zoom needs, once the view rests.

  private refine(): void {
    const { scene, viewport } = this;
    if (!scene || !hasCurves(scene.sheet)) return;
    const finer = viewport.scale / this.detailScale,
      box = viewport.box,
      region = this.detailRegion;
    const inside =
      region &&
      region.left <= box.left &&
      region.top <= box.top &&
      region.right >= box.right &&
      region.bottom >= box.bottom;
    const needed = 0.2 / viewport.scale < coarseTolerance(scene.sheet);
    if (finer > 1.5 || finer < 0.4 || (!inside && needed)) {
      this.makeDetail();
      this.invalidate();
    }
  }

  private makeDetail(): void {
    const { scene, viewport } = this;
    if (!scene) return this.renderer.setInstances(null);
    const box = viewport.box,
      width = widthOf(box),
      height = heightOf(box);
    const region = {
      left: box.left - width,
      top: box.top - height,
      right: box.right + width,
      bottom: box.bottom + height,
    };
    const tolerance = 0.15 / viewport.scale;
    this.detailScale = viewport.scale;
    this.detailRegion = region;
    const detail = { tolerance, coarse: Math.max(tolerance, coarseTolerance(scene.sheet)), region };
    this.renderer.setInstances(makeInstances(scene.sheet, detail, scene.colorOf));
  }

  // Mouse, pen and fingers.

  private listen(): void {
    const { element } = this;
    element.addEventListener("pointerdown", (event) => this.down(event));
    element.addEventListener("pointermove", (event) => this.moved(event));
    element.addEventListener("pointerup", (event) => this.up(event));
    element.addEventListener("pointercancel", (event) => this.up(event));
    element.addEventListener("pointerleave", () => this.onPointer(null));
    element.addEventListener("dblclick", (event) => this.doubleClick(event));
    element.addEventListener("wheel", (event) => this.wheel(event), { passive: false });
  }

  private placeOf(event: MouseEvent): Point {
    const box = this.element.getBoundingClientRect();
    return { x: event.clientX - box.left, y: event.clientY - box.top };
  }

  private toSheet(at: Point): Point {
    return this.viewport.toSheet(at.x, at.y);
  }

  private down(event: PointerEvent): void {
    const at = this.placeOf(event);
    this.element.setPointerCapture(event.pointerId);
    this.pointers.set(event.pointerId, at);
    this.cross = null;
    this.dragged = false;
    this.pressed = at;
    if (event.button === 0 && this.pointers.size === 1) this.tool?.press(this.toSheet(at));
    this.invalidate();
  }

  private moved(event: PointerEvent): void {
    const at = this.placeOf(event),
      before = this.pointers.get(event.pointerId);
    if (!before) {
      this.onPointer(this.toSheet(at));
      this.tool?.move(this.toSheet(at));
      if (this.tool) this.invalidate();
      return;
    }
    if (this.pressed && Math.hypot(at.x - this.pressed.x, at.y - this.pressed.y) > 3) this.dragged = true;
    if (this.pointers.size === 2) this.pinch(event.pointerId, before, at);
    else if (!this.tool || this.tool.pans || event.buttons === 4) this.pan(at.x - before.x, at.y - before.y);
    else {
      this.tool.move(this.toSheet(at));
      this.invalidate();
    }
    this.pointers.set(event.pointerId, at);
    this.onPointer(this.toSheet(at));
  }

  /** Two fingers move and zoom the sheet. */
  private pinch(id: number, before: Point, at: Point): void {
    const other = [...this.pointers].find(([each]) => each !== id)![1];
    const factor =
      Math.hypot(at.x - other.x, at.y - other.y) / Math.max(1, Math.hypot(before.x - other.x, before.y - other.y));
    this.viewport.panBy((at.x - before.x) / 2, (at.y - before.y) / 2);
    this.zoom(factor, { x: (at.x + other.x) / 2, y: (at.y + other.y) / 2 });
  }

  private up(event: PointerEvent): void {
    const wasOne = this.pointers.size === 1;
    this.pointers.delete(event.pointerId);
    if (!wasOne || event.type === "pointercancel" || event.button !== 0) return;
    this.tool?.release(this.toSheet(this.placeOf(event)), this.dragged);
    this.invalidate();
  }

  private doubleClick(event: MouseEvent): void {
    const at = this.placeOf(event);
    if (this.tool) this.tool.doubleClick(this.toSheet(at));
    else this.zoom(event.shiftKey ? 0.5 : 2, at);
    this.invalidate();
  }

  private wheel(event: WheelEvent): void {
    event.preventDefault();
    const lines = event.deltaMode === 1 ? 30 : event.deltaMode === 2 ? 400 : 1,
      at = this.placeOf(event);
    if (event.shiftKey && !event.ctrlKey) return this.pan(-(event.deltaX || event.deltaY) * lines, 0);
    const speed = event.ctrlKey ? 0.01 : 0.002;
    this.zoom(Math.exp(-Math.max(-300, Math.min(300, event.deltaY * lines)) * speed), at);
  }

  // Keys.

  /** Whether the key was for the view or its tool. */
  key(event: KeyboardEvent): boolean {
    const page = event.shiftKey ? 0.9 : 0.12,
      { viewport } = this;
    if (this.tool && this.keyOfTool(event)) return true;
    switch (event.key) {
      case "ArrowLeft":
        this.pan(viewport.width * page, 0);
        return true;
      case "ArrowRight":
        this.pan(-viewport.width * page, 0);
        return true;
      case "ArrowUp":
        this.pan(0, viewport.height * page);
        return true;
      case "ArrowDown":
        this.pan(0, -viewport.height * page);
        return true;
      case "+":
      case "=":
      case ";":
        this.zoom(1.25);
        return true;
      case "-":
        this.zoom(0.8);
        return true;
      default:
        return false;
    }
  }

  private keyOfTool(event: KeyboardEvent): boolean {
    const tool = this.tool!,
      step = event.shiftKey ? 1 : 12,
      { viewport } = this;
    const ways: { [key: string]: [number, number] } = {
      ArrowLeft: [-step, 0],
      ArrowRight: [step, 0],
      ArrowUp: [0, -step],
      ArrowDown: [0, step],
    };
    const way = ways[event.key];
    if (!way && event.key !== "Enter") return tool.key(event.key);
    this.cross ??= { x: Math.round(viewport.width / 2), y: Math.round(viewport.height / 2) };
    if (way) {
      this.cross = { x: this.cross.x + way[0], y: this.cross.y + way[1] };
      this.keepCrossInside();
      tool.move(this.toSheet(this.cross));
      this.onPointer(this.toSheet(this.cross));
    } else if (!tool.key("Enter")) {
      tool.press(this.toSheet(this.cross));
      tool.release(this.toSheet(this.cross), false);
    }
    this.invalidate();
    return true;
  }

  private keepCrossInside(): void {
    const cross = this.cross!,
      { width, height } = this.viewport,
      margin = 20;
    const x = Math.min(width - margin, Math.max(margin, cross.x)),
      y = Math.min(height - margin, Math.max(margin, cross.y));
    if (x !== cross.x || y !== cross.y) this.pan(x - cross.x, y - cross.y);
    this.cross = { x, y };
  }
}

/** Pixels of the page for a hundredth of a millimetre at true size. */
export const trueScale = 1 / screenPixel;

function paintCross(context: CanvasRenderingContext2D, at: Point): void {
  const arm = 14;
  for (const [color, width] of [
    ["#fff", 4],
    ["#d0006f", 2],
  ] as const) {
    context.strokeStyle = color;
    context.lineWidth = width;
    context.beginPath();
    context.moveTo(at.x - arm, at.y);
    context.lineTo(at.x + arm, at.y);
    context.moveTo(at.x, at.y - arm);
    context.lineTo(at.x, at.y + arm);
    context.stroke();
  }
}
