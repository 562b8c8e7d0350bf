// Lays out texts and paints them on a canvas. Characters are placed by the advances of the metafile.
import type { Face } from "./faces";
import { Across, Along, addPoint, emptyBox, screenPixel } from "./sheet";
import type { Box, Point, SheetFont, SheetText } from "./sheet";

/** Characters that the face itself advances as the metafile says. */
export interface TextRun {
  text: string;
  /** From the start of the text, along the baseline. */
  x: number;
}

/** A text in its own coordinates: x along the baseline, y downward, the place of the text at 0, 0. */
export interface TextLayout {
  runs: TextRun[];
  start: number;
  length: number;
  baseline: number;
  /** Height of the em; characters are as much wider as the stretch says. */
  em: number;
  stretch: number;
}

export interface PaintPlace {
  scale: number;
  x: number;
  y: number;
}

type Context = CanvasRenderingContext2D | OffscreenCanvasRenderingContext2D;

/** Characters are drawn at this size and scaled: so the font changes seldom. */
const drawnEm = 100;

function cssFont(font: SheetFont, family: string): string {
  const weight = font.weight > 0 && font.weight <= 1000 ? font.weight : 400;
  return `${font.italic ? "italic " : ""}${weight} ${drawnEm}px "${family}"`;
}

function sizeOf(face: Face, font: SheetFont): { em: number; stretch: number } {
  const cell = font.height === 0 ? 16 * screenPixel : font.height;
  const em = cell > 0 ? cell / (face.ascent + face.descent) : -cell;
  return { em, stretch: font.width === 0 ? 1 : font.width / (face.averageWidth * em) };
}

/** Joins characters to runs while the face's own advances stay within a fiftieth of the em. */
function runsOf(face: Face, text: SheetText, em: number, stretch: number): { runs: TextRun[]; length: number } {
  const runs: TextRun[] = [];
  let length = 0,
    drawn = 0,
    unit = 0;
  for (const character of text.text) {
    const last = runs[runs.length - 1],
      own = face.advanceOf(character.codePointAt(0)!) * em * stretch;
    if (last && Math.abs(drawn - length) < em / 50) last.text += character;
    else {
      runs.push({ text: character, x: length });
      drawn = length;
    }
    drawn += own;
    let advance = 0;
    for (let i = 0; i < character.length; ++i) advance += text.advances?.[unit + i] ?? 0;
    length += text.advances ? advance : own;
    unit += character.length;
  }
  return { runs, length };
}

export class TextPainter {
  private readonly layouts = new WeakMap<SheetText, TextLayout>();

  constructor(readonly face: Face) {}

  layout(text: SheetText): TextLayout {
    let layout = this.layouts.get(text);
    if (layout) return layout;
    const { face } = this,
      { em, stretch } = sizeOf(face, text.font);
    const { runs, length } = runsOf(face, text, em, stretch);
    const start = text.across === Across.centre ? -length / 2 : text.across === Across.right ? -length : 0;
    const baseline =
      text.along === Along.baseline ? 0 : text.along === Along.bottom ? -face.descent * em : face.ascent * em;
    layout = { runs, start, length, baseline, em, stretch };
    this.layouts.set(text, layout);
    return layout;
  }

  /** The corners of a text on the sheet, in order. */
  corners(text: SheetText): Point[] {
    const { start, length, baseline, em } = this.layout(text);
    const cos = Math.cos(text.angle),
      sin = Math.sin(text.angle);
    const top = baseline - this.face.ascent * em,
      bottom = baseline + this.face.descent * em;
    return [
      [start, top],
      [start + length, top],
      [start + length, bottom],
      [start, bottom],
    ].map(([x, y]) => ({
      x: text.x + x! * cos - y! * sin,
      y: text.y + x! * sin + y! * cos,
    }));
  }

  bounds(text: SheetText): Box {
    const box = emptyBox();
    for (const corner of this.corners(text)) addPoint(box, corner.x, corner.y);
    return box;
  }

  paint(context: Context, text: SheetText, place: PaintPlace, color: number): void {
    const layout = this.layout(text),
      pixels = layout.em * place.scale,
      least = 0.4,
      greek = 2;
    const wide = pixels * layout.stretch;
    if (color < 0 || !(pixels >= least) || !(wide > 0.05) || pixels > 20000 || wide > 20000) return;
    const cos = Math.cos(text.angle) * place.scale,
      sin = Math.sin(text.angle) * place.scale;
    context.save();
    if (text.clip) this.clip(context, text.clip, place);
    context.fillStyle = `#${color.toString(16).padStart(6, "0")}`;
    context.transform(cos, sin, -sin, cos, (text.x - place.x) * place.scale, (text.y - place.y) * place.scale);
    if (Math.max(pixels, wide) < greek) this.paintBar(context, layout);
    else this.paintRuns(context, text.font, layout);
    this.paintRules(context, text.font, layout);
    context.restore();
  }

  private clip(context: Context, boxes: readonly Box[], place: PaintPlace): void {
    context.beginPath();
    for (const box of boxes) {
      context.rect(
        (box.left - place.x) * place.scale,
        (box.top - place.y) * place.scale,
        (box.right - box.left) * place.scale,
        (box.bottom - box.top) * place.scale,
      );
    }
    context.clip();
  }

  /** A grey bar for a text that is too small to be read. */
  private paintBar(context: Context, layout: TextLayout): void {
    context.globalAlpha = 0.5;
    context.fillRect(layout.start, layout.baseline - layout.em * 0.6, layout.length, layout.em * 0.45);
    context.globalAlpha = 1;
  }

  private paintRuns(context: Context, font: SheetFont, layout: TextLayout): void {
    context.font = cssFont(font, this.face.family);
    context.textBaseline = "alphabetic";
    context.fontKerning = "none";
    const height = layout.em / drawnEm,
      width = height * layout.stretch;
    context.transform(width, 0, 0, height, layout.start, layout.baseline);
    for (const run of layout.runs) context.fillText(run.text, run.x / width, 0);
    context.transform(1 / width, 0, 0, 1 / height, -layout.start / width, -layout.baseline / height);
  }

  private paintRules(context: Context, font: SheetFont, layout: TextLayout): void {
    const { face } = this,
      thickness = layout.em * face.thickness;
    const rule = (y: number): void => context.fillRect(layout.start, y - thickness / 2, layout.length, thickness);
    if (font.underline) rule(layout.baseline + layout.em * face.underline);
    if (font.strikeOut) rule(layout.baseline - layout.em * face.strikeOut);
  }
}
