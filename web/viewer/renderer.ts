// What draws the strokes and fills of a sheet: the graphics card, or the processor where there is none.
import { GlRenderer } from "./gl_renderer";
import type { Instances } from "./instances";
import type { Box } from "./sheet";
import { SoftRenderer } from "./soft_renderer";
import type { Viewport } from "./viewport";

/** How the paper looks: 0xRRGGBB. */
export interface Look {
  paper: number;
  around: number;
  frame: Box;
}

export interface Renderer {
  readonly name: string;
  /** How often the strokes were drawn to the last one. */
  readonly finished: number;
  /** Takes what is drawn from now on. */
  setInstances(instances: Instances | null): void;
  /** Draws the view. False if the picture isn't sharp yet, and draw should be called in the next frame again.
   * @param density  pixels of the device for one of the page */
  draw(view: Viewport, density: number, look: Look): boolean;
}

/** @param wanted  "gl" or "software" to have this one, for tests */
export function makeRenderer(canvas: HTMLCanvasElement, wanted: string | null): Renderer {
  if (wanted === "software") return new SoftRenderer(canvas);
  return GlRenderer.create(canvas, wanted === "gl") ?? new SoftRenderer(canvas);
}
