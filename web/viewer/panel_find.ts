// Finds texts and steps through them.
import { element, iconButton } from "./dom";
import type { Desk, Panel } from "./desk";
import { findTexts } from "./find";
import type { Hit } from "./find";
import { addPoint, emptyBox, heightOf, widthOf } from "./sheet";
import type { Box } from "./sheet";
import { t } from "./texts";

/** Hits in the list; all are counted. */
const mostListed = 500;

export class FindPanel implements Panel {
  readonly element: HTMLElement;
  private readonly input = element("input", { type: "search", id: "find-text" });
  private readonly count = element("output", { id: "find-count" });
  private readonly list = element("div", { class: "list", id: "find-list", role: "listbox" });
  private hits: Hit[] = [];
  private current = -1;

  constructor(private readonly desk: Desk) {
    this.input.placeholder = t("findPlaceholder");
    this.input.setAttribute("aria-label", t("find"));
    this.input.addEventListener("input", () => this.search());
    this.input.addEventListener("keydown", (event) => {
      if (event.key !== "Enter" || event.isComposing) return;
      event.preventDefault();
      this.step(event.shiftKey ? -1 : 1);
    });
    this.element = element(
      "div",
      { class: "panel-body" },
      this.input,
      element(
        "div",
        { class: "row" },
        this.count,
        iconButton("up", t("previous"), () => this.step(-1), { id: "find-previous" }),
        iconButton("down", t("next"), () => this.step(1), { id: "find-next" }),
      ),
      element("p", { class: "hint" }, t("findHint")),
      this.list,
    );
  }

  focus(): void {
    this.input.focus();
    this.input.select();
  }

  update(): void {
    this.search();
  }

  /** Goes to another hit. */
  step(by: number): void {
    if (this.hits.length === 0) return;
    this.current =
      this.current < 0
        ? by > 0
          ? 0
          : this.hits.length - 1
        : (this.current + by + this.hits.length) % this.hits.length;
    this.go();
  }

  paint(context: CanvasRenderingContext2D): void {
    const { stage, tab, painter } = this.desk;
    if (!tab?.sheet || !painter) return;
    this.hits.forEach((hit, i) => {
      context.fillStyle = i === this.current ? "rgba(255, 140, 0, .45)" : "rgba(255, 214, 0, .38)";
      for (const text of hit.texts) {
        const corners = painter.corners(tab.sheet!.texts[text]!).map((corner) => stage.viewport.toScreen(corner));
        context.beginPath();
        for (const { x, y } of corners) context.lineTo(x, y);
        context.fill();
      }
      if (i !== this.current) return;
      const box = this.boxOf(hit),
        from = stage.viewport.toScreen({ x: box.left, y: box.top });
      context.strokeStyle = "#e06000";
      context.lineWidth = 2;
      context.strokeRect(
        from.x - 4,
        from.y - 4,
        widthOf(box) * stage.viewport.scale + 8,
        heightOf(box) * stage.viewport.scale + 8,
      );
    });
  }

  private search(): void {
    const { tab, painter } = this.desk;
    this.hits = tab?.sheet && painter ? findTexts(tab.sheet, painter, this.input.value) : [];
    this.current = -1;
    this.list.replaceChildren(...this.hits.slice(0, mostListed).map((hit, i) => this.row(hit, i)));
    this.showCount();
    this.desk.stage.invalidate();
  }

  private row(hit: Hit, index: number): HTMLElement {
    const text = hit.texts.map((each) => this.desk.tab!.sheet!.texts[each]!.text).join("");
    const click = (): void => {
      this.current = index;
      this.go();
    };
    return element("button", { type: "button", role: "option", class: "hit", click }, text);
  }

  private showCount(): void {
    const none = this.input.value.trim() === "" ? "" : t("noHits");
    this.count.textContent = this.hits.length === 0 ? none : t("hits", this.current + 1, this.hits.length);
  }

  private boxOf(hit: Hit): Box {
    const { tab, painter } = this.desk,
      box = emptyBox();
    for (const text of hit.texts) {
      for (const corner of painter!.corners(tab!.sheet!.texts[text]!)) addPoint(box, corner.x, corner.y);
    }
    return box;
  }

  private go(): void {
    this.showCount();
    [...this.list.children].forEach((row, i) => row.setAttribute("aria-selected", String(i === this.current)));
    this.list.children[this.current]?.scrollIntoView({ block: "nearest" });
    this.desk.showBox(this.boxOf(this.hits[this.current]!));
  }
}
