// The colours of strokes on light and dark paper.
import type { Colours } from "./settings";

/** Lightness and the colour's own tint are kept apart, so that red stays red on dark paper. */
export function onDark(color: number): number {
  const red = (color >> 16) & 255, green = (color >> 8) & 255, blue = color & 255;
  const lightness = (Math.max(red, green, blue) + Math.min(red, green, blue)) / 510;
  const wanted = Math.max(0.5, 1 - lightness);
  const shift = (value: number): number => {
    const light = lightness < 1e-6 ? 0 : value / 255;
    const moved = wanted >= lightness ? light + (1 - light) * ((wanted - lightness) / (1 - lightness || 1)) : light * (wanted / lightness);
    return Math.round(255 * Math.min(1, Math.max(0, moved)));
  };
  return (shift(red) << 16) | (shift(green) << 8) | shift(blue);
}

export function mapColor(colours: Colours, color: number): number {
  return colours === "dark" ? onDark(color) : color;
}

export const looks = {
  light: { paper: 0xffffff, around: 0xc9ced6 },
  dark: { paper: 0x1d2026, around: 0x111317 },
};
