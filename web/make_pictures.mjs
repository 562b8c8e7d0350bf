// Makes the pictures of docs/viewer.md: node web/make_pictures.mjs, after a build of the preset web.
import path from "node:path";
import { readFile } from "node:fs/promises";
import { drop, example, inspected, launch, openViewer, root, settled } from "./tests/browser.mjs";
import { pathToFileURL } from "node:url";
import { viewer } from "./tests/browser.mjs";

const browser = await launch();

async function page(work, options = {}) {
  const opened = await openViewer(browser, {
    viewport: { width: 1100, height: 700 },
    address: `${pathToFileURL(viewer).href}?renderer=software`,
    ...options,
  });
  await work(opened);
  await opened.context().close();
}

async function open(opened, ...files) {
  await drop(opened, files);
  await settled(opened);
  await inspected(opened);
  await opened.waitForFunction((count) => document.querySelectorAll("img.thumbnail").length >= count, files.length);
}

async function picture(opened, name) {
  await opened.waitForTimeout(400);
  await settled(opened);
  await opened.screenshot({ path: path.join(root, "docs/pictures", `${name}.png`) });
}

async function at(opened, x, y) {
  const box = await opened.locator(".stage").boundingBox(),
    scale = Math.min((box.width - 48) / 420, (box.height - 48) / 297);
  return [box.x + box.width / 2 + (x - 210) * scale, box.y + box.height / 2 + (y - 148.5) * scale];
}

try {
  await page(async (opened) => {
    await open(opened, example("WORKSHOP.dxf"), example("CURVES.dxf"), example("TEXT.dxf"));
    await picture(opened, "viewer");
    await opened.keyboard.press("l");
    await opened.click('#layer-list input[value="寸法"]');
    await opened.waitForTimeout(600);
    await picture(opened, "viewer_layers");
    await opened.click("#layers-all");
    await opened.waitForTimeout(600);
    await settled(opened);
    await opened.keyboard.press("Escape");
    await opened.keyboard.press("m");
    await opened.click('[data-kind="distance"]');
    await opened.mouse.click(...(await at(opened, 32, 218)));
    await opened.mouse.click(...(await at(opened, 232, 218)));
    await opened.click('[data-kind="angle"]');
    await opened.mouse.click(...(await at(opened, 132, 122.5)));
    await opened.mouse.click(...(await at(opened, 162, 122.5)));
    await opened.mouse.click(...(await at(opened, 168, 143.5)));
    await picture(opened, "viewer_measure");
  });
  await page(
    async (opened) => {
      await open(opened, example("WORKSHOP.dxf"));
      await opened.keyboard.press("s");
      await opened.click('input[value="dark"]');
      await picture(opened, "viewer_dark");
    },
    { locale: "ja-JP" },
  );
  await page(async (opened) => {
    const changed = (await readFile(example("PART.dxf"))).toString("latin1").replace(/\r?\nCIRCLE\r?\n/, "\r\nRAY\r\n");
    await open(opened, example("PART.dxf"), { name: "PART_NEW.dxf", bytes: Buffer.from(moved(changed), "latin1") });
    await opened.keyboard.press("k");
    await opened.click("#compare-now");
    await opened.waitForTimeout(500);
    await picture(opened, "viewer_compare");
  });
  await page(
    async (opened) => {
      await open(opened, example("WORKSHOP.dxf"));
      await opened.click("#rail-layers");
      await picture(opened, "viewer_phone");
    },
    { viewport: { width: 390, height: 720 }, hasTouch: true, isMobile: true },
  );
} finally {
  await browser.close();
}

/** Moves the first line of a drawing by 8. */
function moved(text) {
  return text.replace(
    /(\r?\nLINE\r?\n[\s\S]*?\r?\n 20\r?\n)([-\d.]+)/,
    (_, before, value) => `${before}${Number(value) + 8}`,
  );
}
