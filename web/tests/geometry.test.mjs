// The parts of the viewer that need no page. Expectations are worked out by hand.
import assert from "node:assert/strict";
import path from "node:path";
import { test } from "node:test";
import { build } from "esbuild";
import { root } from "./browser.mjs";

/** The exports of a source of the viewer. */
async function load(...sources) {
  const contents = sources.map((source) => `export * from "./${source}";`).join("\n");
  const { outputFiles } = await build({
    stdin: { contents, resolveDir: path.join(root, "web/viewer"), loader: "ts" },
    bundle: true,
    write: false,
    format: "esm",
    target: "es2022",
    logLevel: "error",
  });
  return import(`data:text/javascript;base64,${Buffer.from(outputFiles[0].text).toString("base64")}`);
}

globalThis.ImageData ??= class {
  constructor(width, height) {
    this.data = new Uint8ClampedArray(width * height * 4);
  }
};

const viewer = await load(
  "emf",
  "fill",
  "clip",
  "find",
  "compare",
  "tool_measure",
  "raster",
  "colours",
  "print",
  "snap",
  "flatten",
  "viewport",
);

const [line, , trapezoid, arc] = [0, 1, 2, 3];
const himetric = [17, 3],
  white = 0x80000000,
  blackPen = 0x80000007;

/** A metafile of a frame of 100 by 50 mm whose pixels are a quarter of a millimetre: 1,000 pixels of 250 mm. */
function metafile(...records) {
  const header = new Array(25).fill(0);
  header.splice(4, 4, 0, 0, 10000, 5000);
  header[8] = 0x464d4520;
  header.splice(16, 4, 1000, 1000, 250, 250);
  const words = [];
  for (const [type, ...rest] of [[1, ...header], ...records, [14, 0, 0, 20]])
    words.push(type, 4 * (rest.length + 2), ...rest);
  return new Uint8Array(Int32Array.from(words, (word) => word | 0).buffer);
}

/** Kind and numbers of each item; a negative zero is a zero. */
const items = (sheet) =>
  Array.from({ length: sheet.count }, (_, i) => [
    sheet.kinds[i],
    ...Array.from(sheet.data.subarray(6 * i, 6 * i + 6), (value) => value + 0),
  ]);
const near = (actual, wanted) => {
  assert.equal(actual.length, wanted.length, String(actual));
  wanted.forEach((value, i) => assert.ok(Math.abs(actual[i] - value) < 1e-3, `${actual} instead of ${wanted}`));
};

test("a line in hundredths of a millimetre grows downward on the sheet", () => {
  const sheet = viewer.readMetafile(metafile(himetric, [27, 100, -200], [54, 300, -400]));
  assert.deepEqual(items(sheet), [[line, 100, 200, 300, 400, 0, 0]]);
  assert.deepEqual(sheet.frame, { left: 0, top: 0, right: 10000, bottom: 5000 });
});

test("a line in pixels has 25 hundredths for each", () => {
  const sheet = viewer.readMetafile(metafile([27, 4, 8], [54, 12, 8]));
  assert.deepEqual(items(sheet), [[line, 100, 200, 300, 200, 0, 0]]);
});

test("a line of length 0 is empty with the thinnest pen, and a point with a wide one", () => {
  const wide = [38, 1, 0, 50, 0, 0x0000ff];
  assert.equal(viewer.readMetafile(metafile(himetric, [27, 5, 5], [54, 5, 5])).count, 0);
  const sheet = viewer.readMetafile(metafile(himetric, wide, [37, 1], [27, 5, -5], [54, 5, -5]));
  assert.deepEqual(items(sheet), [[line, 5, 5, 5, 5, 0, 0]]);
  // 0x0000ff is red: the lowest byte.
  assert.deepEqual(sheet.penTable, [{ color: 0xff0000, width: 50, dash: 0 }]);
});

test("an arc by angles runs clockwise on the sheet, with a line to its start", () => {
  const floats = (value) => new Int32Array(Float32Array.of(value).buffer)[0];
  const arcRecord = [41, 1000, -2000, 500, floats(0), floats(90)];
  const sheet = viewer.readMetafile(metafile(himetric, [27, 1000, -2000], arcRecord, [54, 0, 0]));
  const [toStart, curve, after] = items(sheet);
  near(toStart, [line, 1000, 2000, 1500, 2000, 0, 0]);
  near(curve, [arc, 1000, 2000, 500, 500, 0, Math.PI / 2]);
  // The place after it is where the angle of 90 degrees is in the logical units: at -2000 - 500.
  near(after, [line, 1000, 2500, 0, 0, 0, 0]);
});

test("a clip region cuts lines, also where they cross several of its boxes", () => {
  // Boxes of pixels: 0 to 10 by 0 to 2, and 0 to 10 by 2 to 4, which are 0 to 250 by 0 to 50 and 50 to 100.
  const region = [32, 1, 2, 32, 0, 0, 10, 4, 0, 0, 10, 2, 0, 2, 10, 4];
  const clip = [75, 4 * region.length, 5, ...region],
    sheet = viewer.readMetafile(
      metafile(
        himetric,
        clip,
        [27, 100, -50],
        [54, 1000, -50],
        [27, 50, 100],
        [54, 50, -300],
        [75, 0, 5],
        [27, 0, -10],
        [54, 5000, -10],
      ),
    );
  assert.deepEqual(items(sheet), [
    [line, 100, 50, 250, 50, 0, 0],
    [line, 50, 0, 50, 100, 0, 0],
    [line, 0, 10, 5000, 10, 0, 0],
  ]);
});

test("a polygon is filled, then stroked", () => {
  const square = [3, 0, 0, 0, 0, 4, 0, 0, 100, 0, 100, -100, 0, -100];
  const [fill, ...sides] = items(viewer.readMetafile(metafile(himetric, [37, white | 4], [37, blackPen], square)));
  assert.deepEqual(fill, [trapezoid, 0, 0, 100, 100, 0, 100]);
  assert.deepEqual(
    sides.map(([kind, ...numbers]) => [kind, ...numbers.slice(0, 4)]),
    [
      [line, 0, 0, 100, 0],
      [line, 100, 0, 100, 100],
      [line, 100, 100, 0, 100],
      [line, 0, 100, 0, 0],
    ],
  );
});

test("a malformed metafile ends or is skipped, without harm", () => {
  const good = [
    [27, 0, 0],
    [54, 4, 4],
  ];
  // A polygon of more points than it has, and a text beyond its record.
  const text = [84, ...new Array(9).fill(0), 1000, 76, 0, 0, 0, 0, 0, 0];
  assert.equal(viewer.readMetafile(metafile([3, 0, 0, 0, 0, 1e9], ...good, text, ...good)).count, 2);
  const whole = metafile(...good, ...good);
  for (let length = 108; length < whole.length; ++length)
    assert.ok(viewer.readMetafile(whole.slice(0, length)).count <= 2);
  assert.throws(() => viewer.readMetafile(new Uint8Array(200)));
  const broken = new Int32Array(metafile(...good).buffer.slice(0));
  broken[27 + 1] = 0x7ffffff0;
  assert.equal(viewer.readMetafile(new Uint8Array(broken.buffer)).count, 0);
});

function trapezoids(points, winding) {
  const list = [];
  viewer.fillPolygon(
    points.map(([x, y]) => ({ x, y })),
    winding,
    (...numbers) => list.push(numbers),
  );
  return list;
}

test("an hourglass is cut at its crossing", () => {
  assert.deepEqual(
    trapezoids(
      [
        [0, 0],
        [10, 0],
        [0, 10],
        [10, 10],
      ],
      false,
    ),
    [
      [0, 0, 10, 5, 5, 5],
      [5, 5, 5, 10, 0, 10],
    ],
  );
});

test("what is surrounded twice is filled by winding, and not by even and odd", () => {
  const twice = [
    [0, 0],
    [10, 0],
    [10, 10],
    [0, 10],
    [0, 0],
    [10, 0],
    [10, 10],
    [0, 10],
  ];
  const area = (list) =>
    list.reduce((sum, [a, top, b, bottom, c, d]) => sum + ((b - a + d - c) / 2) * (bottom - top), 0);
  assert.equal(area(trapezoids(twice, false)), 0);
  assert.equal(area(trapezoids(twice, true)), 100);
});

test("regions are combined", () => {
  const box = (left, top, right, bottom) => ({ left, top, right, bottom });
  const a = [box(0, 0, 10, 10)],
    b = [box(5, 5, 15, 15)];
  assert.deepEqual(viewer.combine(a, b, 1), [box(5, 5, 10, 10)]);
  assert.deepEqual(viewer.combine(a, b, 2), [box(0, 0, 10, 5), box(0, 5, 15, 10), box(5, 10, 15, 15)]);
  assert.deepEqual(viewer.combine(a, b, 3), [
    box(0, 0, 10, 5),
    box(0, 5, 5, 10),
    box(10, 5, 15, 10),
    box(5, 10, 15, 15),
  ]);
  assert.deepEqual(viewer.combine(a, b, 4), [box(0, 0, 10, 5), box(0, 5, 5, 10)]);
  assert.deepEqual(viewer.combine(null, b, 1), b);
  assert.ok(viewer.contains([box(0, 0, 10, 5), box(0, 5, 10, 10)], box(1, 1, 9, 9)));
  assert.ok(!viewer.contains([box(0, 0, 10, 5), box(0, 6, 10, 10)], box(1, 1, 9, 9)));
});

test("texts are compared without width, case and spaces", () => {
  assert.equal(viewer.plainText("ＤＲＡＷＩＮＧ　Ｎｏ．１"), "drawingno.1");
  assert.equal(viewer.plainText("ﾊｯﾁﾝｸﾞ"), "ハッチング");
});

test("angles, areas and lengths", () => {
  const points = (...list) => list.map(([x, y]) => ({ x, y }));
  assert.equal(viewer.angleOf(points([0, 0], [10, 0], [0, -10])), 90);
  assert.ok(
    Math.abs(viewer.angleOf(points([0, 0], [-10, 1], [-10, -1])) - (2 * Math.atan(0.1) * 180) / Math.PI) < 1e-9,
  );
  // Half of 30 by 40, and 30 + 40 + 50.
  assert.equal(viewer.areaOf(points([0, 0], [30, 0], [0, 40])), 600);
  assert.equal(viewer.lengthOf(points([0, 0], [30, 0], [0, 40]), true), 120);
  assert.equal(viewer.lengthOf(points([0, 0], [30, 0], [0, 40]), false), 80);
});

test("lines cross, and parallels don't", () => {
  const data = [0, 0, 10, 10, 0, 10, 10, 0, 0, 5, 10, 15, 0, 0, 3, 0];
  assert.deepEqual(viewer.crossingOf(data, 0, 1), { x: 5, y: 5 });
  assert.equal(viewer.crossingOf(data, 0, 2), null);
  assert.equal(viewer.crossingOf(data, 1, 3), null);
});

test("a comparison counts strokes, whichever way they run and as often as both have them", () => {
  const stroke = (x0, y0, x1, y1) => [
    [27, x0, -y0],
    [54, x1, -y1],
  ];
  const a = viewer.readMetafile(
    metafile(himetric, ...stroke(0, 0, 100, 0), ...stroke(0, 0, 100, 0), ...stroke(5, 5, 50, 50)),
  );
  const b = viewer.readMetafile(metafile(himetric, ...stroke(100, 0, 0, 0), ...stroke(9000, 4000, 9100, 4000)));
  const { onlyFirst, onlySecond, both, sheet, places } = viewer.compareSheets(a, b);
  assert.deepEqual([onlyFirst, onlySecond, both, sheet.count], [2, 1, 1, 4]);
  assert.equal(places.length, 2);
});

test("thin level lines fill one row of pixels; sloped ones share their ink", () => {
  const draw = (x0, y0, x1, y1, width = 0) => {
    const raster = new viewer.Raster(8, 6),
      floats = Float32Array.of(x0, y0, x1, y1, width / 2, 0, 0),
      words = new Uint32Array(floats.buffer);
    raster.clear(0xffffffff);
    raster.draw(floats, words, 0, 1, { x: 0, y: 0, scale: 1, leastHalf: 0.5 });
    return Array.from({ length: 6 }, (_, y) =>
      Array.from({ length: 8 }, (_, x) => 255 - (raster.pixels[y * 8 + x] & 255)),
    );
  };
  const level = draw(1, 2.3, 4, 2.3);
  assert.deepEqual(level[2], [0, 255, 255, 255, 255, 0, 0, 0]);
  assert.equal(level.flat().filter(Boolean).length, 4);
  const sloped = draw(1, 1, 6, 3);
  // A line that is a pixel thick and has length 5.4, with half a pixel at each end, has about 6.4 pixels of ink.
  const ink = sloped.flat().reduce((sum, value) => sum + value, 0) / 255;
  assert.ok(ink > 5.8 && ink < 7, `${ink}`);
  // Far outside of the picture, and larger than it.
  assert.equal(draw(-1e7, -1e7, -1e6, -1e6).flat().filter(Boolean).length, 0);
  assert.deepEqual(draw(-1e7, 3, 1e7, 3)[3], new Array(8).fill(255));
});

test("on dark paper black is white, white is the paper, and no colour is too dark", () => {
  assert.equal(viewer.onDark(0x000000), 0xffffff);
  assert.equal(viewer.onDark(0xffffff), viewer.looks.dark.paper);
  assert.equal(viewer.onDark(0x00ffff), 0x00ffff);
  const blue = viewer.onDark(0x0000ff);
  assert.ok(blue >> 16 > 80 && (blue & 255) === 255);
});

test("a sheet comes on pages at true scale", () => {
  const sheet = { frame: { left: 0, top: 0, right: 59400, bottom: 42000 } },
    [a4] = viewer.papers;
  // 594 by 420 mm: 2 by 2 pages of 297 by 210 mm, 3 by 2 of 210 by 297.
  assert.deepEqual(viewer.planPrint(sheet, a4, true, false), {
    width: 297,
    height: 210,
    factor: 1,
    columns: 2,
    rows: 2,
  });
  assert.deepEqual(viewer.planPrint(sheet, a4, false, false), {
    width: 210,
    height: 297,
    factor: 1,
    columns: 3,
    rows: 2,
  });
  assert.deepEqual(viewer.planPrint(sheet, a4, true, true), {
    width: 297,
    height: 210,
    factor: 0.5,
    columns: 1,
    rows: 1,
  });
  assert.deepEqual(viewer.planPrint(sheet, null, false, false), {
    width: 594,
    height: 420,
    factor: 1,
    columns: 1,
    rows: 1,
  });
});

test("zooming keeps the place under the pointer, and curves are cut as finely as is asked", () => {
  const view = new viewer.Viewport();
  Object.assign(view, { x: 100, y: 200, scale: 0.5, width: 800, height: 600 });
  view.zoomAt(400, 300, 2, 0.001);
  // The place is 100 + 400 / 0.5 = 900, and 900 - 400 / 1 = 500.
  assert.deepEqual([view.scale, view.x, view.y], [1, 500, 500]);
  const points = [];
  viewer.flattenArc([0, 0, 1000, 1000, 0, Math.PI], 0, 0.5, (x, y) => points.push({ x, y }));
  points.slice(1).forEach((point, i) => {
    const middle = Math.hypot((point.x + points[i].x) / 2, (point.y + points[i].y) / 2);
    assert.ok(1000 - middle <= 0.5 + 1e-9);
  });
});
