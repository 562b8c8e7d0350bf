// Chooses two drawings and steps through what differs.
import { button, element, iconButton, selection } from "./dom";
import type { Desk, Panel } from "./desk";
import { t } from "./texts";

export class ComparePanel implements Panel {
  readonly element = element("div", { class: "panel-body" });
  private first = "";
  private second = "";
  private current = -1;

  constructor(private readonly desk: Desk) {}

  update(): void {
    const drawings = this.desk.tabs.filter((tab) => tab.source !== null);
    this.element.replaceChildren();
    this.element.append(element("p", { class: "hint" }, t("compareHint")));
    const has = (id: string): boolean => drawings.some((tab) => String(tab.id) === id);
    if (!has(this.first)) this.first = String(drawings[0]?.id ?? "");
    if (!has(this.second) || this.second === this.first) {
      this.second = String(drawings.find((tab) => String(tab.id) !== this.first)?.id ?? "");
    }
    const choices = drawings.map((tab) => ({ value: String(tab.id), label: tab.name }));
    const start = (): void => {
      const find = (id: string): (typeof drawings)[number] | undefined => drawings.find((tab) => String(tab.id) === id);
      const a = find(this.first),
        b = find(this.second);
      this.current = -1;
      if (a && b) this.desk.openComparison(a, b);
    };
    this.element.append(
      selection(t("drawingA"), choices, this.first, (value) => (this.first = value), "compare-a"),
      selection(t("drawingB"), choices, this.second, (value) => (this.second = value), "compare-b"),
      button(t("compareNow"), start, { id: "compare-now", class: "main", disabled: drawings.length < 2 }),
    );
    this.addResult();
  }

  focus(): void {
    this.element.querySelector<HTMLElement>("select, button")?.focus();
  }

  private addResult(): void {
    const comparison = this.desk.tab?.comparison;
    if (!comparison) return;
    const { onlyFirst, onlySecond, both, places } = comparison;
    this.element.append(element("p", { id: "compare-result" }, t("compareResult", onlyFirst, onlySecond, both)));
    if (places.length === 0) {
      this.element.append(element("p", { class: "notice" }, t("same")));
      return;
    }
    this.element.append(
      element(
        "div",
        { class: "row" },
        element("output", { id: "compare-count" }, t("difference", Math.max(0, this.current + 1), places.length)),
        iconButton("up", t("previous"), () => this.step(-1), { id: "compare-previous" }),
        iconButton("down", t("next"), () => this.step(1), { id: "compare-next" }),
      ),
    );
  }

  /** Goes to another place that differs. */
  step(by: number): void {
    const places = this.desk.tab?.comparison?.places ?? [];
    if (places.length === 0) return;
    this.current =
      this.current < 0 ? (by > 0 ? 0 : places.length - 1) : (this.current + by + places.length) % places.length;
    const focused = document.activeElement?.id;
    this.update();
    if (focused) document.getElementById(focused)?.focus();
    this.desk.showBox(places[this.current]!);
  }

  paint(context: CanvasRenderingContext2D): void {
    const { stage, tab } = this.desk;
    (tab?.comparison?.places ?? []).forEach((box, i) => {
      const from = stage.viewport.toScreen({ x: box.left, y: box.top }),
        to = stage.viewport.toScreen({ x: box.right, y: box.bottom });
      context.strokeStyle = i === this.current ? "#e06000" : "rgba(224, 96, 0, .45)";
      context.lineWidth = i === this.current ? 2.5 : 1;
      context.strokeRect(from.x - 6, from.y - 6, to.x - from.x + 12, to.y - from.y + 12);
    });
  }
}
