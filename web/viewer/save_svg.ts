// A sheet as SVG, with its size in millimetres.
import { cssColor } from "./canvas_paint";
import type { TextPainter } from "./text_painter";
import { fileHairline, walkSheet } from "./vector_walk";
import type { VectorSink } from "./vector_walk";
import { dashLengths, heightOf, screenPixel, widthOf } from "./sheet";
import type { Pen, Sheet, SheetText } from "./sheet";

function short(value: number): string {
  return String(Math.round(value * 100) / 100);
}

function escaped(text: string): string {
  // Characters that XML doesn't allow are left out.
  const allowed = text.replace(/[\u0000-\u0008\u000b\u000c\u000e-\u001f\ufffe\uffff]/gu, "");
  return allowed.replace(/[&<>"]/g, (character) => `&#${character.charCodeAt(0)};`);
}

const fileFamilies = "'ＭＳ ゴシック','MS Gothic',IPAGothic,'Noto Sans Mono CJK JP',monospace";

class SvgSink implements VectorSink {
  readonly parts: string[] = [];
  private path: string[] = [];

  private open = "";

  constructor(
    private readonly sheet: Sheet,
    private readonly painter: TextPainter,
    private readonly textColorOf: (text: number) => number,
    private readonly family: string,
  ) {}

  begin(pen: Pen, color: number): void {
    const width = Math.max(pen.width, fileHairline),
      dashes = pen.width <= fileHairline ? dashLengths[pen.dash]! : [];
    const dash =
      dashes.length > 0
        ? ` stroke-dasharray="${dashes.map((length) => short(length * screenPixel)).join(" ")}" stroke-linecap="butt"`
        : "";
    this.open = `<path stroke="${cssColor(color)}" stroke-width="${short(width)}"${dash} d="`;
    this.path = [];
  }

  move(x: number, y: number): void {
    this.path.push(`M${short(x)} ${short(y)}`);
  }

  line(x: number, y: number): void {
    this.path.push(`L${short(x)} ${short(y)}`);
  }

  curve(...numbers: number[]): void {
    this.path.push(`C${numbers.map(short).join(" ")}`);
  }

  end(): void {
    this.parts.push(`${this.open}${this.path.join("")}"/>`);
  }

  fill(corners: readonly number[], color: number): void {
    this.parts.push(`<polygon stroke="none" fill="${cssColor(color)}" points="${corners.map(short).join(" ")}"/>`);
  }

  text(index: number): void {
    const text = this.sheet.texts[index]!,
      layout = this.painter.layout(text),
      color = this.textColorOf(index);
    if (color < 0 || layout.em <= 0 || text.text.trim() === "") return;
    const degrees = (text.angle * 180) / Math.PI;
    const transform =
      `translate(${short(text.x)} ${short(text.y)}) rotate(${short(degrees)}) ` +
      `translate(${short(layout.start)} ${short(layout.baseline)}) scale(${layout.stretch.toFixed(5)} 1)`;
    const places = this.places(text, layout.stretch);
    this.parts.push(
      `<text transform="${transform}" x="${places}" font-family="${this.family}" font-size="${short(layout.em)}"` +
        `${styleOf(text)} fill="${cssColor(color)}" stroke="none" xml:space="preserve">${escaped(text.text)}</text>`,
    );
  }

  /** The place of each character, in the stretched coordinates. */
  private places(text: SheetText, stretch: number): string {
    const { em } = this.painter.layout(text),
      places: string[] = [];
    let x = 0,
      unit = 0;
    for (const character of text.text) {
      places.push(short(x / stretch));
      const own = this.painter.face.advanceOf(character.codePointAt(0)!) * em * stretch;
      for (let i = 0; i < character.length; ++i) x += text.advances ? text.advances[unit + i]! : i === 0 ? own : 0;
      unit += character.length;
    }
    return places.join(" ");
  }
}

function styleOf({ font }: SheetText): string {
  const decorations = [font.underline && "underline", font.strikeOut && "line-through"].filter(Boolean).join(" ");
  return (
    (font.italic ? ' font-style="italic"' : "") +
    (font.weight > 400 ? ` font-weight="${font.weight}"` : "") +
    (decorations === "" ? "" : ` text-decoration="${decorations}"`)
  );
}

/** The shapes, without the element around them. */
export function svgContent(
  sheet: Sheet,
  painter: TextPainter,
  colorOf: (item: number) => number,
  textColorOf: (text: number) => number,
  ownFamily = "",
): string {
  const family = ownFamily === "" ? fileFamilies : `'${ownFamily}',${fileFamilies}`;
  const sink = new SvgSink(sheet, painter, textColorOf, family);
  walkSheet(sheet, colorOf, sink);
  return `<g fill="none" stroke-linecap="round" stroke-linejoin="round">${sink.parts.join("\n")}</g>`;
}

export function sheetAsSvg(
  sheet: Sheet,
  painter: TextPainter,
  colorOf: (item: number) => number,
  textColorOf: (text: number) => number,
): string {
  const width = widthOf(sheet.frame),
    height = heightOf(sheet.frame);
  return (
    `<?xml version="1.0" encoding="UTF-8"?>\n<svg xmlns="http://www.w3.org/2000/svg" width="${short(width / 100)}mm" ` +
    `height="${short(height / 100)}mm" viewBox="0 0 ${short(width)} ${short(height)}">\n` +
    `<rect width="100%" height="100%" fill="#fff"/>\n${svgContent(sheet, painter, colorOf, textColorOf)}\n</svg>\n`
  );
}
