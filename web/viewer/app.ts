// The page: tabs, conversions, panels, keys.
import type { Conversion, Inspection, Progress } from "../library/protocol";
import { looks } from "./colours";
import { compareSheets } from "./compare";
import type { Desk, Panel } from "./desk";
import { openHelpDialog, openPrintDialog, openSaveDialog, sizeText } from "./dialogs";
import { button, element, icon, iconButton, selection } from "./dom";
import type { IconName } from "./dom";
import type { Engine } from "./engine";
import { chooseFiles, droppedDrawings } from "./files";
import type { Source } from "./files";
import { handleKey } from "./keys";
import { ComparePanel } from "./panel_compare";
import { ContentsPanel, whyEmpty } from "./panel_contents";
import { FindPanel } from "./panel_find";
import { LayersPanel } from "./panel_layers";
import { MeasurePanel } from "./panel_measure";
import { SheetPanel } from "./panel_sheet";
import { sceneOf } from "./scene";
import { readSheet } from "./sheet_reader";
import { saveSettings } from "./settings";
import type { Settings } from "./settings";
import { emptyBox, heightOf, widthOf } from "./sheet";
import type { Box } from "./sheet";
import { Stage, trueScale } from "./stage";
import type { Tool } from "./stage";
import { Tab } from "./tab";
import { TabBar } from "./tab_bar";
import { TextPainter } from "./text_painter";
import { currentLanguage, numberText, sentenceOf, setLanguage, t } from "./texts";
import type { Language, TextKey } from "./texts";
import { makeThumbnail } from "./thumbnails";
import { PartTool } from "./tool_part";

export type PanelName = "layers" | "sheet" | "contents" | "find" | "measure" | "compare";

type Panels = { [name in PanelName]: Panel } & { find: FindPanel; measure: MeasurePanel };

const panelNames: readonly (readonly [PanelName, TextKey, TextKey, string])[] = [
  ["layers", "layers", "layersShort", "L"],
  ["sheet", "sheet", "sheetShort", "S"],
  ["contents", "contents", "contentsShort", "I"],
  ["find", "find", "findShort", "Ctrl+F"],
  ["measure", "measure", "measureShort", "M"],
  ["compare", "compare", "compareShort", "K"],
];

/** Sheets of drawings that aren't shown are kept up to so many and so many items; others are converted again. */
const mostSheets = 8,
  mostItems = 4e6;
/** The library's limits, so that a drawing can't take all memory. */
const limits = { limitStrokes: 6e6, limitBytes: 1.2e9 };
/** Larger drawings are converted only when their tab is opened. */
const largestInBackground = 8 << 20;

export class App implements Desk {
  readonly tabs: Tab[] = [];
  tab: Tab | null = null;
  readonly stage = new Stage({ ...looks.light, paper: looks.light.around, frame: emptyBox() });
  painter: TextPainter | null = null;
  private engine: Engine | null = null;
  readonly panels: Panels;
  panel: PanelName | null = null;
  private readonly tabBar = new TabBar({ activate: (tab) => this.activate(tab), close: (tab) => this.close(tab) });
  private readonly rail = element("nav", { class: "rail", "aria-label": t("panels") });
  private readonly side = element("aside", { class: "side", hidden: true });
  private readonly card = element("div", { class: "card", hidden: true, role: "status" });
  private readonly welcome = element("div", { class: "welcome" });
  private readonly notice = element("div", { class: "strip", hidden: true, role: "alert" });
  private readonly message = element("span", { id: "message", role: "status" });
  private readonly place = element("span", { id: "place" });
  private readonly percent = element("button", {
    type: "button",
    id: "percent",
    title: t("trueSize"),
    click: () => this.trueSize(),
  });
  private showCard = 0;
  /** Whose part is chosen as soon as it is shown whole. */
  private choosesPart: Tab | null = null;

  constructor(readonly settings: Settings) {
    this.panels = {
      layers: new LayersPanel(this),
      sheet: new SheetPanel(this),
      contents: new ContentsPanel(this),
      find: new FindPanel(this),
      measure: new MeasurePanel(this),
      compare: new ComparePanel(this),
    };
    document.body.replaceChildren(...this.layout());
    document.addEventListener("keydown", (event) => handleKey(this, event));
    this.acceptDrops();
    this.stage.onView = () => this.updateZoom();
    this.stage.onPointer = (at) => this.showPlace(at);
    this.stage.paintOver = (context) => {
      for (const panel of Object.values(this.panels))
        if (panel === this.current() || panel === this.panels.measure) panel.paint?.(context);
    };
    if (panelNames.some(([name]) => name === settings.panel) && window.innerWidth > 700)
      this.openPanel(settings.panel as PanelName, false);
    this.update();
  }

  get faces(): Engine["faces"] | null {
    return this.engine?.faces ?? null;
  }

  /** Takes the library once it is started. */
  start(engine: Engine): void {
    this.engine = engine;
    this.painter = new TextPainter(engine.faces.face);
    this.stage.setPainter(this.painter);
    document.documentElement.dataset["ready"] = "true";
    performance.mark("ready");
    this.convertWaiting();
  }

  failed(reason: string): void {
    this.showNotice(t("noLibrary", reason));
  }

  // Layout.

  private layout(): HTMLElement[] {
    for (const [name, title, short, key] of panelNames) {
      this.rail.append(
        element(
          "button",
          {
            type: "button",
            id: `rail-${name}`,
            title: `${t(title)} (${key})`,
            "aria-pressed": "false",
            click: () => this.togglePanel(name),
          },
          icon(name),
          element("span", {}, t(short)),
        ),
      );
    }
    const bar = element(
      "header",
      { class: "bar" },
      element(
        "button",
        { type: "button", id: "open", class: "main", title: t("openHint"), click: () => void this.choose() },
        icon("open"),
        element("span", {}, t("open")),
      ),
      this.tabBar.element,
      iconButton("save", t("saveHint"), () => this.save(), { id: "save" }),
      iconButton("print", t("print"), () => this.print(), { id: "print-button" }),
      iconButton("help", t("help"), () => this.help(), { id: "help" }),
    );
    const zoom = element(
      "div",
      { class: "zoom", role: "toolbar" },
      this.zoomButton("minus", "zoomOut", () => this.stage.zoom(0.8)),
      this.percent,
      this.zoomButton("plus", "zoomIn", () => this.stage.zoom(1.25)),
      this.zoomButton("full", "fullSheet", () => this.fullSheet()),
      this.zoomButton("fit", "fit", () => this.fit()),
    );
    const stage = element("main", { class: "main-area" }, this.stage.element, this.welcome, this.notice, this.card);
    const foot = element("footer", { class: "foot" }, this.message, this.place, zoom);
    this.fillWelcome();
    return [
      bar,
      element("div", { class: "middle" }, this.rail, this.side, stage),
      foot,
      element("div", { class: "drop" }, t("dropNow")),
    ];
  }

  private zoomButton(name: IconName, title: TextKey, click: () => void): HTMLElement {
    return iconButton(name, t(title), click, { id: `zoom-${name}` });
  }

  private fillWelcome(): void {
    this.welcome.replaceChildren(
      element(
        "div",
        {},
        icon("open"),
        element("h1", {}, t("dropTitle")),
        element("p", {}, t("dropText")),
        button(t("chooseFiles"), () => void this.choose(), { class: "main", id: "choose" }),
      ),
    );
  }

  private update(): void {
    this.tabBar.update(this.tabs, this.tab);
    this.welcome.hidden = this.tab !== null;
    this.updatePanel();
    document.title = this.tab ? `${this.tab.name} – ${t("title")}` : t("title");
    for (const id of ["save", "print-button"])
      (document.getElementById(id) as HTMLButtonElement).disabled = !this.tab?.sheet;
    document.documentElement.dataset["state"] = this.tab?.state ?? "none";
    this.updateZoom();
  }

  /** The focus and the place in a long panel stay. */
  private updatePanel(): void {
    const panel = this.current();
    if (!panel) return;
    const active = document.activeElement,
      kept = active && panel.element.contains(active) ? selectorOf(active) : "";
    const { scrollTop } = panel.element;
    panel.update();
    panel.element.scrollTop = scrollTop;
    const again = kept === "" ? null : panel.element.querySelector<HTMLElement>(kept);
    if (again && again !== document.activeElement) again.focus({ preventScroll: true });
  }

  // Opening.

  async choose(): Promise<void> {
    this.open(await chooseFiles());
  }

  open(sources: readonly Source[]): void {
    if (sources.length === 0) return;
    performance.clearMarks("opened");
    performance.mark("opened");
    const { skipOffLayers, halfWidth, denominator } = this.settings;
    const opened = sources.map((source) => new Tab(source.name, source, { skipOffLayers, halfWidth, denominator }));
    this.tabs.push(...opened);
    this.activate(opened[0]!);
  }

  private acceptDrops(): void {
    let inside = 0;
    const mark = (by: number): void => {
      inside = Math.max(0, inside + by);
      document.body.classList.toggle("dropping", inside > 0);
    };
    document.addEventListener("dragenter", () => mark(1));
    document.addEventListener("dragleave", () => mark(-1));
    document.addEventListener("dragover", (event) => event.preventDefault());
    document.addEventListener("drop", (event) => {
      event.preventDefault();
      mark(-inside);
      if (!event.dataTransfer) return;
      void droppedDrawings(event.dataTransfer).then((sources) => {
        if (sources.length === 0) this.say(t("nothingToOpen"));
        this.open(sources);
      });
    });
  }

  activate(tab: Tab): void {
    this.setTool(null);
    this.tab = tab;
    tab.usedAt = performance.now();
    this.hideNotice();
    this.show(tab);
    if (tab.state === "waiting") this.convert(tab);
    else this.tell(tab);
    this.update();
  }

  close(tab: Tab): void {
    const at = this.tabs.indexOf(tab);
    if (at < 0) return;
    tab.converting?.cancel();
    stopInspecting(tab);
    this.tabs.splice(at, 1);
    if (this.tab !== tab) return this.update();
    this.tab = null;
    const next = this.tabs[Math.min(at, this.tabs.length - 1)];
    if (next) return this.activate(next);
    this.setTool(null);
    this.hideNotice();
    this.hideCard();
    this.say("");
    this.stage.show(null, this.stage.viewport);
    this.update();
  }

  // Converting.

  convertAgain(): void {
    if (this.tab?.source) this.convert(this.tab);
  }

  private convert(tab: Tab): void {
    if (!this.engine || !tab.source) return;
    tab.converting?.cancel();
    stopInspecting(tab);
    tab.state = "converting";
    tab.progress = null;
    const options = { ...tab.options(this.settings.colours === "black"), ...limits };
    const call = this.engine.client.convert(tab.source.data, options, (progress) =>
      this.onProgress(tab, progress, "converting"),
    );
    tab.converting = call;
    this.showCardSoon(tab);
    this.update();
    void call.result.then((conversion) => {
      if (tab.converting === call) return this.converted(tab, conversion);
    });
  }

  private async converted(tab: Tab, conversion: Conversion): Promise<void> {
    const bytes = conversion.metafile;
    tab.converting = null;
    tab.conversion = { ...conversion, metafile: null };
    tab.metafile = bytes ? new Blob([bytes as Uint8Array<ArrayBuffer>], { type: "image/emf" }) : null;
    if (bytes) this.fillCard(tab, t("preparing", tab.name), 1);
    const sheet = bytes ? await readSheet(bytes) : null;
    if (!this.tabs.includes(tab) || tab.converting) return;
    tab.sheet = sheet;
    tab.state = sheet ? "ready" : "failed";
    if (tab === this.tab) {
      this.hideCard();
      this.show(tab);
      // After the frame that shows it.
      performance.clearMarks("shown");
      requestAnimationFrame(() => requestAnimationFrame(() => performance.mark("shown")));
      this.tell(tab);
      this.update();
      if (this.choosesPart === tab) this.choosePart();
      this.choosesPart = null;
    }
    this.forgetOld();
    if (conversion.status !== "cancelled") this.inspect(tab);
    if (sheet) requestAnimationFrame(() => setTimeout(() => this.addThumbnail(tab), 30));
    else this.update();
  }

  private inspect(tab: Tab): void {
    if (!this.engine || !tab.source) return;
    const options = tab.sheetOptions(),
      key = JSON.stringify(options);
    if (tab.inspection && tab.inspectedFor === key) return this.inspected(tab, tab.inspection);
    tab.inspectedFor = key;
    const call = this.engine.client.inspect(tab.source.data, options, (progress) =>
      this.onProgress(tab, progress, "inspecting"),
    );
    tab.inspecting = call;
    void call.result.then((inspection) => {
      if (tab.inspecting === call) this.inspected(tab, inspection);
    });
  }

  private inspected(tab: Tab, inspection: Inspection): void {
    tab.inspecting = null;
    if (inspection.status !== "cancelled") tab.inspection = inspection;
    if (tab === this.tab) {
      this.updatePanel();
      this.tell(tab);
      document.documentElement.dataset["inspected"] = String(tab.id);
    }
    this.convertWaiting();
  }

  /** Converts drawings whose tabs weren't opened yet, for their thumbnails. */
  private convertWaiting(): void {
    if (this.tab?.state === "waiting") return this.convert(this.tab);
    if (this.tabs.some((tab) => tab.converting || tab.inspecting)) return;
    const next = this.tabs.find(
      (tab) =>
        tab.state === "waiting" && tab.thumbnail === "" && (tab.source?.data.size ?? Infinity) < largestInBackground,
    );
    if (next) this.convert(next);
  }

  private addThumbnail(tab: Tab): void {
    if (!tab.sheet || !this.painter || !this.tabs.includes(tab)) return;
    tab.thumbnail = makeThumbnail(tab, this.painter);
    this.tabBar.update(this.tabs, this.tab);
  }

  /** Sheets that were used least recently are made again when their tabs are opened. */
  private forgetOld(): void {
    const kept = this.tabs
      .filter((tab) => tab.sheet && tab.source && tab !== this.tab)
      .sort((a, b) => b.usedAt - a.usedAt);
    let items = this.tab?.sheet?.count ?? 0;
    kept.forEach((tab, i) => {
      items += tab.sheet!.count;
      if (i + 1 < mostSheets && items < mostItems) return;
      tab.sheet = tab.metafile = tab.inspection = null;
      tab.state = "waiting";
    });
  }

  cancel(): void {
    const { tab } = this;
    (tab?.converting ?? tab?.inspecting)?.cancel();
  }

  // Showing.

  private show(tab: Tab): void {
    if (!tab.sheet) return this.stage.show(null, tab.viewport);
    const key = JSON.stringify(tab.sheet.frame);
    const refit = !tab.viewed || key !== tab.frameKey;
    tab.frameKey = key;
    tab.viewport.width = this.stage.viewport.width;
    tab.viewport.height = this.stage.viewport.height;
    if (refit && tab.viewport.width > 1) {
      tab.viewport.fit(tab.sheet.frame);
      tab.viewed = true;
    }
    this.stage.show(sceneOf(tab, this.settings.colours), tab.viewport);
    this.updateZoom();
  }

  showAgain(): void {
    if (this.tab) this.show(this.tab);
    document.body.classList.toggle("dark-sheet", this.settings.colours === "dark");
  }

  /** Says what became of the drawing. */
  private tell(tab: Tab): void {
    const { conversion, sheet } = tab;
    if (tab.comparison) return this.say("");
    if (conversion && conversion.status !== "ok") this.showNotice(sentenceOf(conversion.sentence), tab);
    else if (conversion && !sheet && tab.state === "failed") this.showNotice(t("badMetafile"), tab);
    else {
      const why = whyEmpty(tab);
      if (why) this.showNotice(why.text);
      else this.hideNotice();
    }
    this.say(this.stage.tool?.hint ?? this.summary());
  }

  private summary(): string {
    const { conversion, sheet } = this.tab ?? {};
    if (!conversion || !sheet) return "";
    const numbers = [conversion.strokes, sheet.texts.length, conversion.milliseconds].map((value) =>
      numberText(value, 0),
    );
    return `${sizeText(sheet)} · ${t("shown", ...numbers)}`;
  }

  say(text: string): void {
    this.message.textContent = text;
  }

  private showNotice(text: string, tab?: Tab): void {
    this.notice.replaceChildren(element("span", {}, text));
    if (tab?.conversion?.status === "cancelled")
      this.notice.append(button(t("again"), () => this.convertAgain(), { id: "again" }));
    this.notice.append(iconButton("close", t("closePanel"), () => this.hideNotice()));
    this.notice.hidden = false;
  }

  private hideNotice(): void {
    this.notice.hidden = true;
  }

  // Progress: shown if it takes longer than a moment.

  private showCardSoon(tab: Tab): void {
    if (tab !== this.tab) return;
    clearTimeout(this.showCard);
    this.showCard = window.setTimeout(() => {
      if (tab === this.tab && tab.state === "converting") this.fillCard(tab, t("converting", tab.name, 0), 0);
    }, 150);
  }

  private onProgress(tab: Tab, progress: Progress, key: "converting" | "inspecting"): void {
    tab.progress = progress;
    if (tab !== this.tab) return;
    const share =
      (progress.pass - 1 + (progress.total > 0 ? progress.done / progress.total : 0)) / Math.max(1, progress.passes);
    const text = t(key, tab.name, Math.floor(100 * share));
    if (!this.card.hidden) this.fillCard(tab, text, share);
    else if (key === "inspecting" && (tab.source?.data.size ?? 0) > largestInBackground) this.say(text);
  }

  private fillCard(tab: Tab, text: string, share: number): void {
    if (tab !== this.tab || (this.card.hidden && share === 1)) return;
    if (!this.card.querySelector("progress")) {
      this.card.replaceChildren(
        element("p", {}),
        element("progress", { max: 1 }),
        button(t("cancel"), () => this.cancel(), { id: "cancel" }),
      );
    }
    this.card.querySelector("p")!.textContent = text;
    this.card.querySelector("progress")!.value = share;
    this.card.hidden = false;
  }

  private hideCard(): void {
    clearTimeout(this.showCard);
    this.card.hidden = true;
  }

  // The view.

  fullSheet(): void {
    if (this.tab?.sheet) this.stage.fit(this.tab.sheet.frame);
  }

  /** All that is drawn. */
  fit(): void {
    const { tab, painter } = this;
    if (!tab?.sheet || !painter) return;
    const box = { ...tab.sheet.bounds };
    for (const text of tab.sheet.texts) {
      const bounds = painter.bounds(text);
      box.left = Math.min(box.left, bounds.left);
      box.top = Math.min(box.top, bounds.top);
      box.right = Math.max(box.right, bounds.right);
      box.bottom = Math.max(box.bottom, bounds.bottom);
    }
    this.stage.fit(box.left <= box.right ? box : tab.sheet.frame);
  }

  trueSize(): void {
    this.stage.zoom(trueScale / this.stage.viewport.scale);
  }

  showBox(box: Box): void {
    const { viewport } = this.stage,
      size = Math.max(widthOf(box), heightOf(box), 400);
    const wanted = Math.min(viewport.width, viewport.height) / (size * 4);
    if (viewport.scale < wanted / 3 || viewport.scale > wanted * 4) viewport.scale = Math.min(10, wanted);
    viewport.centreOn({ x: (box.left + box.right) / 2, y: (box.top + box.bottom) / 2 });
    this.stage.changed();
  }

  private updateZoom(): void {
    this.percent.textContent = this.tab?.sheet
      ? `${numberText((100 * this.stage.viewport.scale) / trueScale, 0)} %`
      : "–";
  }

  private showPlace(at: { x: number; y: number } | null): void {
    if (!at || !this.tab?.sheet) this.place.textContent = "";
    else this.place.textContent = `${numberText(at.x / 100, 1)}, ${numberText(at.y / 100, 1)} mm`;
  }

  // Panels and tools.

  private current(): Panel | null {
    return this.panel ? this.panels[this.panel] : null;
  }

  togglePanel(name: PanelName): void {
    if (this.panel === name) this.closePanel();
    else this.openPanel(name, true);
  }

  openPanel(name: PanelName, focus: boolean): void {
    this.panel = name;
    const [, title] = panelNames.find(([each]) => each === name)!,
      panel = this.panels[name];
    this.side.replaceChildren(
      element(
        "header",
        {},
        element("h2", {}, t(title)),
        iconButton("close", t("closePanel"), () => this.closePanel()),
      ),
      panel.element,
    );
    this.side.hidden = false;
    this.side.dataset["panel"] = name;
    this.keepPanel();
    panel.update();
    if (focus) panel.focus?.();
    this.stage.invalidate();
  }

  closePanel(): void {
    this.panel = null;
    this.side.hidden = true;
    this.keepPanel();
    this.stage.element.focus();
    this.stage.invalidate();
  }

  private keepPanel(): void {
    this.settings.panel = this.panel ?? "";
    this.keepSettings();
    for (const [name] of panelNames) {
      this.rail.querySelector(`#rail-${name}`)!.setAttribute("aria-pressed", String(name === this.panel));
    }
  }

  keepSettings(): void {
    saveSettings(this.settings);
  }

  setTool(tool: Tool | null): void {
    this.stage.setTool(tool);
    this.panels.measure.update();
    this.say(tool ? tool.hint : this.summary());
  }

  choosePart(): void {
    const { tab } = this;
    if (!tab?.sheet || !tab.source) return;
    if (tab.choices.sheet === "part" || tab.choices.turned) {
      // A part is chosen on the whole sheet, upright.
      tab.choices.sheet = "whole";
      tab.choices.turned = false;
      this.choosesPart = tab;
      return this.convert(tab);
    }
    this.setTool(
      new PartTool(tab.sheet.frame, (box) => {
        this.setTool(null);
        tab.choices.part = box;
        tab.choices.sheet = "part";
        this.convert(tab);
      }),
    );
    this.stage.element.focus();
  }

  openComparison(a: Tab, b: Tab): void {
    const make = async (): Promise<void> => {
      this.say(t("comparing"));
      for (const tab of [a, b]) if (!tab.sheet) await this.converted(tab, await this.convertNow(tab));
      if (!a.sheet || !b.sheet) return this.say(t("badMetafile"));
      const tab = new Tab(t("versus", a.name, b.name), null);
      tab.comparison = compareSheets(a.sheet, b.sheet);
      tab.sheet = tab.comparison.sheet;
      tab.inspection = a.inspection;
      tab.state = "ready";
      this.tabs.push(tab);
      this.activate(tab);
      this.addThumbnail(tab);
    };
    void make();
  }

  private convertNow(tab: Tab): Promise<Conversion> {
    return this.engine!.client.convert(tab.source!.data, {
      ...tab.options(this.settings.colours === "black"),
      ...limits,
    }).result;
  }

  save(): void {
    if (this.tab) openSaveDialog(this, this.tab);
  }

  print(): void {
    if (this.tab) openPrintDialog(this, this.tab);
  }

  help(): void {
    const language = selection(
      t("language"),
      [
        { value: "en", label: "English" },
        { value: "ja", label: "日本語" },
      ],
      currentLanguage(),
      (value) => {
        this.settings.language = value as Language;
        this.keepSettings();
        setLanguage(value as Language);
        location.reload();
      },
      "language",
    );
    openHelpDialog(this.engine?.notices ?? "", language);
  }
}

/** Ends an inspection whose result isn't wanted any more. */
function stopInspecting(tab: Tab): void {
  const call = tab.inspecting;
  tab.inspecting = null;
  if (call) tab.inspectedFor = "";
  call?.cancel();
}

function selectorOf(control: Element): string {
  if (control.id !== "") return `#${CSS.escape(control.id)}`;
  return control instanceof HTMLInputElement ? `input[value="${CSS.escape(control.value)}"]` : "";
}
