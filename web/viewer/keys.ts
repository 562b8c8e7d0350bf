// The keys of the page. Those of the view and its tools are in stage.ts.
import type { App } from "./app";
import type { MeasureKind } from "./tool_measure";

/** Handles a key that was pressed anywhere in the page. */
export function handleKey(app: App, event: KeyboardEvent): void {
  if (event.defaultPrevented || event.isComposing || document.querySelector("dialog[open]")) return;
  if (withControl(app, event)) return event.preventDefault();
  if (event.key === "Escape") {
    event.preventDefault();
    return escape(app);
  }
  if (event.ctrlKey || event.metaKey || event.altKey || isForControl(event)) return;
  if (ofPage(app, event.key) || (app.tab?.sheet && app.stage.key(event))) event.preventDefault();
}

/** Whether the control that has the focus needs the key. */
function isForControl({ target, key }: KeyboardEvent): boolean {
  const control = target as HTMLElement;
  if (control.matches("input:not([type=checkbox]):not([type=radio]), select, textarea")) return true;
  if (!control.matches("button, input, summary, a")) return false;
  return key === "Enter" || key === " " || (key.startsWith("Arrow") && control.matches("input"));
}

function withControl(app: App, event: KeyboardEvent): boolean {
  if (event.key === "F3") {
    if (app.panel !== "find") app.openPanel("find", true);
    else app.panels.find.step(event.shiftKey ? -1 : 1);
    return true;
  }
  if (!event.ctrlKey && !event.metaKey) return false;
  switch (event.key.toLowerCase()) {
    case "f":
      app.openPanel("find", true);
      return true;
    case "o":
      void app.choose();
      return true;
    case "s":
      app.save();
      return true;
    case "p":
      app.print();
      return true;
    default:
      return false;
  }
}

const pageKeys: { [key: string]: (app: App) => void } = {
  o: (app) => void app.choose(),
  "?": (app) => app.help(),
  "/": (app) => app.openPanel("find", true),
  l: (app) => app.togglePanel("layers"),
  s: (app) => app.togglePanel("sheet"),
  i: (app) => app.togglePanel("contents"),
  m: (app) => app.togglePanel("measure"),
  k: (app) => app.togglePanel("compare"),
  d: (app) => measure(app, "distance"),
  g: (app) => measure(app, "angle"),
  a: (app) => measure(app, "area"),
  p: (app) => app.choosePart(),
  v: (app) => app.setTool(null),
  "0": (app) => app.fullSheet(),
  home: (app) => app.fullSheet(),
  "1": (app) => app.trueSize(),
  "9": (app) => app.fit(),
  x: (app) => app.tab && app.close(app.tab),
  pagedown: (app) => stepTab(app, 1),
  pageup: (app) => stepTab(app, -1),
};

function ofPage(app: App, pressed: string): boolean {
  const key = pressed.toLowerCase();
  // Tools have these for themselves.
  if (app.stage.tool && ["c", "n", "backspace"].includes(key)) return false;
  const action = Object.hasOwn(pageKeys, key) ? pageKeys[key] : undefined;
  action?.(app);
  return action !== undefined;
}

function measure(app: App, kind: MeasureKind): void {
  app.panels.measure.start(kind);
  const narrow = 700;
  if (app.panel !== "measure" && window.innerWidth > narrow) app.openPanel("measure", false);
}

function stepTab(app: App, by: number): void {
  const { tabs, tab } = app;
  if (tab && tabs.length > 1) app.activate(tabs[(tabs.indexOf(tab) + by + tabs.length) % tabs.length]!);
}

function escape(app: App): void {
  const { tool } = app.stage;
  if (tool?.key("Escape")) app.stage.invalidate();
  else if (tool) app.setTool(null);
  else if (app.tab?.converting) app.cancel();
  else if (app.panel) app.closePanel();
}
