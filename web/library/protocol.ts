// What the library takes and gives, and the messages between the page and the worker in which it runs.
// The meanings are those of include/hexlume_host.h: names here are the same in camel case.

/** A drawing: a file that the user dropped, or bytes. A Blob is read by the worker, in pieces. */
export type Drawing = Blob | Uint8Array;

/** A font of the library's own table. */
export interface Font {
  /** The names by which drawings ask for it, besides those that the font file has. Case doesn't matter. */
  families: string[];
  /** The bytes of a TrueType or OpenType file. */
  bytes: Uint8Array;
}

export type LineTypeFamily = "solid" | "dashed" | "dotted" | "chain" | "double-chain";

/** In hundredths of a millimetre of the sheet, from its left and top edge. */
export interface SheetPart {
  left: number;
  top: number;
  right: number;
  bottom: number;
}

/** A field that is left out has its default: false, 0, none. */
export interface Options {
  format?: "auto" | "as-is";
  sheet?: "whole" | "full-size" | "part";
  /** Only with sheet "part". */
  part?: SheetPart;
  turned?: boolean;
  wholeTexts?: boolean;
  monochrome?: boolean;
  halfWidth?: boolean;
  fit?: boolean;
  /** N of the scale 1:N beyond A0, 1 to 1000; 0 is 100. */
  denominator?: number;
  skipOffLayers?: boolean;
  hiddenLineTypes?: LineTypeFamily[];
  hiddenLayers?: string[];
  limitMilliseconds?: number;
  limitStrokes?: number;
  limitBytes?: number;
}

/** The short names of hexlume_status_name(). */
export type Status =
  | "ok"
  | "bad-argument"
  | "not-found"
  | "not-a-file"
  | "not-allowed"
  | "empty"
  | "dwg"
  | "binary-dxf"
  | "compressed"
  | "no-dxf"
  | "no-entities"
  | "no-layers"
  | "cut-off"
  | "too-large"
  | "cancelled"
  | "limit"
  | "fault"
  | "no-memory";

/** One sentence in both languages. */
export interface Sentence {
  en: string;
  ja: string;
}

export interface Remark {
  /** "no-such-layer", "cut-off", "substituted", "not-utf8", "embedded" or "bound". */
  name: string;
  /** Line of the file; 0 without one. */
  line: number;
  count: number;
  /** For example the name of a layer. */
  detail: string;
  sentence: Sentence;
}

/** What every call gives, whatever its status is. */
export interface Result {
  status: Status;
  sentence: Sentence;
  /** Line of the file, from 1; 0 if the status has none. */
  line: number;
  remarks: Remark[];
  /** In hundredths of a millimetre; 0 if the drawing couldn't be measured. */
  sheetWidth: number;
  sheetHeight: number;
  /** N of the scale 1:N beyond A0, otherwise 1. */
  denominator: number;
  bytesRead: number;
  /** Characters that code page 932 doesn't have. */
  substituted: number;
  /** Embedded objects that were left out. */
  embedded: number;
  /** Time of the call in the library. */
  milliseconds: number;
}

export interface Conversion extends Result {
  kind: "conversion";
  /** Strokes drawn, as limitStrokes counts them. */
  strokes: number;
  /** The bytes of a .emf file, or null. Can be there also if the status isn't "ok". */
  metafile: Uint8Array | null;
}

/** Left, bottom, right and top, in the units of the drawing. */
export type Box = [number, number, number, number];

export interface Layer {
  name: string;
  /** As in the file: negative if the layer is off; 0 without one. */
  color: number;
  lineType: string;
  /** False if skipOffLayers leaves it out. */
  shown: boolean;
}

export interface LineType {
  name: string;
  /** Number of dashes, gaps and dots. */
  elements: number;
}

export interface Block {
  name: string;
  entities: number;
  line: number;
}

/** Entities of one kind on one layer, sorted by kind and layer. */
export interface Entities {
  kind: string;
  /** "" for entities without one. */
  layer: string;
  count: number;
  /** Each block counted once. */
  countInBlocks: number;
  /** Whether the library draws this kind in the ENTITIES section. */
  drawn: boolean;
  drawnInBlocks: boolean;
}

export interface Text {
  kind: "TEXT" | "MTEXT" | "ATTRIB" | "ATTDEF";
  layer: string;
  /** Name of the block that contains it; "" in the ENTITIES section. */
  block: string;
  /** As in the file, with its codes. */
  text: string;
  /** In the units of the drawing or of the block. */
  x: number;
  y: number;
  height: number;
  /** In degrees. */
  angle: number;
  line: number;
}

/** What the header says. */
export interface Summary {
  /** $ACADVER, for example "AC1015"; "" if there is none. */
  version: string;
  /** Units of the drawing for a millimetre of the sheet, denominator included. */
  scale: number;
  sheetWidth: number;
  sheetHeight: number;
  denominator: number;
  /** Null if a corner is missing. */
  limits: Box | null;
  extents: Box | null;
}

export interface Inspection extends Result {
  kind: "inspection";
  /** Null if nothing was read. */
  summary: Summary | null;
  layers: Layer[];
  lineTypes: LineType[];
  dimStyles: string[];
  blocks: Block[];
  entities: Entities[];
  texts: Text[];
}

/** How far a call is. */
export interface Progress {
  /** From 1. */
  pass: number;
  passes: number;
  /** Bytes read in this pass. */
  done: number;
  total: number;
}

/** From the page to the worker. "start" is the first one. Calls are done one after the other, in their order. */
export type Request =
  | { kind: "start"; module: WebAssembly.Module; fonts: Font[] }
  | { kind: "fonts"; fonts: Font[] }
  | { kind: "convert"; id: number; drawing: Drawing; options: Options }
  | { kind: "inspect"; id: number; drawing: Drawing; options: Options };

/** From the worker to the page. "ready" answers "start". The buffer of a metafile is transferred. */
export type Reply =
  | { kind: "ready"; version: string }
  | { kind: "failed"; reason: string }
  | { kind: "progress"; id: number; progress: Progress }
  | { kind: "result"; id: number; result: Conversion | Inspection };
