// Tools for measuring, and what was measured.
import { button, checkbox, element, icon } from "./dom";
import type { IconName } from "./dom";
import type { Desk, Panel } from "./desk";
import { Segments } from "./segments";
import type { Sheet } from "./sheet";
import type { Tab } from "./tab";
import { numberText, t } from "./texts";
import type { TextKey } from "./texts";
import { lengthOf, measuredText, MeasureTool, paintMeasured } from "./tool_measure";
import type { Measured, MeasureHost, MeasureKind } from "./tool_measure";

const kinds: readonly (readonly [MeasureKind, TextKey, IconName])[] = [
  ["distance", "distance", "distance"],
  ["angle", "angle", "angle"],
  ["area", "area", "area"],
];

export class MeasurePanel implements Panel, MeasureHost {
  readonly element: HTMLElement;
  private readonly live = element("output", { id: "measure-live" });
  private readonly list = element("div", { class: "list", id: "measure-list" });
  private readonly tools = element("div", { class: "row tools" });
  private readonly unit = element("p", { class: "hint" });
  private readonly measured = new WeakMap<Tab, Measured[]>();
  private readonly grids = new WeakMap<Sheet, Segments>();
  private readonly snap: HTMLLabelElement;

  constructor(private readonly desk: Desk) {
    for (const [kind, key, name] of kinds) {
      this.tools.append(
        element(
          "button",
          {
            type: "button",
            "data-kind": kind,
            "aria-pressed": "false",
            click: () => this.start(kind),
          },
          icon(name),
          t(key),
        ),
      );
    }
    this.snap = checkbox(t("snap"), desk.settings.snap, (checked) => this.setSnap(checked), { id: "snap" });
    this.element = element("div", { class: "panel-body" }, this.tools, this.live, this.snap, this.unit, this.list);
  }

  focus(): void {
    this.tools.querySelector("button")?.focus();
  }

  update(): void {
    const { tab } = this.desk;
    this.unit.textContent = tab?.sheet && this.units() === 0 ? t("scaleUnknown") : "";
    const done = tab ? (this.measured.get(tab) ?? []) : [];
    this.list.replaceChildren(...done.map((measured) => this.row(measured)));
    if (done.length > 0) this.list.append(button(t("clear"), () => this.clear(), { id: "measure-clear" }));
    const { tool } = this.desk.stage;
    for (const each of this.tools.querySelectorAll("button")) {
      each.setAttribute("aria-pressed", String(tool instanceof MeasureTool && tool.kind === each.dataset["kind"]));
    }
    if (!(tool instanceof MeasureTool)) this.live.textContent = "";
  }

  /** Starts measuring; the tool stays until Escape. */
  start(kind: MeasureKind): void {
    if (!this.desk.tab?.sheet) return;
    const tool = new MeasureTool(kind, this);
    this.desk.setTool(tool);
    this.live.textContent = tool.hint;
    this.update();
    this.desk.stage.element.focus();
  }

  paint(context: CanvasRenderingContext2D): void {
    const { tab, stage } = this.desk;
    for (const measured of (tab && this.measured.get(tab)) ?? []) {
      paintMeasured(context, stage.viewport, measured, measuredText(measured, this.units()), false);
    }
  }

  segments(): Segments | null {
    const sheet = this.desk.tab?.sheet;
    if (!sheet || !this.desk.settings.snap) return null;
    let grid = this.grids.get(sheet);
    if (!grid) this.grids.set(sheet, (grid = new Segments(sheet)));
    return grid;
  }

  viewport(): Desk["stage"]["viewport"] {
    return this.desk.stage.viewport;
  }

  units(): number {
    return this.desk.tab?.unitsPerHundredth() ?? 0;
  }

  done(measured: Measured): void {
    const { tab } = this.desk;
    if (!tab) return;
    this.measured.set(tab, [...(this.measured.get(tab) ?? []), measured]);
    this.update();
    this.desk.say(measuredText(measured, this.units()));
  }

  changed(text: string): void {
    const { tool } = this.desk.stage;
    this.live.textContent = text || (tool?.hint ?? "");
  }

  toggleSnap(): void {
    this.setSnap(!this.desk.settings.snap);
  }

  private setSnap(checked: boolean): void {
    this.desk.settings.snap = checked;
    this.snap.querySelector("input")!.checked = checked;
    this.desk.keepSettings();
  }

  private clear(): void {
    if (this.desk.tab) this.measured.delete(this.desk.tab);
    this.update();
    this.desk.stage.invalidate();
  }

  private row(measured: Measured): HTMLElement {
    const key = kinds.find(([kind]) => kind === measured.kind)![1],
      units = this.units(),
      factor = units > 0 ? units : 0.01;
    const more: string[] = [];
    if (measured.kind === "area") more.push(t("perimeter", numberText(lengthOf(measured.points, true) * factor, 3)));
    if (measured.kind === "distance" && units > 0) more.push(t("onSheet", measuredText(measured, 0)));
    return element(
      "div",
      { class: "measured" },
      element("span", {}, t(key).replace(/\s*\(.\)$/, "")),
      element("b", {}, measuredText(measured, units)),
      ...more.map((text) => element("small", {}, text)),
    );
  }
}
