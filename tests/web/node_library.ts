// Starts the library in Node, with the viewer's fonts.
import { readFileSync } from "node:fs";
import { Library } from "../../web/library/library";
import type { Font } from "../../web/library/protocol";

export function readFonts(folder: string): Font[] {
  const rows = JSON.parse(readFileSync(`${folder}/fonts/fonts.json`, "utf8")) as { file: string; families: string[] }[];
  return rows.map(({ file, families }) => ({ families, bytes: readFileSync(`${folder}/fonts/${file}`) }));
}

export function compileModule(folder: string): WebAssembly.Module {
  return new WebAssembly.Module(readFileSync(`${folder}/lib/hexlume.wasm`));
}

/** @param folder  build/web */
export function startLibrary(folder: string): Library {
  const library = new Library(compileModule(folder));
  library.setFonts(readFonts(folder));
  return library;
}
