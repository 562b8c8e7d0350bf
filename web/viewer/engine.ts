// Starts the library and the fonts that are in the page.
import { Client } from "../library/client";
import type { Font } from "../library/protocol";
import workerSource from "worker:../library/worker.ts";
import { loadFaces } from "./faces";
import type { Faces } from "./faces";

export interface Engine {
  client: Client;
  faces: Faces;
  /** Licences of what is in the page. */
  notices: string;
}

/** A row of fonts.json. */
interface FontRow {
  file: string;
  families: string[];
  /** Whether texts can be drawn with it. */
  outlines: boolean;
}

/** Files, compressed with gzip, in base64. */
export type Assets = { [name: string]: string };

function fromBase64(text: string): Uint8Array {
  const direct = (Uint8Array as { fromBase64?: (text: string) => Uint8Array }).fromBase64;
  if (direct) return direct(text);
  const binary = atob(text),
    bytes = new Uint8Array(binary.length);
  for (let i = 0; i < binary.length; ++i) bytes[i] = binary.charCodeAt(i);
  return bytes;
}

async function unpacked(text: string): Promise<Uint8Array> {
  const stream = new Blob([fromBase64(text) as Uint8Array<ArrayBuffer>])
    .stream()
    .pipeThrough(new DecompressionStream("gzip"));
  return new Uint8Array(await new Response(stream).arrayBuffer());
}

function startWorker(): Worker {
  const url = URL.createObjectURL(new Blob([workerSource], { type: "text/javascript" }));
  const worker = new Worker(url);
  // Some browsers load the worker a little later.
  setTimeout(() => URL.revokeObjectURL(url), 20000);
  return worker;
}

function assetOf(assets: Assets, name: string): string {
  const asset = assets[name];
  if (asset === undefined) throw new Error(`the page has no ${name}`);
  return asset;
}

/** All fonts, and the bytes of the one that texts are drawn with. */
async function readFonts(assets: Assets): Promise<{ fonts: Font[]; drawn: Uint8Array }> {
  const rows = JSON.parse(new TextDecoder().decode(await unpacked(assetOf(assets, "fonts.json")))) as FontRow[];
  const fonts = await Promise.all(
    rows.map(async ({ file, families }) => ({ families, bytes: await unpacked(assetOf(assets, file)) })),
  );
  const drawn = fonts[rows.findIndex((row) => row.outlines)];
  if (!drawn) throw new Error("the page has no font");
  return { fonts, drawn: drawn.bytes };
}

/** Takes the assets out of the page. */
export function takeAssets(): Assets {
  const holder = document.getElementById("assets");
  const assets = JSON.parse(holder?.textContent ?? "{}") as Assets;
  holder?.remove();
  return assets;
}

export async function startEngine(assets: Assets): Promise<Engine> {
  const [{ fonts, drawn }, module, notices] = await Promise.all([
    readFonts(assets),
    unpacked(assetOf(assets, "hexlume.wasm")).then((bytes) => WebAssembly.compile(bytes as Uint8Array<ArrayBuffer>)),
    unpacked(assetOf(assets, "notices.txt")).then((bytes) => new TextDecoder().decode(bytes)),
  ]);
  return { client: new Client(startWorker, module, fonts), faces: await loadFaces(drawn), notices };
}
