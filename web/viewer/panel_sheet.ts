// What is converted, and in which colours it is shown.
import { button, checkbox, element, radios } from "./dom";
import type { Desk, Panel } from "./desk";
import type { Colours } from "./settings";
import type { Choices, Tab } from "./tab";
import { numberText, t } from "./texts";

export class SheetPanel implements Panel {
  readonly element = element("div", { class: "panel-body" });

  constructor(private readonly desk: Desk) {}

  update(): void {
    const { tab } = this.desk;
    this.element.replaceChildren(this.colours());
    if (tab && !tab.comparison) this.element.append(this.what(tab), this.switches(tab), this.denominator(tab));
  }

  focus(): void {
    this.element.querySelector<HTMLElement>("input:checked")?.focus();
  }

  private colours(): HTMLElement {
    const { desk } = this;
    return radios(
      "colours",
      t("colours"),
      [
        { value: "drawn", label: t("asDrawn") },
        { value: "black", label: t("black") },
        { value: "dark", label: t("onDark") },
      ],
      desk.settings.colours,
      (value) => {
        const before = desk.settings.colours;
        desk.settings.colours = value as Colours;
        desk.keepSettings();
        // Black is drawn by the library.
        if (before === "black" || value === "black") desk.convertAgain();
        else desk.showAgain();
      },
    );
  }

  private what(tab: Tab): HTMLElement {
    const group = radios(
      "what",
      t("what"),
      [
        { value: "whole", label: t("wholeSheet") },
        { value: "full-size", label: t("fullSize") },
        { value: "part", label: t("part") },
      ],
      tab.choices.sheet,
      (value) => {
        if (value === "part" && !tab.choices.part) return this.desk.choosePart();
        this.change(tab, { sheet: value as Choices["sheet"] });
      },
    );
    const { part } = tab.choices;
    if (part) {
      const mm = (value: number): string => numberText(value / 100, 2);
      group.append(
        element(
          "p",
          { class: "hint", id: "part-size" },
          t("partOf", mm(part.right - part.left), mm(part.bottom - part.top), mm(part.left), mm(part.top)),
        ),
      );
    }
    group.append(button(t("choosePart"), () => this.desk.choosePart(), { id: "choose-part" }));
    if (tab.choices.sheet === "part") {
      group.append(
        checkbox(t("wholeTexts"), tab.choices.wholeTexts, (wholeTexts) => this.change(tab, { wholeTexts }), {
          id: "whole-texts",
        }),
      );
    }
    return group;
  }

  private switches(tab: Tab): HTMLElement {
    const { choices } = tab;
    const turned = checkbox(t("turned"), choices.turned, (value) => this.change(tab, { turned: value }), {
      id: "turned",
      disabled: choices.sheet === "part",
    });
    return element(
      "div",
      { class: "group" },
      turned,
      checkbox(
        t("halfWidth"),
        choices.halfWidth,
        (halfWidth) => {
          this.desk.settings.halfWidth = halfWidth;
          this.desk.keepSettings();
          this.change(tab, { halfWidth });
        },
        { id: "half-width" },
      ),
      checkbox(t("measured"), choices.fit, (fit) => this.change(tab, { fit }), { id: "fit-sheet" }),
      checkbox(t("format"), choices.asIs, (asIs) => this.change(tab, { asIs }), { id: "as-is" }),
    );
  }

  private denominator(tab: Tab): HTMLElement {
    const input = element("input", {
      type: "number",
      min: 1,
      max: 1000,
      step: 1,
      id: "denominator",
      placeholder: "100",
    });
    if (tab.choices.denominator > 0) input.value = String(tab.choices.denominator);
    input.addEventListener("change", () => {
      const value = Math.round(Number(input.value));
      const denominator = input.value === "" ? 0 : Math.min(1000, Math.max(1, value || 100));
      input.value = denominator === 0 ? "" : String(denominator);
      this.desk.settings.denominator = denominator;
      this.desk.keepSettings();
      this.change(tab, { denominator });
    });
    return element("label", { class: "field" }, element("span", {}, t("denominator")), input);
  }

  private change(tab: Tab, changed: Partial<Choices>): void {
    Object.assign(tab.choices, changed);
    this.desk.convertAgain();
  }
}
