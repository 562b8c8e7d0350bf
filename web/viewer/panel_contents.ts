// What is in the drawing, and why its sheet may be empty.
import type { Box as DrawingBox, Entities, Inspection } from "../library/protocol";
import { button, element } from "./dom";
import type { Desk, Panel } from "./desk";
import { overlaps } from "./sheet";
import type { Tab } from "./tab";
import { numberText, sentenceOf, t } from "./texts";
import type { TextKey } from "./texts";

interface KindRow {
  kind: string;
  count: number;
  inBlocks: number;
  drawn: boolean;
  drawnInBlocks: boolean;
}

export function kindsOf(entities: readonly Entities[]): KindRow[] {
  const kinds = new Map<string, KindRow>();
  for (const { kind, count, countInBlocks, drawn, drawnInBlocks } of entities) {
    const row = kinds.get(kind) ?? { kind, count: 0, inBlocks: 0, drawn, drawnInBlocks };
    row.count += count;
    row.inBlocks += countInBlocks;
    kinds.set(kind, row);
  }
  return [...kinds.values()].sort((a, b) => b.count + b.inBlocks - a.count - a.inBlocks);
}

/** Whether anything that is drawn can be seen on the sheet. */
function isEmpty(tab: Tab): boolean {
  const { sheet } = tab;
  if (!sheet) return false;
  const seen = sheet.count > 0 && overlaps(sheet.bounds, sheet.frame);
  return !seen && !sheet.texts.some(({ x, y }) => overlaps({ left: x, top: y, right: x, bottom: y }, sheet.frame));
}

/** The reason for an empty sheet, and whether measuring it from the entities may help. */
export function whyEmpty(tab: Tab): { text: string; measure: boolean } | null {
  const { inspection, sheet, choices } = tab;
  if (!inspection || !sheet || !isEmpty(tab)) return null;
  const kinds = kindsOf(inspection.entities),
    placed = kinds.filter((row) => row.count > 0);
  const drawn = placed.filter((row) => row.drawn);
  const say = (key: TextKey, ...values: string[]): { text: string; measure: boolean } => ({
    text: t(key, ...values),
    measure: false,
  });
  if (sheet.count > 0 || sheet.texts.length > 0) return { text: t("emptyOutside"), measure: !choices.fit };
  if (kinds.length === 0) return say("emptyNoEntities");
  if (placed.length === 0) return say("emptyOnlyBlocks");
  if (drawn.length === 0) return say("emptyNeverDrawn", placed.map((row) => row.kind).join(", "));
  const hides = choices.hiddenLayers.size + choices.hiddenLineTypes.size > 0 || choices.skipOffLayers;
  if (hides) return say("emptyHidden");
  // The library leaves out what is far from the sheet.
  return choices.fit ? say("emptyOther") : { text: t("emptyOutside"), measure: true };
}

export class ContentsPanel implements Panel {
  readonly element = element("div", { class: "panel-body", tabindex: -1 });

  constructor(private readonly desk: Desk) {}

  focus(): void {
    this.element.focus();
  }

  update(): void {
    const { tab } = this.desk,
      inspection = tab?.inspection;
    if (!tab || !inspection) {
      this.element.replaceChildren(element("p", { class: "hint" }, t("notRead")));
      return;
    }
    this.element.replaceChildren();
    this.addEmpty(tab);
    this.addSummary(tab, inspection);
    this.addRemarks(tab, inspection);
    this.addKinds(inspection);
    this.addNames(inspection);
  }

  private addEmpty(tab: Tab): void {
    const why = whyEmpty(tab);
    if (!why) return;
    const box = element(
      "div",
      { class: "notice", id: "why-empty" },
      element("h3", {}, t("whyEmpty")),
      element("p", {}, why.text),
    );
    if (why.measure) {
      box.append(
        button(
          t("measureNow"),
          () => {
            tab.choices.fit = true;
            this.desk.convertAgain();
          },
          { id: "measure-now" },
        ),
      );
    }
    this.element.append(box);
  }

  private addSummary(tab: Tab, inspection: Inspection): void {
    const { summary } = inspection,
      rows: [TextKey, string][] = [["file", tab.name]];
    const sheet = tab.conversion ?? inspection;
    if (summary) {
      const box = (corners: DrawingBox): string => corners.map((value) => numberText(value, 3)).join(", ");
      rows.push(["version", summary.version || "–"]);
      rows.push(["sheetSize", `${numberText(sheet.sheetWidth / 100)} × ${numberText(sheet.sheetHeight / 100)} mm`]);
      rows.push([
        "scale",
        t("unitsPerMm", numberText(summary.scale, 6)) +
          (summary.denominator > 1 ? ` (${t("beyondA0", summary.denominator)})` : ""),
      ]);
      if (summary.limits) rows.push(["limits", box(summary.limits)]);
      if (summary.extents) rows.push(["extents", box(summary.extents)]);
    }
    if (tab.conversion) rows.push(["strokes", numberText(tab.conversion.strokes)]);
    if (tab.sheet) rows.push(["textsDrawn", numberText(tab.sheet.texts.length)]);
    const list = element("dl", { id: "summary" });
    for (const [key, value] of rows) list.append(element("dt", {}, t(key)), element("dd", {}, value));
    this.element.append(list);
  }

  private addRemarks(tab: Tab, inspection: Inspection): void {
    const remarks = [...(tab.conversion?.remarks ?? []), ...inspection.remarks];
    const sentences = new Set(remarks.map((remark) => sentenceOf(remark.sentence)));
    if (inspection.status !== "ok") sentences.add(sentenceOf(inspection.sentence));
    if (sentences.size === 0) return;
    this.element.append(
      element("h3", {}, t("remarks")),
      element("ul", { id: "remarks" }, ...[...sentences].map((text) => element("li", {}, text))),
    );
  }

  private addKinds(inspection: Inspection): void {
    const body = element("tbody");
    for (const row of kindsOf(inspection.entities)) {
      const notes: string[] = [];
      if (!row.drawn && !row.drawnInBlocks) notes.push(t("neverDrawn"));
      else if (!row.drawn && row.count > 0) notes.push(t("onlyInBlocks"));
      else if (!row.drawnInBlocks && row.inBlocks > 0) notes.push(t("notInBlocks"));
      body.append(
        element(
          "tr",
          { class: notes.length > 0 ? "undrawn" : "" },
          element("td", {}, row.kind, ...notes.map((note) => element("small", {}, note))),
          element("td", {}, numberText(row.count)),
          element("td", {}, row.inBlocks > 0 ? numberText(row.inBlocks) : ""),
        ),
      );
    }
    const head = element(
      "thead",
      {},
      element("tr", {}, element("th", {}, t("kind")), element("th", {}, t("count")), element("th", {}, t("inBlocks"))),
    );
    this.element.append(element("h3", {}, t("entities")), element("table", { id: "kinds" }, head, body));
  }

  private addNames(inspection: Inspection): void {
    const add = (key: TextKey, names: string[]): void => {
      if (names.length === 0) return;
      this.element.append(
        element(
          "details",
          {},
          element("summary", {}, `${t(key)} (${names.length})`),
          element("p", { class: "names" }, names.join(", ")),
        ),
      );
    };
    add(
      "blocks",
      inspection.blocks.map((block) => `${block.name} (${block.entities})`),
    );
    add(
      "lineTypes",
      inspection.lineTypes.map((type) => type.name),
    );
    add("dimStyles", inspection.dimStyles);
  }
}
