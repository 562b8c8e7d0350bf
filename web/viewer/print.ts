// Prints at true scale: pages of vectors with sizes in millimetres.
import { element } from "./dom";
import { svgContent } from "./save_svg";
import { heightOf, widthOf } from "./sheet";
import type { Sheet } from "./sheet";
import type { TextPainter } from "./text_painter";
import { t } from "./texts";

export interface Paper {
  name: string;
  /** In millimetres, upright. */
  width: number;
  height: number;
}

export const papers: readonly Paper[] = [
  { name: "A4", width: 210, height: 297 },
  { name: "A3", width: 297, height: 420 },
  { name: "A2", width: 420, height: 594 },
  { name: "A1", width: 594, height: 841 },
  { name: "A0", width: 841, height: 1189 },
  { name: "Letter", width: 215.9, height: 279.4 },
];

export interface PrintPlan {
  /** Of a page, in millimetres. */
  width: number;
  height: number;
  /** 1 is true scale. */
  factor: number;
  columns: number;
  rows: number;
}

/** How a sheet comes on paper. @param paper  null: paper as large as the sheet */
export function planPrint(sheet: Sheet, paper: Paper | null, landscape: boolean, fit: boolean): PrintPlan {
  const width = widthOf(sheet.frame) / 100,
    height = heightOf(sheet.frame) / 100;
  if (!paper) return { width, height, factor: 1, columns: 1, rows: 1 };
  const page = landscape ? { width: paper.height, height: paper.width } : paper;
  if (fit)
    return {
      width: page.width,
      height: page.height,
      factor: Math.min(page.width / width, page.height / height),
      columns: 1,
      rows: 1,
    };
  const pages = (size: number, of: number): number => Math.max(1, Math.ceil(size / of - 1e-3));
  return {
    width: page.width,
    height: page.height,
    factor: 1,
    columns: pages(width, page.width),
    rows: pages(height, page.height),
  };
}

const ruler = ((): string => {
  const ticks = Array.from(
    { length: 101 },
    (_, mm) => `M${mm} 0v${mm % 10 === 0 ? -4 : mm % 5 === 0 ? -3 : -1.8}`,
  ).join("");
  const numbers = Array.from(
    { length: 11 },
    (_, i) => `<text x="${i * 10}" y="-5" text-anchor="middle">${i * 10}</text>`,
  ).join("");
  return `<g font-family="sans-serif" font-size="3" fill="#000"><path d="M0 0H100${ticks}" fill="none" stroke="#000" stroke-width=".1"/>${numbers}</g>`;
})();

function svgPage(width: number, height: number, content: string): HTMLElement {
  const page = element("section", { class: "print-page", style: `width:${width}mm;height:${height}mm` });
  page.innerHTML = `<svg xmlns="http://www.w3.org/2000/svg" width="${width}mm" height="${height}mm" viewBox="0 0 ${width} ${height}">${content}</svg>`;
  return page;
}

function printPages(width: number, height: number, pages: HTMLElement[]): void {
  const holder = element("div", { id: "print" }, ...pages);
  const style = element("style", {}, `@page { size: ${width}mm ${height}mm; margin: 0 }`);
  document.getElementById("print")?.remove();
  document.body.append(holder);
  holder.append(style);
  const finish = (): void => holder.remove();
  window.addEventListener("afterprint", finish, { once: true });
  window.print();
}

export function printSheet(
  sheet: Sheet,
  painter: TextPainter,
  plan: PrintPlan,
  withRuler: boolean,
  colorOf: (item: number) => number,
  textColorOf: (text: number) => number,
): void {
  const content = svgContent(sheet, painter, colorOf, textColorOf, painter.face.family);
  const pages: HTMLElement[] = [],
    scale = plan.factor / 100;
  for (let row = 0; row < plan.rows; ++row) {
    for (let column = 0; column < plan.columns; ++column) {
      const first = pages.length === 0;
      // The shapes are in the document once.
      const shapes = first ? `<g id="print-shapes">${content}</g>` : '<use href="#print-shapes"/>';
      const place = `translate(${-column * plan.width} ${-row * plan.height}) scale(${scale})`;
      const measure = withRuler && first ? `<g transform="translate(10 ${plan.height - 8})">${ruler}</g>` : "";
      pages.push(svgPage(plan.width, plan.height, `<g transform="${place}">${shapes}</g>${measure}`));
    }
  }
  printPages(plan.width, plan.height, pages);
}

/** A page that shows whether a printer keeps the scale. */
export function printTestPage(): void {
  const { width, height } = papers[0]!;
  const page = svgPage(
    width,
    height,
    `<g transform="translate(55 60)">${ruler}</g>` +
      `<g transform="translate(40 240) rotate(-90)">${ruler}</g><rect x="55" y="90" width="100" height="100" fill="none" stroke="#000" stroke-width=".2"/>`,
  );
  page.append(element("p", {}, t("testPageText")));
  printPages(width, height, [page]);
}
