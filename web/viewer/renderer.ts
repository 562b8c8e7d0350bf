// What draws the strokes and fills of a sheet: by the graphics card, or on a canvas where there is none.
import type { Instances } from "./instances";
import type { Box, Sheet } from "./sheet";
import type { Viewport } from "./viewport";

/** How the paper looks: 0xRRGGBB. */
export interface Look {
  paper: number;
  around: number;
  frame: Box;
}

export interface Renderer {
  readonly name: string;
  /** Takes what is drawn from now on. */
  setSheet(sheet: Sheet | null, instances: Instances | null, colorOf: (item: number) => number): void;
  /** Draws the view. False if the picture isn't sharp yet, and draw should be called in the next frame again.
   * @param density  pixels of the device for one of the page */
  draw(view: Viewport, density: number, look: Look): boolean;
  dispose(): void;
}
