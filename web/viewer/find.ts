// Finds texts of a sheet. Half and full width, capitals and small letters are alike.
import type { TextPainter } from "./text_painter";
import type { Sheet, SheetText } from "./sheet";

/** Texts that follow each other on one baseline, which the drawing may have as one. */
interface Line {
  texts: number[];
  /** Without spaces. */
  plain: string;
}

export interface Hit {
  /** Indexes of the texts of a line. */
  texts: number[];
}

/** The form in which texts are compared: compatibility forms unified, no spaces. */
export function plainText(text: string): string {
  return text.normalize("NFKC").toLowerCase().replace(/\s+/gu, "");
}

/** Whether a text begins where another ends. */
function follows(painter: TextPainter, before: SheetText, after: SheetText): boolean {
  const first = painter.layout(before),
    second = painter.layout(after),
    angle = before.angle;
  if (Math.abs(angle - after.angle) > 1e-3 || Math.abs(first.em - second.em) > first.em / 10) return false;
  const endX = before.x + (first.start + first.length) * Math.cos(angle),
    endY = before.y + (first.start + first.length) * Math.sin(angle);
  const startX = after.x + second.start * Math.cos(angle),
    startY = after.y + second.start * Math.sin(angle);
  return Math.hypot(startX - endX, startY - endY) < first.em * 0.6;
}

const known = new WeakMap<Sheet, Line[]>();

function linesOf(sheet: Sheet, painter: TextPainter): Line[] {
  let lines = known.get(sheet);
  if (!lines) known.set(sheet, (lines = makeLines(sheet, painter)));
  return lines;
}

function makeLines(sheet: Sheet, painter: TextPainter): Line[] {
  const lines: Line[] = [];
  sheet.texts.forEach((text, index) => {
    const line = lines[lines.length - 1],
      before = sheet.texts[index - 1];
    if (line && before && follows(painter, before, text)) {
      line.texts.push(index);
      line.plain += plainText(text.text);
    } else {
      lines.push({ texts: [index], plain: plainText(text.text) });
    }
  });
  return lines;
}

/** Gives the lines of texts that have the wanted one, in the order of the drawing. */
export function findTexts(sheet: Sheet, painter: TextPainter, wanted: string): Hit[] {
  const plain = plainText(wanted);
  if (plain === "") return [];
  return linesOf(sheet, painter)
    .filter((line) => line.plain.includes(plain))
    .map((line) => narrow(sheet, line, plain));
}

/** The texts of a line that have the wanted one, without those before and after. */
function narrow(sheet: Sheet, line: Line, plain: string): Hit {
  const start = line.plain.indexOf(plain),
    end = start + plain.length;
  let at = 0;
  const texts = line.texts.filter((index) => {
    const from = at;
    at += plainText(sheet.texts[index]!.text).length;
    return from < end && at > start;
  });
  return { texts };
}
