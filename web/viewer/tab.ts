// A drawing that is open: its file, how it is converted, and what came of it.
import type { Call } from "../library/client";
import type { Conversion, Inspection, LineTypeFamily, Options, Progress, SheetPart } from "../library/protocol";
import type { Comparison } from "./compare";
import type { Source } from "./files";
import type { Sheet } from "./sheet";
import { Viewport } from "./viewport";

export interface Choices {
  sheet: "whole" | "full-size" | "part";
  part: SheetPart | null;
  wholeTexts: boolean;
  turned: boolean;
  halfWidth: boolean;
  fit: boolean;
  asIs: boolean;
  denominator: number;
  skipOffLayers: boolean;
  hiddenLayers: Set<string>;
  hiddenLineTypes: Set<LineTypeFamily>;
}

export type TabState = "waiting" | "converting" | "ready" | "failed";

let lastId = 0;

export class Tab {
  readonly id = ++lastId;
  state: TabState = "waiting";
  choices: Choices;
  conversion: Conversion | null = null;
  /** The bytes of the .emf file. */
  metafile: Blob | null = null;
  inspection: Inspection | null = null;
  sheet: Sheet | null = null;
  comparison: Comparison | null = null;
  viewport = new Viewport();
  /** False until the view was fitted once. */
  viewed = false;
  thumbnail = "";
  converting: Call<Conversion> | null = null;
  inspecting: Call<Inspection> | null = null;
  progress: Progress | null = null;
  usedAt = 0;
  /** The options for which the drawing was inspected. */
  inspectedFor = "";
  /** What the sheet was made from, to see whether its size has changed. */
  frameKey = "";

  constructor(
    readonly name: string,
    readonly source: Source | null,
    defaults: Partial<Choices> = {},
  ) {
    this.choices = {
      sheet: "whole",
      part: null,
      wholeTexts: false,
      turned: false,
      halfWidth: false,
      fit: false,
      asIs: false,
      denominator: 0,
      skipOffLayers: false,
      hiddenLayers: new Set(),
      hiddenLineTypes: new Set(),
      ...defaults,
    };
  }

  /** The choices that decide about the size of the sheet. */
  sheetOptions(): Options {
    const { sheet, fit, denominator, asIs } = this.choices;
    return { sheet: sheet === "part" ? "whole" : sheet, fit, denominator, format: asIs ? "as-is" : "auto" };
  }

  options(monochrome: boolean): Options {
    const { choices } = this;
    const part = choices.sheet === "part" ? choices.part : null;
    return {
      ...this.sheetOptions(),
      monochrome,
      halfWidth: choices.halfWidth,
      skipOffLayers: choices.skipOffLayers,
      hiddenLayers: [...choices.hiddenLayers],
      hiddenLineTypes: [...choices.hiddenLineTypes],
      turned: part === null && choices.turned,
      ...(part ? { sheet: "part" as const, part, wholeTexts: choices.wholeTexts } : {}),
    };
  }

  /** Units of the drawing for a hundredth of a millimetre of the sheet; 0 if unknown. */
  unitsPerHundredth(): number {
    const scale = this.inspection?.summary?.scale ?? 0;
    return Number.isFinite(scale) && scale > 0 ? scale / 100 : 0;
  }
}
