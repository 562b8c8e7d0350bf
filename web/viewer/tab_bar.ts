// The tabs of the open drawings, with thumbnails.
import { element, icon } from "./dom";
import type { Tab } from "./tab";
import { t } from "./texts";

export interface TabBarHost {
  activate(tab: Tab): void;
  close(tab: Tab): void;
}

export class TabBar {
  readonly element = element("div", { class: "tabs", role: "tablist", "aria-label": t("drawings") });

  constructor(private readonly host: TabBarHost) {
    this.element.addEventListener("keydown", (event) => this.key(event));
  }

  update(tabs: readonly Tab[], active: Tab | null): void {
    const focused = this.element.contains(document.activeElement);
    this.element.replaceChildren(...tabs.map((tab) => this.tab(tab, tab === active)));
    const selected = this.element.querySelector<HTMLElement>('[aria-selected="true"]');
    selected?.scrollIntoView({ block: "nearest", inline: "nearest" });
    if (focused) selected?.focus();
  }

  private tab(tab: Tab, isActive: boolean): HTMLElement {
    const picture =
      tab.thumbnail === ""
        ? element("span", { class: "thumbnail" })
        : element("img", { class: "thumbnail", src: tab.thumbnail, alt: "" });
    const made = element(
      "div",
      {
        class: `tab ${tab.state}`,
        role: "tab",
        "aria-selected": String(isActive),
        tabindex: isActive ? 0 : -1,
        title: tab.name,
        click: () => this.host.activate(tab),
        auxclick: (event: MouseEvent) => {
          if (event.button === 1) this.host.close(tab);
        },
      },
      picture,
      element("span", { class: "name" }, tab.name),
    );
    made.append(
      element(
        "button",
        {
          type: "button",
          class: "close",
          tabindex: -1,
          "aria-label": t("close", tab.name),
          title: t("close", tab.name),
          click: (event: Event) => {
            event.stopPropagation();
            this.host.close(tab);
          },
        },
        icon("close"),
      ),
    );
    return made;
  }

  private key(event: KeyboardEvent): void {
    const all = [...this.element.querySelectorAll<HTMLElement>(".tab")],
      at = all.indexOf(document.activeElement as HTMLElement);
    if (at < 0) return;
    const to =
      event.key === "ArrowRight"
        ? at + 1
        : event.key === "ArrowLeft"
          ? at - 1
          : event.key === "Home"
            ? 0
            : event.key === "End"
              ? all.length - 1
              : at;
    if (event.key === "Delete") all[at]!.querySelector<HTMLElement>(".close")!.click();
    else if (event.key === "Enter" || event.key === " ") all[at]!.click();
    else if (to !== at) all[(to + all.length) % all.length]!.click();
    else return;
    event.preventDefault();
    event.stopPropagation();
  }
}
