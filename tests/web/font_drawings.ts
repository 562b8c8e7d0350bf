// Writes drawings with all characters of code page 932, in the faces that drawings name: font_drawings.mjs FOLDER
import { mkdirSync, writeFileSync } from "node:fs";
import { header } from "./drawings";

// In code page 932, which Node can't write.
const gothic = [0x83, 0x53, 0x83, 0x56, 0x83, 0x62, 0x83, 0x4e]; // ゴシック
const ms = [0x82, 0x6c, 0x82, 0x72, 0x20]; // ＭＳ and a blank
const ascii = (text: string): number[] => [...Buffer.from(text, "latin1")];

const faces: Record<string, number[]> = {
  none: [],
  "ipa-gothic": ascii("IPAGothic"),
  "other-case": ascii("ipa gothic"),
  "ipa-japanese": [...ascii("IPA"), ...gothic],
  "ipa-proportional": ascii("IPAPGothic"),
  "ipa-proportional-japanese": [...ascii("IPA P"), ...gothic],
  "ms-gothic": [...ms, ...gothic],
  "ms-mincho": [...ms, 0x96, 0xbe, 0x92, 0xa9],
  "ms-p-gothic": [...ms, 0x82, 0x6f, ...gothic],
  arial: ascii("Arial"),
};
const heights = ["2.5", "7", "33.3"];
const charactersOfText = 20;

function characters(): number[][] {
  const all: number[][] = [];
  for (let byte = 0x21; byte < 0x100; ++byte) {
    const isLead = (byte >= 0x81 && byte <= 0x9f) || (byte >= 0xe0 && byte <= 0xfc);
    if (!isLead) all.push([byte]);
    for (let trail = 0x40; isLead && trail < 0xfd; ++trail) if (trail !== 0x7f) all.push([byte, trail]);
  }
  return all;
}

function drawing(face: number[], height: string): Buffer {
  const lines = (groups: string): number[] => ascii(groups.trim().replace(/ (.*)/g, "\n$1") + "\n");
  const bytes = lines(`${header}0 SECTION\n2 ENTITIES`);
  const all = characters();
  for (let at = 0; at < all.length; at += charactersOfText) {
    const y = (at / charactersOfText) % 297;
    bytes.push(...lines(`0 MTEXT\n8 0\n10 0\n20 ${y}\n40 ${height}`));
    bytes.push(...ascii("1\n\\W0;\\f"), ...face, ...ascii("|b0;"), ...all.slice(at, at + charactersOfText).flat(), 10);
  }
  bytes.push(...lines("0 ENDSEC\n0 EOF"));
  return Buffer.from(bytes);
}

const folder = process.argv[2] ?? ".";
mkdirSync(folder, { recursive: true });
for (const [name, face] of Object.entries(faces))
  for (const height of heights) {
    writeFileSync(`${folder}/${name}-${height}.dxf`, drawing(face, height));
    writeFileSync(`${folder}/${name}-vertical-${height}.dxf`, drawing([0x40, ...face], height));
  }
