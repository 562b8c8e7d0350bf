// The colours in which a drawing or a comparison is shown, saved and printed.
import { looks, mapColor } from "./colours";
import { Only } from "./compare";
import type { Colours } from "./settings";
import type { Scene } from "./stage";
import type { Tab } from "./tab";

const onlyColours = { [Only.both]: 0xa4aab4, [Only.first]: 0xd8201c, [Only.second]: 0x0a8f3a };

export interface ColourRules {
  colorOf(item: number): number;
  textColorOf(text: number): number;
}

export function colourRules(tab: Tab, colours: Colours): ColourRules {
  const sheet = tab.sheet!,
    { comparison } = tab;
  if (comparison) {
    return {
      colorOf: (item) => onlyColours[comparison.items[item] as Only],
      textColorOf: (text) => onlyColours[comparison.texts[text] as Only],
    };
  }
  const pens = sheet.penTable.map((pen) => mapColor(colours, pen.color));
  return {
    colorOf: (item) => pens[sheet.pens[item]!]!,
    textColorOf: (text) => mapColor(colours, sheet.texts[text]!.color),
  };
}

export function sceneOf(tab: Tab, colours: Colours): Scene {
  const sheet = tab.sheet!,
    look = colours === "dark" ? looks.dark : looks.light;
  return { sheet, look: { ...look, frame: sheet.frame }, ...colourRules(tab, colours) };
}
