// What a user does with the viewer, clicked, typed and dragged in Chromium.
import assert from "node:assert/strict";
import { createServer } from "node:http";
import { copyFile, mkdtemp, mkdir, readFile, rm, writeFile } from "node:fs/promises";
import { execFileSync } from "node:child_process";
import os from "node:os";
import path from "node:path";
import { after, before, test } from "node:test";
import { pathToFileURL } from "node:url";
import { drop, example, inspected, launch, nativeTool, openViewer, root, settled, viewer } from "./browser.mjs";
import { circle, drawing, line } from "./drawings.mjs";

let browser;
let scratch;
before(async () => {
  browser = await launch();
  scratch = await mkdtemp(path.join(os.tmpdir(), "hexlume-viewer-"));
});
after(async () => {
  await browser.close();
  await rm(scratch, { recursive: true });
});

/** Runs with a page, which must end without an error and without a request to a network. */
async function withPage(work, options) {
  const page = await openViewer(browser, options);
  try {
    await work(page);
    assert.deepEqual(page.errors, []);
    assert.deepEqual(
      page.requests.filter((url) => !url.startsWith("http://127.0.0.1")),
      [],
    );
  } finally {
    await page.context().close();
  }
}

async function openDrawing(page, file) {
  await drop(page, [file]);
  await settled(page);
  await inspected(page);
}

const names = (page) => page.locator(".tab .name").allTextContents();
const percent = async (page) => Number((await page.textContent("#percent")).replace(/[^0-9.]/g, ""));
const strokes = async (page) =>
  Number(/([\d,]+) strokes/.exec(await page.textContent("#message"))[1].replace(/,/g, ""));
const stageBox = (page) => page.locator(".stage").boundingBox();

/** A place of the window for one in millimetres of a sheet of 420 × 297 that is shown as a whole. */
async function placeOf(page, x, y) {
  const box = await stageBox(page),
    scale = Math.min((box.width - 48) / 42000, (box.height - 48) / 29700);
  return [box.x + box.width / 2 + (x * 100 - 21000) * scale, box.y + box.height / 2 + (y * 100 - 14850) * scale];
}

test("a drawing is opened by the button", () =>
  withPage(async (page) => {
    const [chooser] = await Promise.all([page.waitForEvent("filechooser"), page.click("#open")]);
    await chooser.setFiles([example("WORKSHOP.dxf"), example("PART.dxf")]);
    await settled(page);
    assert.deepEqual(await names(page), ["WORKSHOP.dxf", "PART.dxf"]);
    assert.match(await page.textContent("#message"), /420 × 297 mm · 534 strokes, 52 texts/);
  }));

test("several dropped drawings become tabs with thumbnails, which are stepped through and closed", () =>
  withPage(async (page) => {
    await drop(page, [example("WORKSHOP.dxf"), example("PART.dxf"), example("CURVES.dxf")]);
    await settled(page);
    await page.waitForFunction(() => document.querySelectorAll("img.thumbnail").length === 3);
    await page.click(".tab:nth-child(3)");
    await settled(page);
    assert.match(await page.title(), /^CURVES\.dxf/);
    await page.keyboard.press("PageDown");
    await settled(page);
    assert.match(await page.title(), /^WORKSHOP\.dxf/);
    await page.click(".tab:nth-child(1) .close");
    assert.deepEqual(await names(page), ["PART.dxf", "CURVES.dxf"]);
    await page.keyboard.press("x");
    await page.keyboard.press("x");
    assert.deepEqual(await names(page), []);
    assert.ok(await page.isVisible(".welcome"));
  }));

test("a dropped folder gives the drawings in it and below it", () =>
  withPage(async (page) => {
    const folder = path.join(scratch, "folder");
    await mkdir(path.join(folder, "below"), { recursive: true });
    await copyFile(example("PART.dxf"), path.join(folder, "a.dxf"));
    await copyFile(example("POINT.dxf"), path.join(folder, "below", "b.DXF"));
    await writeFile(path.join(folder, "notes.txt"), "no drawing");
    // The browser's own drag: its protocol takes the path of a folder.
    const session = await page.context().newCDPSession(page),
      { x, y, width, height } = await stageBox(page);
    const data = { items: [], files: [folder], dragOperationsMask: 1 };
    for (const type of ["dragEnter", "dragOver", "drop"]) {
      await session.send("Input.dispatchDragEvent", { type, x: x + width / 2, y: y + height / 2, data });
    }
    await settled(page);
    assert.deepEqual(await names(page), ["a.dxf", "b.DXF"]);
  }));

test("?file= opens a drawing beside the page where the page is served, and says why not from a file", async () => {
  const files = { "/hexlume-viewer.html": viewer, "/PART.dxf": example("PART.dxf") };
  const server = createServer(async (request, response) => {
    const file = files[new URL(request.url, "http://127.0.0.1").pathname];
    response.writeHead(file ? 200 : 404);
    response.end(file ? await readFile(file) : "");
  }).listen(0, "127.0.0.1");
  try {
    await new Promise((done) => server.on("listening", done));
    const address = `http://127.0.0.1:${server.address().port}/hexlume-viewer.html`;
    await withPage(
      async (page) => {
        await settled(page);
        assert.deepEqual(await names(page), ["PART.dxf"]);
      },
      { address: `${address}?file=PART.dxf` },
    );
    const page = await openViewer(browser, { address: `${address}?file=none.dxf` });
    await page.waitForFunction(() => /none\.dxf/.test(document.querySelector("#message").textContent));
    assert.match(await page.textContent("#message"), /404/);
    await page.context().close();
  } finally {
    server.close();
  }
  const page = await openViewer(browser, { address: `${pathToFileURL(viewer).href}?file=PART.dxf` });
  await page.waitForFunction(() => /PART\.dxf/.test(document.querySelector("#message").textContent));
  assert.match(await page.textContent("#message"), /Drop the drawing on the page/);
  await page.context().close();
});

test("a page that has a drawing in it opens with it", async () => {
  const copy = path.join(scratch, "with_drawing.html");
  execFileSync("node", [path.join(root, "web/with_drawing.mjs"), viewer, example("WORKSHOP.dxf"), copy]);
  await withPage(
    async (page) => {
      await settled(page);
      assert.deepEqual(await names(page), ["WORKSHOP.dxf"]);
      assert.equal(await strokes(page), 534);
    },
    { address: pathToFileURL(copy).href },
  );
});

test("the wheel zooms at the pointer, dragging moves, buttons and keys do the same", () =>
  withPage(async (page) => {
    await openDrawing(page, example("WORKSHOP.dxf"));
    const whole = await percent(page),
      [x, y] = await placeOf(page, 100, 200);
    await page.mouse.move(x, y);
    await page.mouse.wheel(0, -300);
    await settled(page);
    assert.ok((await percent(page)) > 1.5 * whole);
    // The place under the pointer has stayed.
    await page.mouse.move(x + 1, y);
    assert.match(await page.textContent("#place"), /^(99\.\d|100(\.\d)?), (199\.\d|200(\.\d)?) mm$/);
    await page.mouse.down();
    await page.mouse.move(x + 101, y + 40, { steps: 4 });
    await page.mouse.up();
    assert.match(await page.textContent("#place"), /^(99\.\d|100(\.\d)?), (199\.\d|200(\.\d)?) mm$/);
    await page.keyboard.press("0");
    assert.equal(await percent(page), whole);
    await page.keyboard.press("+");
    assert.ok((await percent(page)) > 1.2 * whole);
    await page.keyboard.press("-");
    assert.equal(await percent(page), whole);
    await page.keyboard.press("1");
    assert.equal(await percent(page), 100);
    await page.click("#zoom-fit");
    assert.ok((await percent(page)) > whole);
    await page.click("#zoom-full");
    assert.equal(await percent(page), whole);
    await page.click("#zoom-plus");
    await page.click("#zoom-minus");
    assert.equal(await percent(page), whole);
    await page.click("#percent");
    assert.equal(await percent(page), 100);
    await page.keyboard.press("ArrowLeft");
    await page.keyboard.press("Shift+ArrowDown");
    await settled(page);
  }));

test("two fingers move and zoom", () =>
  withPage(
    async (page) => {
      await openDrawing(page, example("WORKSHOP.dxf"));
      const whole = await percent(page),
        box = await stageBox(page),
        session = await page.context().newCDPSession(page);
      const middle = { x: box.x + box.width / 2, y: box.y + box.height / 2 };
      const touch = (type, distance) =>
        session.send("Input.dispatchTouchEvent", {
          type,
          touchPoints:
            distance === 0
              ? []
              : [
                  { x: middle.x - distance, y: middle.y, id: 0 },
                  { x: middle.x + distance, y: middle.y, id: 1 },
                ],
        });
      await touch("touchStart", 40);
      for (const distance of [50, 65, 80, 100, 120]) await touch("touchMove", distance);
      await touch("touchEnd", 0);
      await settled(page);
      const zoomed = await percent(page);
      // 120 / 40 = 3.
      assert.ok(zoomed > 2.8 * whole && zoomed < 3.2 * whole, `${zoomed} % after ${whole} %`);
    },
    { hasTouch: true },
  ));

test("layers and line types are left out by the library, all, none, inverted, and searched", () =>
  withPage(async (page) => {
    await openDrawing(page, example("WORKSHOP.dxf"));
    await page.keyboard.press("l");
    assert.equal(await page.locator("#layer-list input").count(), 8);
    const all = await strokes(page);
    const afterClick = async (selector) => {
      const old = await page.textContent("#message");
      await page.click(selector);
      await page.waitForFunction(
        (text) => document.querySelector("#message").textContent.replace(/, \d+ ms/, "") !== text,
        old.replace(/, \d+ ms/, ""),
      );
      await settled(page);
      return strokes(page);
    };
    const withoutDimensions = await afterClick('#layer-list input[value="寸法"]');
    assert.ok(withoutDimensions < all);
    assert.equal(await afterClick("#layers-all"), all);
    assert.equal(await afterClick("#layers-none"), 0);
    assert.equal(await afterClick("#layers-invert"), all);
    await page.fill("#layer-search", "ﾊｯﾁﾝｸﾞ");
    assert.deepEqual(await page.locator("#layer-list span").allTextContents(), ["ハッチング"]);
    // Only what was found is left out.
    const withoutHatching = await afterClick("#layers-none");
    assert.ok(withoutHatching < all && withoutHatching > 0);
    await afterClick("#layers-all");
    await page.fill("#layer-search", "");
    const withoutChain = await afterClick('#line-types input[value="chain"]');
    assert.ok(withoutChain < all && withoutChain > 0);
    assert.equal(await afterClick("#types-all"), all);
    assert.ok((await afterClick("#types-none")) < all);
  }));

test("the native tool draws as many strokes without a layer", { skip: !nativeTool() }, () =>
  withPage(async (page) => {
    await openDrawing(page, example("WORKSHOP.dxf"));
    await page.keyboard.press("l");
    await page.click('#layer-list input[value="寸法"]');
    await page.waitForFunction(() => !/ 534 strokes/.test(document.querySelector("#message").textContent));
    await settled(page);
    const [download] = await Promise.all([
      page.waitForEvent("download"),
      (async () => {
        await page.keyboard.press("Control+s");
        await page.click("#save-emf");
      })(),
    ]);
    const metafile = path.join(scratch, "native.emf");
    execFileSync(nativeTool(), ["--hide-layer", "寸法", example("WORKSHOP.dxf"), metafile]);
    assert.deepEqual(await readFile(await download.path()), await readFile(metafile));
  }),
);

/** Colours that cover some of the window, as numbers 0xRRGGBB. */
async function coloursShown(page) {
  const png = (await page.screenshot({ clip: await stageBox(page) })).toString("base64");
  return new Set(
    await page.evaluate(async (base64) => {
      const bytes = Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
      const bitmap = await createImageBitmap(new Blob([bytes], { type: "image/png" }));
      const context = new OffscreenCanvas(bitmap.width, bitmap.height).getContext("2d");
      context.drawImage(bitmap, 0, 0);
      const { data } = context.getImageData(0, 0, bitmap.width, bitmap.height),
        counts = new Map();
      for (let i = 0; i < data.length; i += 4) {
        const color = (data[i] << 16) | (data[i + 1] << 8) | data[i + 2];
        counts.set(color, (counts.get(color) ?? 0) + 1);
      }
      return [...counts].filter(([, count]) => count > 60).map(([color]) => color);
    }, png),
  );
}

for (const renderer of ["software", "gl"]) {
  test(`colours as drawn, black, and light on dark (${renderer})`, () =>
    withPage(
      async (page) => {
        await openDrawing(page, example("WORKSHOP.dxf"));
        await page.keyboard.press("s");
        const drawn = await coloursShown(page);
        for (const color of [0xffffff, 0x000000, 0x0000ff, 0xff0000]) assert.ok(drawn.has(color), color.toString(16));
        await page.click('input[value="black"]');
        await page.waitForTimeout(200);
        await settled(page);
        const black = await coloursShown(page);
        for (const color of [0xffffff, 0x000000]) assert.ok(black.has(color), color.toString(16));
        for (const color of black)
          assert.ok(color >> 16 === ((color >> 8) & 255) || color > 0xb00000, `${color.toString(16)} is a colour`);
        await page.click('input[value="dark"]');
        await page.waitForTimeout(200);
        await settled(page);
        const dark = await coloursShown(page);
        assert.ok(dark.has(0x1d2026), "the paper is dark");
        assert.ok(dark.has(0xffffff), "black strokes are white");
        assert.ok(!dark.has(0x0000ff), "blue is brighter");
      },
      { address: `${pathToFileURL(viewer).href}?renderer=${renderer}` },
    ));
}

test("a part is chosen by dragging, and the sheet turned, at full size, in half-width cells", () =>
  withPage(async (page) => {
    await openDrawing(page, example("WORKSHOP.dxf"));
    await page.keyboard.press("s");
    await page.waitForTimeout(100);
    await page.click("#choose-part");
    const from = await placeOf(page, 20, 20),
      to = await placeOf(page, 220, 170);
    await page.mouse.move(...from);
    await page.mouse.down();
    await page.mouse.move(...to, { steps: 5 });
    await page.mouse.up();
    await page.waitForSelector("#part-size");
    await settled(page);
    // Pixels of the window are half a millimetre and less.
    assert.match(await page.textContent("#message"), /^(199|200)(\.\d+)? × (149|150)(\.\d+)? mm/);
    assert.ok(await page.isDisabled("#turned"));
    await page.click("#whole-texts");
    await settled(page);
    // Another part is chosen on the whole sheet.
    await page.click("#choose-part");
    await page.waitForFunction(() => document.querySelector("#message").textContent.startsWith("Drag"));
    await settled(page);
    await page.mouse.click(...(await placeOf(page, 100, 100)));
    await page.mouse.click(...(await placeOf(page, 150, 130)));
    await page.waitForFunction(() => /^(49|50)/.test(document.querySelector("#message").textContent));
    await page.click('input[value="whole"]');
    await page.waitForFunction(() => document.querySelector("#message").textContent.startsWith("420 × 297 mm"));
    for (const choice of ["#turned", "#half-width", 'input[value="full-size"]', "#as-is", "#fit-sheet"]) {
      await page.click(choice);
      await page.waitForTimeout(100);
      await settled(page);
      assert.ok((await strokes(page)) > 0, choice);
    }
  }));

test("the denominator decides about the scale of a drawing beyond A0", () =>
  withPage(async (page) => {
    await openDrawing(page, { name: "large.dxf", bytes: drawing([...line(0, 0, 42000, 29700)], 42000, 29700) });
    // 42,000 mm and 1:100 give 420 mm.
    assert.match(await page.textContent("#message"), /^420 × 297 mm/);
    await page.keyboard.press("s");
    await page.fill("#denominator", "200");
    await page.keyboard.press("Tab");
    await page.waitForFunction(() => document.querySelector("#message").textContent.startsWith("210 × 148.5 mm"));
  }));

/** A square of 100 with a circle and both diagonals, on a sheet of 420 by 297. The drawing's y grows upward. */
const square = drawing([
  ...line(100, 100, 200, 100),
  ...line(200, 100, 200, 200),
  ...line(200, 200, 100, 200),
  ...line(100, 200, 100, 100),
  ...line(100, 100, 200, 200),
  ...line(100, 200, 200, 100),
  ...circle(300, 150, 40),
]);

test("a distance, an angle and an area are measured, with points that snap to ends, crossings and centres", () =>
  withPage(async (page) => {
    await openDrawing(page, { name: "square.dxf", bytes: square });
    const click = async (x, y) => page.mouse.click(...(await placeOf(page, x, y)));
    const last = () => page.textContent("#measure-list .measured:last-of-type b");
    await page.keyboard.press("d");
    await page.waitForTimeout(200);
    // A millimetre beside the ends: y on the sheet is 297 less that of the drawing.
    await click(101, 98);
    await click(199, 98);
    assert.equal(await last(), "100");
    await click(101, 196);
    await click(199, 98);
    // The diagonal of a square of 100 has 141.421.
    assert.equal(await last(), "141.421");
    await click(101, 98);
    await click(149, 146.5);
    // Half of the diagonal, to the crossing.
    assert.equal(await last(), "70.711");
    await click(150.5, 147);
    await click(299, 146.5);
    assert.equal(await last(), "150");
    await page.keyboard.press("g");
    await click(101, 98);
    await click(199, 98);
    await click(199, 196);
    assert.equal(await last(), "45°");
    await page.keyboard.press("a");
    await click(101, 98);
    await click(199, 98);
    await click(199, 196);
    await click(101, 196);
    await page.keyboard.press("c");
    assert.equal(await last(), "10,000");
    assert.match(await page.textContent("#measure-list .measured:last-of-type"), /perimeter 400/);
    await page.click("#snap");
    await page.keyboard.press("d");
    await click(103, 94);
    await click(196, 94);
    assert.notEqual(await last(), "100");
    await page.click("#measure-clear");
    assert.equal(await page.locator(".measured").count(), 0);
  }));

test("text is found in half and full width alike, and stepped through", () =>
  withPage(async (page) => {
    await openDrawing(page, example("TEXT.dxf"));
    await page.keyboard.press("Control+f");
    await page.keyboard.type("ｄｒａｗｉｎｇ");
    const count = () => page.textContent("#find-count");
    assert.equal(await count(), "0 of 6");
    assert.equal(await page.locator("#find-list button").count(), 6);
    await page.keyboard.press("Enter");
    assert.equal(await count(), "1 of 6");
    assert.ok((await percent(page)) > 60);
    await page.keyboard.press("F3");
    assert.equal(await count(), "2 of 6");
    await page.keyboard.press("Shift+F3");
    await page.keyboard.press("Shift+Enter");
    assert.equal(await count(), "6 of 6");
    await page.fill("#find-text", "均等");
    assert.match(await count(), /^0 of [1-9]/);
    await page.fill("#find-text", "nothing like it");
    assert.equal(await count(), "Not found");
  }));

test("two drawings are compared: red, green and grey", () =>
  withPage(async (page) => {
    const first = drawing([...line(50, 50, 350, 50), ...line(50, 100, 350, 100), ...line(50, 150, 150, 150)]);
    // The second line runs the other way, which is no difference.
    const second = drawing([
      ...line(50, 50, 350, 50),
      ...line(350, 100, 50, 100),
      ...line(50, 250, 350, 250),
      ...line(380, 20, 390, 20),
    ]);
    await drop(page, [
      { name: "a.dxf", bytes: first },
      { name: "b.dxf", bytes: second },
    ]);
    await settled(page);
    await page.keyboard.press("k");
    await page.click("#compare-now");
    await settled(page);
    assert.equal(await page.textContent("#compare-result"), "1 only in A, 2 only in B, 2 in both");
    await page.keyboard.press("0");
    await settled(page);
    const shown = await coloursShown(page);
    for (const color of [0xd8201c, 0x0a8f3a, 0xa4aab4]) assert.ok(shown.has(color), color.toString(16));
    await page.click("#compare-next");
    assert.equal(await page.textContent("#compare-count"), "Difference 1 of 3");
    await page.click("#compare-previous");
    assert.equal(await page.textContent("#compare-count"), "Difference 3 of 3");
    await page.selectOption("#compare-b", { label: "a.dxf" });
  }));

test("the contents are listed: sheet, scale, kinds, and what is never drawn", () =>
  withPage(async (page) => {
    const entities = [
      ...line(10, 10, 100, 100),
      "0",
      "3DFACE",
      "8",
      "0",
      "10",
      "1",
      "20",
      "1",
      "0",
      "RAY",
      "8",
      "0",
      "10",
      "1",
      "20",
      "1",
    ];
    await openDrawing(page, { name: "kinds.dxf", bytes: drawing(entities) });
    await page.keyboard.press("i");
    const summary = await page.textContent("#summary");
    assert.match(summary, /AC1009/);
    assert.match(summary, /420 × 297 mm/);
    const rows = await page.locator("#kinds tbody tr").allTextContents();
    assert.ok(rows.some((row) => /^LINE1/.test(row)));
    assert.ok(
      rows.some((row) => /^RAYnever drawn1/.test(row)),
      rows.join(" | "),
    );
  }));

test("an empty sheet says why", () =>
  withPage(async (page) => {
    await openDrawing(page, { name: "ray.dxf", bytes: drawing(["0", "RAY", "8", "0", "10", "1", "20", "1"]) });
    assert.match(await page.textContent(".strip"), /only entities of kinds that are never drawn: RAY/);
    await openDrawing(page, { name: "outside.dxf", bytes: drawing([...line(5000, 5000, 5100, 5050)]) });
    await page.waitForFunction(() => /outside of the sheet/.test(document.querySelector(".strip").textContent));
    await page.keyboard.press("i");
    await page.click("#measure-now");
    await page.waitForFunction(() => document.querySelector(".strip").hidden);
  }));

test("the page speaks Japanese where the browser does, and the language can be changed", () =>
  withPage(
    async (page) => {
      assert.match(await page.textContent(".welcome"), /DXF 図面をここにドロップ/);
      await openDrawing(page, example("WORKSHOP.dxf"));
      assert.match(await page.textContent("#message"), /線 534 本/);
      await page.keyboard.press("?");
      await page.selectOption("#language", "en");
      await page.waitForSelector("html[data-ready]", { state: "attached" });
      assert.match(await page.textContent(".welcome"), /Drop a DXF drawing here/);
    },
    { locale: "ja-JP" },
  ));

test("settings are kept, and their absence does no harm", async () => {
  const context = await browser.newContext({ locale: "en-US" });
  const page = await context.newPage();
  await page.goto(pathToFileURL(viewer).href);
  await page.waitForSelector("html[data-ready]", { state: "attached" });
  await page.keyboard.press("s");
  await page.click('input[value="dark"]');
  await page.reload();
  await page.waitForSelector("html[data-ready]", { state: "attached" });
  assert.ok(await page.isChecked('input[value="dark"]'));
  await page.evaluate(() => localStorage.setItem("hexlume-viewer", '{"colours": 7, "panel": ["x"]}'));
  await page.reload();
  await page.waitForSelector("html[data-ready]", { state: "attached" });
  await context.close();
  const forbidden = await browser.newContext({ locale: "en-US" });
  await forbidden.addInitScript(() =>
    Object.defineProperty(window, "localStorage", {
      get() {
        throw new DOMException("denied", "SecurityError");
      },
    }),
  );
  const second = await forbidden.newPage();
  await second.goto(pathToFileURL(viewer).href);
  await second.waitForSelector("html[data-ready]", { state: "attached" });
  await second.keyboard.press("s");
  await second.click('input[value="dark"]');
  await drop(second, [example("PART.dxf")]);
  await settled(second);
  await forbidden.close();
});

test("everything can be done with the keyboard alone", () =>
  withPage(async (page) => {
    const press = async (...keys) => {
      for (const key of keys) await page.keyboard.press(key);
    };
    const chosen = page.waitForEvent("filechooser");
    await page.waitForTimeout(300);
    await press("o");
    await (await chosen).setFiles([{ name: "square.dxf", mimeType: "application/dxf", buffer: Buffer.from(square) }]);
    await settled(page);
    await inspected(page);
    // Measuring: the cross begins in the middle of the sheet, 210 by 148.5 mm, and snaps.
    await press("d");
    await page.waitForTimeout(200);
    const step = 12 / ((((await percent(page)) / 100) * 96) / 25.4);
    const go = async (key, distance) => press(...Array.from({ length: Math.round(distance / step) }, () => key));
    await go("ArrowLeft", 10);
    await go("ArrowDown", 48.5);
    await press("Enter");
    await go("ArrowUp", 100);
    await press("Enter");
    assert.equal(await page.textContent("#measure-list .measured:last-of-type b"), "100");
    await press("Escape", "Escape");
    // A part: a corner, then the other one.
    await press("p", "ArrowLeft", "ArrowLeft", "Enter");
    await go("ArrowRight", 60);
    await go("ArrowDown", 40);
    await press("Enter");
    await page.waitForFunction(() => !/^420/.test(document.querySelector("#message").textContent));
    await settled(page);
    // Layers: search, then to the box in the list, which a space changes.
    await press("l");
    await page.keyboard.type("0");
    await press("Tab", "Tab", "Tab", "Tab");
    assert.equal(await page.evaluate(() => document.activeElement.value), "0");
    await press("Space");
    await page.waitForFunction(() => / 0 strokes/.test(document.querySelector("#message").textContent));
    await press("Space");
    await page.waitForFunction(() => !/ 0 strokes/.test(document.querySelector("#message").textContent));
    await press("Escape");
    for (const panel of ["s", "i", "m", "k"]) {
      await press(panel);
      assert.ok(await page.isVisible(".side"), panel);
      await press("Escape");
      assert.ok(!(await page.isVisible(".side")), panel);
    }
    await press("Control+f");
    await page.keyboard.type("x");
    await press("Enter", "Escape", "+", "-", "0", "1", "9", "ArrowLeft");
    const [download] = await Promise.all([
      page.waitForEvent("download"),
      (async () => {
        await press("Control+s", "Tab", "Enter");
      })(),
    ]);
    assert.equal(download.suggestedFilename(), "square.emf");
    await press("?");
    assert.ok(await page.isVisible("#help-dialog"));
    await press("Escape", "x");
    assert.ok(await page.isVisible(".welcome"));
  }));

test("the page is usable at the width of a phone", () =>
  withPage(
    async (page) => {
      await openDrawing(page, example("WORKSHOP.dxf"));
      for (const name of ["layers", "sheet", "contents", "find", "measure", "compare"]) {
        await page.click(`#rail-${name}`);
        const box = await page.locator(".side").boundingBox();
        assert.ok(box.x >= 0 && box.x + box.width <= 390, name);
      }
      await page.click("#rail-compare");
      const { width, height } = await stageBox(page);
      assert.ok(width === 390 && height > 350);
      assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= 390));
    },
    { viewport: { width: 390, height: 780 }, hasTouch: true, isMobile: true },
  ));

const broken = [
  ["empty.dxf", "", /no bytes/],
  ["dwg.dxf", "AC1015\0\0\0\0\0\0\0\0\0\0\0\0", /DWG/],
  ["zip.dxf", "PK\u0003\u0004 and more", /compressed/i],
  ["text.dxf", "Only a letter.\n", /DXF/],
  ["cut.dxf", drawing([...line(0, 0, 10, 10)]).slice(0, 200), /./],
];

for (const [name, bytes, sentence] of broken) {
  test(`broken input, ${name}, shows the library's sentence and keeps the page alive`, () =>
    withPage(async (page) => {
      await drop(page, [{ name, bytes: Buffer.from(bytes, "latin1") }]);
      await page.waitForFunction(() => !document.querySelector(".strip").hidden);
      assert.match(await page.textContent(".strip"), sentence);
      await openDrawing(page, example("PART.dxf"));
      assert.equal((await strokes(page)) > 0, true);
    }));
}
