// The dialogs: saving, printing, help.
import { button, checkbox, element, iconButton, selection } from "./dom";
import { papers, planPrint, printSheet, printTestPage } from "./print";
import type { Paper } from "./print";
import { possibleDpi, sheetAsPng } from "./save_png";
import { sheetAsPdf } from "./save_pdf";
import { sheetAsSvg } from "./save_svg";
import { colourRules } from "./scene";
import { heightOf, widthOf } from "./sheet";
import type { Sheet } from "./sheet";
import type { Desk } from "./desk";
import type { Tab } from "./tab";
import { TextPainter } from "./text_painter";
import { numberText, t } from "./texts";
import type { TextKey } from "./texts";

function openDialog(title: string, id: string, ...children: Node[]): HTMLDialogElement {
  const dialog = element("dialog", { id, "aria-label": title });
  dialog.append(
    element(
      "header",
      {},
      element("h2", {}, title),
      iconButton("close", t("closePanel"), () => dialog.close()),
    ),
    ...children,
  );
  dialog.addEventListener("close", () => dialog.remove());
  dialog.addEventListener("click", (event) => {
    if (event.target === dialog) dialog.close();
  });
  document.body.append(dialog);
  dialog.showModal();
  return dialog;
}

function download(blob: Blob, name: string): void {
  const url = URL.createObjectURL(blob);
  element("a", { href: url, download: name }).click();
  // The browser needs the address for a moment after the click.
  setTimeout(() => URL.revokeObjectURL(url), 30000);
}

function fileName(tab: Tab, extension: string): string {
  return `${tab.name.replace(/\.dxf$/i, "").replace(/[\\/:*?"<>|]/g, "_")}.${extension}`;
}

const resolutions = [96, 150, 300, 600];

/** Files are made in the colours of the drawing. */
export function openSaveDialog(desk: Desk, tab: Tab): void {
  const { painter, faces } = desk,
    sheet = tab.sheet;
  if (!sheet || !painter || !faces) return;
  const { colorOf, textColorOf } = colourRules(tab, "drawn");
  const save = (make: () => Promise<Blob> | Blob, extension: string) => async (): Promise<void> => {
    dialog.close();
    desk.say(t("saving"));
    try {
      download(await make(), fileName(tab, extension));
      desk.say("");
    } catch {
      desk.say(t("noMemory"));
    }
  };
  const png = async (): Promise<Blob> => {
    const picture = await sheetAsPng(sheet, painter, desk.settings.dpi, colorOf, textColorOf);
    if (picture.dpi < desk.settings.dpi) setTimeout(() => desk.say(t("tooLargePicture", picture.dpi)), 0);
    return picture.blob;
  };
  const pdf = async (): Promise<Blob> => {
    const bytes = await sheetAsPdf(sheet, new TextPainter(faces.ownFace), faces.font, tab.name, colorOf, textColorOf);
    return new Blob([bytes as Uint8Array<ArrayBuffer>], { type: "application/pdf" });
  };
  const svg = (): Blob => new Blob([sheetAsSvg(sheet, painter, colorOf, textColorOf)], { type: "image/svg+xml" });
  const pngButton = button("", save(png, "png"), { id: "save-png" });
  const showDpi = (): void => void (pngButton.textContent = t("savePng", possibleDpi(sheet, desk.settings.dpi)));
  showDpi();
  const resolution = selection(
    t("resolution"),
    resolutions.map((dpi) => ({ value: String(dpi), label: `${dpi} dpi` })),
    String(desk.settings.dpi),
    (value) => {
      desk.settings.dpi = Number(value);
      desk.keepSettings();
      showDpi();
    },
    "save-dpi",
  );
  const choices = element("div", { class: "choices" });
  if (tab.metafile)
    choices.append(
      button(
        t("saveEmf"),
        save(() => tab.metafile!, "emf"),
        { id: "save-emf" },
      ),
    );
  choices.append(
    button(t("savePdf"), save(pdf, "pdf"), { id: "save-pdf" }),
    button(t("saveSvg"), save(svg, "svg"), { id: "save-svg" }),
    pngButton,
    resolution,
  );
  const dialog = openDialog(t("save"), "save-dialog", choices);
}

export function openPrintDialog(desk: Desk, tab: Tab): void {
  const { painter, settings } = desk,
    sheet = tab.sheet;
  if (!sheet || !painter) return;
  const { colorOf, textColorOf } = colourRules(tab, settings.colours === "dark" ? "drawn" : settings.colours);
  const wide = widthOf(sheet.frame) > heightOf(sheet.frame);
  let landscape = wide,
    fit = false;
  const plan = (): ReturnType<typeof planPrint> => planPrint(sheet, paperNamed(settings.paper), landscape, fit);
  const pages = element("output", { id: "print-pages" });
  const update = (): void => {
    const { columns, rows } = plan();
    pages.textContent = t("tiles", columns * rows);
    for (const input of body.querySelectorAll<HTMLInputElement>("#print-landscape, #print-fit"))
      input.disabled = settings.paper === "sheet";
  };
  const body = element(
    "div",
    { class: "choices" },
    selection(
      t("paper"),
      [
        {
          value: "sheet",
          label: t("paperOfSheet", numberText(widthOf(sheet.frame) / 100), numberText(heightOf(sheet.frame) / 100)),
        },
        ...papers.map(({ name, width, height }) => ({ value: name, label: `${name} (${width} × ${height} mm)` })),
      ],
      settings.paper,
      (value) => {
        settings.paper = value;
        desk.keepSettings();
        update();
      },
      "print-paper",
    ),
    checkbox(
      t("landscape"),
      landscape,
      (checked) => {
        landscape = checked;
        update();
      },
      { id: "print-landscape" },
    ),
    checkbox(
      t("printFit"),
      fit,
      (checked) => {
        fit = checked;
        update();
      },
      { id: "print-fit" },
    ),
    checkbox(
      t("ruler"),
      settings.ruler,
      (checked) => {
        settings.ruler = checked;
        desk.keepSettings();
      },
      { id: "print-ruler" },
    ),
    element("p", { class: "hint" }, t("printHint")),
    pages,
  );
  const print = (): void => {
    dialog.close();
    printSheet(sheet, painter, plan(), settings.ruler, colorOf, textColorOf);
  };
  const test = (): void => {
    dialog.close();
    printTestPage();
  };
  const dialog = openDialog(
    t("printTitle"),
    "print-dialog",
    body,
    element(
      "footer",
      {},
      button(t("testPage"), test, { id: "print-test" }),
      button(t("printTitle"), print, { id: "print-now", class: "main" }),
    ),
  );
  update();
  dialog.querySelector<HTMLElement>("#print-now")!.focus();
}

function paperNamed(name: string): Paper | null {
  return papers.find((paper) => paper.name === name) ?? null;
}

const keys: readonly (readonly [string, TextKey])[] = [
  ["O", "helpOpen"],
  ["PageDown PageUp", "helpTabs"],
  ["X", "helpClose"],
  ["← → ↑ ↓", "helpMove"],
  ["+ −", "helpZoom"],
  ["0 1 9", "helpViews"],
  ["L S I M K", "helpPanels"],
  ["Ctrl+F F3 Shift+F3", "helpFind"],
  ["D G A", "helpMeasure"],
  ["P", "helpPart"],
  ["Enter Backspace N", "helpPoint"],
  ["Ctrl+S Ctrl+P", "helpSave"],
  ["Esc", "helpEscape"],
];

export function openHelpDialog(notices: string, language: HTMLElement): void {
  const list = element("dl", { class: "keys" });
  for (const [names, key] of keys) {
    list.append(
      element("dt", {}, ...names.split(" ").map((name) => element("kbd", {}, name))),
      element("dd", {}, t(key)),
    );
  }
  openDialog(
    t("helpTitle"),
    "help-dialog",
    list,
    language,
    element("details", {}, element("summary", {}, t("helpAbout")), element("pre", {}, notices)),
  );
}

/** The size that the title of a sheet has in the status line. */
export function sizeText(sheet: Sheet): string {
  return `${numberText(widthOf(sheet.frame) / 100)} × ${numberText(heightOf(sheet.frame) / 100)} mm`;
}
