// Layers and line types that are drawn. A change converts anew.
import type { Layer, LineTypeFamily } from "../library/protocol";
import { button, checkbox, element } from "./dom";
import type { Desk, Panel } from "./desk";
import { plainText } from "./find";
import type { Tab } from "./tab";
import { t } from "./texts";
import type { TextKey } from "./texts";

const families: readonly (readonly [LineTypeFamily, TextKey])[] = [
  ["solid", "solid"],
  ["dashed", "dashed"],
  ["dotted", "dotted"],
  ["chain", "chain"],
  ["double-chain", "doubleChain"],
];

/** Colour numbers 1 to 7 of a drawing; others are shown in grey. */
const colours = ["", "#e00000", "#c8b400", "#00a000", "#00a8b8", "#0030e0", "#c000c0", "#202020"];

export class LayersPanel implements Panel {
  readonly element = element("div", { class: "panel-body" });
  private readonly search = element("input", { type: "search", id: "layer-search" });
  private readonly list = element("div", { class: "list", id: "layer-list" });
  private wait = 0;

  constructor(private readonly desk: Desk) {
    this.search.placeholder = t("searchLayers");
    this.search.setAttribute("aria-label", t("searchLayers"));
    this.search.addEventListener("input", () => this.fillList());
  }

  focus(): void {
    this.search.focus();
  }

  update(): void {
    const { tab } = this.desk;
    if (!tab?.inspection) {
      this.element.replaceChildren(element("p", { class: "hint" }, t("notRead")));
      return;
    }
    const line = element(
      "div",
      { class: "row" },
      button(t("all"), () => this.set(() => true), { id: "layers-all" }),
      button(t("none"), () => this.set(() => false), { id: "layers-none" }),
      button(t("invert"), () => this.set((_, shown) => !shown), { id: "layers-invert" }),
    );
    const types = element("fieldset", { id: "line-types" }, element("legend", {}, t("lineTypes")));
    for (const [family, key] of families) {
      types.append(
        checkbox(t(key), !tab.choices.hiddenLineTypes.has(family), (shown) => this.setFamily(tab, family, shown), {
          value: family,
        }),
      );
    }
    const skip = checkbox(
      t("skipOff"),
      tab.choices.skipOffLayers,
      (checked) => {
        tab.choices.skipOffLayers = this.desk.settings.skipOffLayers = checked;
        this.desk.keepSettings();
        this.convertSoon();
      },
      { id: "skip-off" },
    );
    const types2 = element(
      "div",
      { class: "row" },
      button(t("all"), () => this.setFamilies(tab, () => true), { id: "types-all" }),
      button(t("none"), () => this.setFamilies(tab, () => false), { id: "types-none" }),
      button(t("invert"), () => this.setFamilies(tab, (family) => tab.choices.hiddenLineTypes.has(family)), {
        id: "types-invert",
      }),
    );
    types.append(types2);
    this.element.replaceChildren(this.search, line, this.list, skip, types);
    this.fillList();
  }

  private fillList(): void {
    const { tab } = this.desk;
    if (!tab?.inspection) return;
    const counts = new Map<string, number>();
    for (const row of tab.inspection.entities)
      counts.set(row.layer, (counts.get(row.layer) ?? 0) + row.count + row.countInBlocks);
    const rows = this.found(tab).map((layer) => this.row(tab, layer, counts.get(layer.name) ?? 0));
    this.list.replaceChildren(...(rows.length > 0 ? rows : [element("p", { class: "hint" }, t("noLayersShown"))]));
  }

  private found(tab: Tab): Layer[] {
    const wanted = plainText(this.search.value);
    return tab.inspection!.layers.filter((layer) => plainText(layer.name).includes(wanted));
  }

  private row(tab: Tab, layer: Layer, count: number): HTMLElement {
    const shown = !tab.choices.hiddenLayers.has(layer.name);
    const label = checkbox(
      layer.name,
      shown,
      (checked) => {
        if (checked) tab.choices.hiddenLayers.delete(layer.name);
        else tab.choices.hiddenLayers.add(layer.name);
        this.convertSoon();
      },
      { value: layer.name },
    );
    const swatch = element("i", { class: "swatch", style: `background:${colours[Math.abs(layer.color)] ?? "#888"}` });
    label.insertBefore(swatch, label.lastChild);
    label.title = `${layer.name} · ${layer.lineType} · ${t("entityCount", count)}`;
    label.append(element("small", {}, layer.shown ? String(count) : `${t("off")} ${count}`));
    return label;
  }

  /** Changes the layers that are listed, so that a search narrows what "all" means. */
  private set(wanted: (layer: Layer, shown: boolean) => boolean): void {
    const { tab } = this.desk;
    if (!tab?.inspection) return;
    const { hiddenLayers } = tab.choices;
    for (const layer of this.found(tab)) {
      if (wanted(layer, !hiddenLayers.has(layer.name))) hiddenLayers.delete(layer.name);
      else hiddenLayers.add(layer.name);
    }
    this.fillList();
    this.convertSoon();
  }

  private setFamily(tab: Tab, family: LineTypeFamily, shown: boolean): void {
    if (shown) tab.choices.hiddenLineTypes.delete(family);
    else tab.choices.hiddenLineTypes.add(family);
    this.convertSoon();
  }

  private setFamilies(tab: Tab, wanted: (family: LineTypeFamily) => boolean): void {
    const shown = families.filter(([family]) => wanted(family)).map(([family]) => family);
    tab.choices.hiddenLineTypes = new Set(
      families.map(([family]) => family).filter((family) => !shown.includes(family)),
    );
    for (const input of this.element.querySelectorAll<HTMLInputElement>("#line-types input")) {
      input.checked = shown.includes(input.value as LineTypeFamily);
    }
    this.convertSoon();
  }

  /** Several clicks in a row convert once. */
  private convertSoon(): void {
    clearTimeout(this.wait);
    this.wait = window.setTimeout(() => this.desk.convertAgain(), 120);
  }
}
