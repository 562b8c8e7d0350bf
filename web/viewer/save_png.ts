// A sheet as a picture of so many dots per inch.
import { cssColor, paintSheet } from "./canvas_paint";
import { heightOf, widthOf } from "./sheet";
import type { Sheet } from "./sheet";
import type { TextPainter } from "./text_painter";

/** What browsers make of a canvas. */
const mostPixels = 120e6,
  longestSide = 16000;

export interface Picture {
  blob: Blob;
  /** Less than was asked for if the picture were too large. */
  dpi: number;
}

/** The resolution that a browser can make of a sheet. */
export function possibleDpi(sheet: Sheet, dpi: number): number {
  const width = widthOf(sheet.frame) / 2540,
    height = heightOf(sheet.frame) / 2540;
  return Math.floor(Math.min(dpi, longestSide / width, longestSide / height, Math.sqrt(mostPixels / (width * height))));
}

export function paintPicture(
  sheet: Sheet,
  painter: TextPainter,
  scale: number,
  paper: number,
  colorOf: (item: number) => number,
  textColorOf: (text: number) => number,
): HTMLCanvasElement {
  const canvas = document.createElement("canvas");
  canvas.width = Math.max(1, Math.round(widthOf(sheet.frame) * scale));
  canvas.height = Math.max(1, Math.round(heightOf(sheet.frame) * scale));
  const context = canvas.getContext("2d", { alpha: false })!;
  context.fillStyle = cssColor(paper);
  context.fillRect(0, 0, canvas.width, canvas.height);
  paintSheet(context, sheet, {
    scale,
    x: 0,
    y: 0,
    box: sheet.frame,
    hairline: 1,
    colorOf,
    textColorOf,
    texts: painter,
  });
  return canvas;
}

export async function sheetAsPng(
  sheet: Sheet,
  painter: TextPainter,
  wantedDpi: number,
  colorOf: (item: number) => number,
  textColorOf: (text: number) => number,
): Promise<Picture> {
  const dpi = possibleDpi(sheet, wantedDpi);
  const canvas = paintPicture(sheet, painter, dpi / 2540, 0xffffff, colorOf, textColorOf);
  const blob = await new Promise<Blob | null>((settle) => canvas.toBlob(settle, "image/png"));
  canvas.width = canvas.height = 0;
  if (!blob) throw new Error("the browser made no picture");
  return { blob: await withResolution(blob, dpi), dpi };
}

/** Adds the resolution to a PNG file: a chunk pHYs after the header. */
async function withResolution(blob: Blob, dpi: number): Promise<Blob> {
  const bytes = new Uint8Array(await blob.arrayBuffer()),
    headerEnd = 33;
  const chunk = new DataView(new ArrayBuffer(21)),
    perMetre = Math.round(dpi / 0.0254);
  chunk.setUint32(0, 9);
  chunk.setUint32(4, 0x70485973);
  chunk.setUint32(8, perMetre);
  chunk.setUint32(12, perMetre);
  chunk.setUint8(16, 1);
  chunk.setUint32(17, crc(new Uint8Array(chunk.buffer, 4, 13)));
  return new Blob([bytes.slice(0, headerEnd), chunk.buffer, bytes.slice(headerEnd)], { type: "image/png" });
}

function crc(bytes: Uint8Array): number {
  let value = 0xffffffff;
  for (const byte of bytes) {
    value ^= byte;
    for (let bit = 0; bit < 8; ++bit) value = value & 1 ? (value >>> 1) ^ 0xedb88320 : value >>> 1;
  }
  return ~value >>> 0;
}
