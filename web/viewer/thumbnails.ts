// Small pictures of drawings for their tabs.
import { colourRules } from "./scene";
import { paintPicture } from "./save_png";
import { heightOf, widthOf } from "./sheet";
import type { Tab } from "./tab";
import type { TextPainter } from "./text_painter";

const width = 96,
  height = 60;
/** Of more strokes only some are drawn. */
const mostStrokes = 15000;

export function makeThumbnail(tab: Tab, painter: TextPainter): string {
  const sheet = tab.sheet!,
    rules = colourRules(tab, "drawn"),
    every = Math.ceil(sheet.count / mostStrokes);
  const scale = Math.min(width / Math.max(1, widthOf(sheet.frame)), height / Math.max(1, heightOf(sheet.frame)));
  const colorOf = (item: number): number => (item % every === 0 ? rules.colorOf(item) : -1);
  const canvas = paintPicture(
    sheet,
    painter,
    scale * Math.min(2, window.devicePixelRatio || 1),
    0xffffff,
    colorOf,
    rules.textColorOf,
  );
  const url = canvas.toDataURL("image/png");
  canvas.width = canvas.height = 0;
  return url;
}
