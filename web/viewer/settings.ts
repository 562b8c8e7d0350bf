// What the page remembers between visits, where the browser lets it.
import type { Language } from "./texts";

export type Colours = "drawn" | "black" | "dark";

export interface Settings {
  language: Language | null;
  colours: Colours;
  panel: string;
  snap: boolean;
  skipOffLayers: boolean;
  halfWidth: boolean;
  denominator: number;
  dpi: number;
  paper: string;
  ruler: boolean;
}

const key = "hexlume-viewer";

const defaults: Settings = {
  language: null,
  colours: "drawn",
  panel: "",
  snap: true,
  skipOffLayers: false,
  halfWidth: false,
  denominator: 0,
  dpi: 150,
  paper: "sheet",
  ruler: false,
};

export function loadSettings(): Settings {
  const settings = { ...defaults };
  try {
    const kept: unknown = JSON.parse(localStorage.getItem(key) ?? "{}");
    if (typeof kept !== "object" || kept === null) return settings;
    for (const [name, value] of Object.entries(kept)) {
      const known = settings[name as keyof Settings];
      if (known !== undefined && (known === null || typeof known === typeof value))
        Object.assign(settings, { [name]: value });
    }
  } catch {
    // Storage is forbidden, or has something else: the defaults hold.
  }
  return settings;
}

export function saveSettings(settings: Settings): void {
  try {
    localStorage.setItem(key, JSON.stringify(settings));
  } catch {
    // Storage is forbidden or full: the settings are kept until the page is closed.
  }
}
