// Drawings as bytes. Groups are written "code value", one a line, in ASCII.
export function drawingOf(groups: string): Uint8Array<ArrayBuffer> {
  const lines = groups.trim().split("\n").map((line) => line.replace(/^(\S+) ?/, "$1\n"));
  return new TextEncoder().encode(lines.join("\n") + "\n");
}

export const header = `
0 SECTION
2 HEADER
9 $LIMMIN
10 0
20 0
9 $LIMMAX
10 420
20 297
0 ENDSEC
`.trimStart();

const end = "0 ENDSEC\n0 EOF\n";

/** An A3 sheet. */
export function a3(entities: string): Uint8Array<ArrayBuffer> {
  return drawingOf(`${header}0 SECTION\n2 ENTITIES\n${entities}${end}`);
}

export function a3WithTables(tables: string, entities: string): Uint8Array<ArrayBuffer> {
  return drawingOf(`${header}${tables}0 SECTION\n2 ENTITIES\n${entities}${end}`);
}

export const line = "0 LINE\n8 0\n10 0\n20 0\n11 10\n21 20\n";

// A block that contains itself, so that its drawing has no end.
export const endless = a3WithTables(
  `0 SECTION\n2 BLOCKS\n0 BLOCK\n8 0\n2 A\n70 0\n10 0\n20 0\n3 A\n${line}0 INSERT\n8 0\n2 A\n10 0\n20 0\n0 ENDBLK\n8 0\n0 ENDSEC\n`,
  "0 INSERT\n8 0\n2 A\n10 1\n20 1\n",
);
