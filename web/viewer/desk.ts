// What the panels may ask of the page.
import type { Faces } from "./faces";
import type { Settings } from "./settings";
import type { Box } from "./sheet";
import type { Stage, Tool } from "./stage";
import type { Tab } from "./tab";
import type { TextPainter } from "./text_painter";

export interface Desk {
  readonly tabs: readonly Tab[];
  readonly tab: Tab | null;
  readonly settings: Settings;
  readonly stage: Stage;
  readonly painter: TextPainter | null;
  readonly faces: Faces | null;
  /** Keeps the settings after a change. */
  keepSettings(): void;
  /** Converts the current drawing anew after its choices were changed. */
  convertAgain(): void;
  /** Shows the current drawing anew, in other colours for example. */
  showAgain(): void;
  setTool(tool: Tool | null): void;
  choosePart(): void;
  say(text: string): void;
  showBox(box: Box): void;
  openComparison(a: Tab, b: Tab): void;
}

export interface Panel {
  readonly element: HTMLElement;
  /** After the current drawing, or what is known of it, has changed. */
  update(): void;
  /** After the panel was opened by the user. */
  focus?(): void;
  /** Paints over the sheet while the panel is open. */
  paint?(context: CanvasRenderingContext2D): void;
}
