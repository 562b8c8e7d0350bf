// The face in which texts are shown: MS Gothic where the system has it, otherwise the one in the page.
import { TrueType } from "./ttf";

/** Measures are parts of the em. */
export interface Face {
  /** The family for CSS. */
  family: string;
  ascent: number;
  descent: number;
  averageWidth: number;
  underline: number;
  thickness: number;
  strikeOut: number;
  advanceOf(codePoint: number): number;
}

const systemFamily = "Hexlume System",
  sheetFamily = "Hexlume Sheet";
const systemNames = ["MS Gothic", "MS-Gothic", "ＭＳ ゴシック"];

/** Characters of half a cell in MS Gothic: Latin and half-width Katakana. */
function isHalfWidth(codePoint: number): boolean {
  return codePoint < 0x80 || codePoint === 0xa5 || codePoint === 0x203e || (codePoint >= 0xff61 && codePoint <= 0xff9f);
}

const systemFace: Face = {
  family: systemFamily,
  ascent: 220 / 256,
  descent: 36 / 256,
  averageWidth: 0.5,
  underline: 0.086,
  thickness: 0.055,
  strikeOut: 0.28,
  advanceOf: (codePoint) => (isHalfWidth(codePoint) ? 0.5 : 1),
};

export interface Faces {
  /** In which texts are shown. */
  face: Face;
  /** Of the page, and its font: for PDF files. */
  ownFace: Face;
  font: TrueType;
}

async function load(family: string, source: string | BufferSource): Promise<boolean> {
  try {
    const face = new FontFace(family, source);
    document.fonts.add(await face.load());
    return true;
  } catch {
    return false;
  }
}

function faceOf(font: TrueType): Face {
  const advances = new Map<number, number>();
  const advanceOf = (codePoint: number): number => {
    let advance = advances.get(codePoint);
    if (advance === undefined) advances.set(codePoint, (advance = font.advanceOf(font.glyphOf(codePoint))));
    return advance;
  };
  return { family: sheetFamily, ...font.measures(), advanceOf };
}

/** @param bytes  the TrueType font of the page */
export async function loadFaces(bytes: Uint8Array): Promise<Faces> {
  const font = new TrueType(bytes),
    ownFace = faceOf(font);
  const local = systemNames.map((name) => `local("${name}")`).join(", ");
  if (await load(systemFamily, local)) return { face: systemFace, ownFace, font };
  await load(sheetFamily, bytes as Uint8Array<ArrayBuffer>);
  return { face: ownFace, ownFace, font };
}
