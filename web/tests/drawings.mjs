// Drawings that tests make.

/** A drawing of AC1009 with the entities, on a sheet of so many millimetres. */
export function drawing(entities, width = 420, height = 297) {
  const header = [
    "0",
    "SECTION",
    "2",
    "HEADER",
    "9",
    "$ACADVER",
    "1",
    "AC1009",
    "9",
    "$LIMMIN",
    "10",
    "0.0",
    "20",
    "0.0",
    "9",
    "$LIMMAX",
    "10",
    `${width}.0`,
    "20",
    `${height}.0`,
    "9",
    "$EXTMIN",
    "10",
    "0.0",
    "20",
    "0.0",
    "9",
    "$EXTMAX",
    "10",
    `${width}.0`,
    "20",
    `${height}.0`,
    "0",
    "ENDSEC",
  ];
  const layers = [
    "0",
    "SECTION",
    "2",
    "TABLES",
    "0",
    "TABLE",
    "2",
    "LAYER",
    "70",
    "1",
    "0",
    "LAYER",
    "2",
    "0",
    "70",
    "0",
    "62",
    "7",
    "6",
    "CONTINUOUS",
    "0",
    "ENDTAB",
    "0",
    "ENDSEC",
  ];
  return [...header, ...layers, "0", "SECTION", "2", "ENTITIES", ...entities, "0", "ENDSEC", "0", "EOF", ""].join(
    "\r\n",
  );
}

export function line(x0, y0, x1, y1, color = 7) {
  return [
    "0",
    "LINE",
    "8",
    "0",
    "62",
    String(color),
    "10",
    x0.toFixed(3),
    "20",
    y0.toFixed(3),
    "11",
    x1.toFixed(3),
    "21",
    y1.toFixed(3),
  ];
}

export function circle(x, y, radius) {
  return ["0", "CIRCLE", "8", "0", "10", String(x), "20", String(y), "40", String(radius)];
}

/** Many short lines in rows, with slopes and colours that change. */
export function manyLines(count) {
  const entities = [],
    columns = Math.ceil(Math.sqrt(count * 1.4)),
    stepX = 400 / columns,
    stepY = (280 * columns) / count;
  for (let i = 0; i < count; ++i) {
    const x = 10 + (i % columns) * stepX,
      y = 8 + Math.floor(i / columns) * stepY;
    entities.push(line(x, y, x + stepX * (0.3 + (i % 7) / 10), y + stepY * ((i % 5) / 5), 1 + (i % 7)).join("\r\n"));
  }
  return drawing(entities);
}
