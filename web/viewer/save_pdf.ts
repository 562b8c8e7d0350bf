// A sheet as PDF, at true size: strokes, and texts in a font that is in the file, so that they can be searched.
import { PdfFile, pdfText } from "./pdf_file";
import { dashLengths, heightOf, screenPixel, widthOf } from "./sheet";
import type { Pen, Sheet, SheetText } from "./sheet";
import type { TextPainter } from "./text_painter";
import type { TrueType } from "./ttf";
import { fileHairline, walkSheet } from "./vector_walk";
import type { VectorSink } from "./vector_walk";

const point = 72 / 2540;

function short(value: number, decimals = 2): string {
  return String(Number(value.toFixed(decimals)));
}

function rgb(color: number): string {
  return [color >> 16, color >> 8, color].map((part) => short((part & 255) / 255, 3)).join(" ");
}

class PdfSink implements VectorSink {
  readonly parts: string[] = [];
  /** Glyphs of the font with the characters that they show. */
  readonly used = new Map<number, number>();

  constructor(
    private readonly sheet: Sheet,
    private readonly painter: TextPainter,
    private readonly font: TrueType,
    private readonly textColorOf: (text: number) => number,
  ) {}

  begin(pen: Pen, color: number): void {
    const dashes = pen.width <= fileHairline ? dashLengths[pen.dash]! : [];
    const dash = dashes.map((length) => short(length * screenPixel)).join(" ");
    this.parts.push(
      `${rgb(color)} RG ${short(Math.max(pen.width, fileHairline))} w [${dash}] 0 d ${dashes.length > 0 ? 0 : 1} J`,
    );
  }

  move(x: number, y: number): void {
    this.parts.push(`${short(x)} ${short(y)} m`);
  }

  line(x: number, y: number): void {
    this.parts.push(`${short(x)} ${short(y)} l`);
  }

  curve(...numbers: number[]): void {
    this.parts.push(`${numbers.map((value) => short(value)).join(" ")} c`);
  }

  end(): void {
    this.parts.push("S");
  }

  fill(corners: readonly number[], color: number): void {
    const [x0, y0, x1, y1, x2, y2, x3, y3] = corners.map((value) => short(value));
    this.parts.push(`${rgb(color)} rg ${x0} ${y0} m ${x1} ${y1} l ${x2} ${y2} l ${x3} ${y3} l f`);
  }

  text(index: number): void {
    const text = this.sheet.texts[index]!,
      color = this.textColorOf(index),
      layout = this.painter.layout(text);
    if (color < 0 || layout.em <= 0) return;
    const cos = Math.cos(text.angle),
      sin = Math.sin(text.angle),
      width = layout.em * layout.stretch;
    this.parts.push(`BT ${rgb(color)} rg /F 1 Tf${boldness(text, layout.em, color)}`);
    for (const run of layout.runs) {
      const along = layout.start + run.x,
        down = layout.baseline;
      const x = text.x + along * cos - down * sin,
        y = text.y + along * sin + down * cos;
      const slant = text.font.italic ? 0.2 : 0;
      const across = { x: slant * width * cos + layout.em * sin, y: slant * width * sin - layout.em * cos };
      this.parts.push(
        `${short(width * cos, 4)} ${short(width * sin, 4)} ${short(across.x, 4)} ${short(across.y, 4)} ` +
          `${short(x)} ${short(y)} Tm <${this.glyphs(run.text)}> Tj`,
      );
    }
    this.parts.push("ET");
    this.rules(text, color, cos, sin);
  }

  private glyphs(text: string): string {
    let hex = "";
    for (const character of text) {
      const codePoint = character.codePointAt(0)!,
        glyph = this.font.glyphOf(codePoint);
      this.used.set(glyph, codePoint);
      hex += glyph.toString(16).padStart(4, "0");
    }
    return hex;
  }

  private rules(text: SheetText, color: number, cos: number, sin: number): void {
    const { face } = this.painter,
      { start, length, baseline, em } = this.painter.layout(text);
    const rule = (y: number): void => {
      const half = (face.thickness * em) / 2;
      const corners = [
        [start, y - half],
        [start + length, y - half],
        [start + length, y + half],
        [start, y + half],
      ];
      this.fill(
        corners.flatMap(([a, b]) => [text.x + a! * cos - b! * sin, text.y + a! * sin + b! * cos]),
        color,
      );
    };
    if (text.font.underline) rule(baseline + em * face.underline);
    if (text.font.strikeOut) rule(baseline - em * face.strikeOut);
  }
}

/** Bold texts are drawn with an outline, as the font has one weight. */
function boldness(text: SheetText, em: number, color: number): string {
  return text.font.weight >= 600 ? ` 2 Tr ${rgb(color)} RG ${short(em / 40)} w [] 0 d` : " 0 Tr";
}

async function addFont(file: PdfFile, font: TrueType, used: ReadonlyMap<number, number>): Promise<number> {
  const thousand = (value: number): number => Math.round(1000 * value),
    measures = font.measures();
  const box = font
    .box()
    .map((value) => thousand(value / font.unitsPerEm))
    .join(" ");
  const subset = font.subset(used.keys());
  const program = await file.addStream(subset, `/Length1 ${subset.length} `);
  const name = "/HEXLUM+HexlumeSheet";
  const descriptor = file.add(
    `<< /Type /FontDescriptor /FontName ${name} /Flags 4 /FontBBox [${box}] /ItalicAngle 0 ` +
      `/Ascent ${thousand(measures.ascent)} /Descent ${-thousand(measures.descent)} /CapHeight 700 /StemV 80 ` +
      `/FontFile2 ${program} 0 R >>`,
  );
  const widths = [...used.keys()].sort((a, b) => a - b).map((glyph) => `${glyph} [${thousand(font.advanceOf(glyph))}]`);
  const descendant = file.add(
    `<< /Type /Font /Subtype /CIDFontType2 /BaseFont ${name} /CIDToGIDMap /Identity /DW 1000 ` +
      `/CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >> /FontDescriptor ${descriptor} 0 R ` +
      `/W [${widths.join(" ")}] >>`,
  );
  const unicode = await file.addStream(new TextEncoder().encode(characterMap(used)));
  return file.add(
    `<< /Type /Font /Subtype /Type0 /BaseFont ${name} /Encoding /Identity-H ` +
      `/DescendantFonts [${descendant} 0 R] /ToUnicode ${unicode} 0 R >>`,
  );
}

/** What the glyphs mean, for searching and copying. */
function characterMap(used: ReadonlyMap<number, number>): string {
  const lines = [...used].map(([glyph, codePoint]) => {
    const text = String.fromCodePoint(codePoint);
    const units = Array.from({ length: text.length }, (_, i) => text.charCodeAt(i).toString(16).padStart(4, "0"));
    return `<${glyph.toString(16).padStart(4, "0")}> <${units.join("")}>`;
  });
  const blocks: string[] = [],
    most = 100;
  for (let i = 0; i < lines.length; i += most) {
    const block = lines.slice(i, i + most);
    blocks.push(`${block.length} beginbfchar\n${block.join("\n")}\nendbfchar`);
  }
  return (
    "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n" +
    "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n/CMapName /Adobe-Identity-UCS def\n" +
    "/CMapType 2 def\n1 begincodespacerange\n<0000> <ffff>\nendcodespacerange\n" +
    `${blocks.join("\n")}\nendcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n`
  );
}

export async function sheetAsPdf(
  sheet: Sheet,
  painter: TextPainter,
  font: TrueType,
  title: string,
  colorOf: (item: number) => number,
  textColorOf: (text: number) => number,
): Promise<Uint8Array> {
  const file = new PdfFile(),
    sink = new PdfSink(sheet, painter, font, textColorOf);
  walkSheet(sheet, colorOf, sink);
  // Pages of more than 200 inches have a larger unit.
  const most = 14400,
    width = widthOf(sheet.frame) * point,
    height = heightOf(sheet.frame) * point;
  const unit = Math.max(1, Math.ceil(Math.max(width, height) / most)),
    scale = point / unit;
  const start = `q ${short(scale, 8)} 0 0 ${short(-scale, 8)} 0 ${short(height / unit, 4)} cm 1 j\n`;
  const content = await file.addStream(new TextEncoder().encode(`${start}${sink.parts.join("\n")}\nQ\n`));
  const fonts = sink.used.size > 0 ? `/Font << /F ${await addFont(file, font, sink.used)} 0 R >>` : "";
  const pages = file.reserve();
  const page = file.add(
    `<< /Type /Page /Parent ${pages} 0 R /MediaBox [0 0 ${short(width / unit, 4)} ${short(height / unit, 4)}]` +
      `${unit > 1 ? ` /UserUnit ${unit}` : ""} /Contents ${content} 0 R /Resources << ${fonts} >> >>`,
  );
  file.put(pages, `<< /Type /Pages /Kids [${page} 0 R] /Count 1 >>`);
  const info = file.add(`<< /Title ${pdfText(title)} /Producer (Hexlume) >>`);
  const root = file.add(
    `<< /Type /Catalog /Pages ${pages} 0 R /ViewerPreferences << /PrintScaling /None /DisplayDocTitle true >> >>`,
  );
  return file.finish(root, info);
}
