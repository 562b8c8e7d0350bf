// The colours of strokes on light and dark paper.
import type { Colours } from "./settings";

/** How bright a colour looks, from 0 to 1. */
function brightness(red: number, green: number, blue: number): number {
  return (0.2126 * red + 0.7152 * green + 0.0722 * blue) / 255;
}

/** Black becomes white and white the paper; other colours are mixed with white until they are bright enough. */
export function onDark(color: number): number {
  const red = (color >> 16) & 255,
    green = (color >> 8) & 255,
    blue = color & 255;
  const bright = brightness(red, green, blue),
    enough = 0.42;
  if (bright > 0.97) return looks.dark.paper;
  const isGrey = Math.max(red, green, blue) - Math.min(red, green, blue) < 24;
  if (isGrey) return Math.round(255 * Math.max(enough, 1 - bright)) * 0x010101;
  const white = bright >= enough ? 0 : (enough - bright) / (1 - bright);
  const mixed = (value: number): number => Math.round(value + (255 - value) * white);
  return (mixed(red) << 16) | (mixed(green) << 8) | mixed(blue);
}

export function mapColor(colours: Colours, color: number): number {
  return colours === "dark" ? onDark(color) : color;
}

export const looks = {
  light: { paper: 0xffffff, around: 0xc9ced6 },
  dark: { paper: 0x1d2026, around: 0x111317 },
};
