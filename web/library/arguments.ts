// Options as the module takes them: hexlume_input and hexlume_options.
import { type Memory } from "./memory";
import type { LineTypeFamily, Options } from "./protocol";

const inputSize = 32;
const optionsSize = 104;

const formats = { auto: 0, "as-is": 1 };
const sheets = { whole: 0, "full-size": 1, part: 2 };
const families: Record<LineTypeFamily, number> = { solid: 1, dashed: 2, dotted: 4, chain: 8, "double-chain": 16 };

/** What was allocated for a call. */
export interface Arguments {
  input: number;
  options: number;
  places: number[];
}

/** Frees nothing if there is no memory: the module is given up then. */
export function writeArguments(memory: Memory, drawing: number, size: number, options: Options, withProgress: boolean): Arguments {
  const places: number[] = [];
  const keep = (place: number): number => {
    places.push(place);
    return place;
  };
  const input = keep(memory.allocateClear(inputSize));
  memory.setInt(input, inputSize);
  memory.setLong(input + 16, size);
  memory.setInt(input + 28, drawing);

  const names = (options.hiddenLayers ?? []).map((name) => keep(memory.allocateText(name)));
  const layers = keep(memory.allocateClear(4 * names.length));
  names.forEach((name, index) => memory.setInt(layers + 4 * index, name));

  const place = keep(memory.allocateClear(optionsSize));
  memory.setInt(place, optionsSize);
  numbersOf(options).forEach((value, index) => memory.setInt(place + 4 + 4 * index, value));
  memory.setInt(place + 60, names.length);
  memory.setLong(place + 64, whole(options.limitMilliseconds));
  memory.setLong(place + 72, whole(options.limitStrokes));
  memory.setLong(place + 80, whole(options.limitBytes));
  memory.setInt(place + 88, names.length > 0 ? layers : 0);
  memory.setInt(place + 92, withProgress ? memory.exports.hexlume_page_progress_address() : 0);
  return { input, options: place, places };
}

// The 32-bit fields from format to hidden_line_types, in their order.
function numbersOf(options: Options): number[] {
  const part = options.part ?? { left: 0, top: 0, right: 0, bottom: 0 };
  return [
    formats[options.format ?? "auto"],
    sheets[options.sheet ?? "whole"],
    ...[part.left, part.top, part.right, part.bottom].map(whole),
    ...[options.turned, options.wholeTexts, options.monochrome, options.halfWidth, options.fit].map(Number).map(whole),
    whole(options.denominator),
    whole(Number(options.skipOffLayers)),
    (options.hiddenLineTypes ?? []).reduce((bits, family) => bits | families[family], 0),
  ];
}

// Pages compute with fractions; undefined and NaN are 0.
function whole(value: number | undefined): number {
  return Math.round(Number(value)) || 0;
}
