// Opens the viewer in Debian's Chromium, without a network.
import { chromium } from "playwright-core";
import { readFile } from "node:fs/promises";
import path from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

export const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../..");
export const viewer = process.env.HEXLUME_VIEWER ?? path.join(root, "build/web/hexlume-viewer.html");

const launchArguments = [
  "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
  "--disable-component-update", "--disable-sync", "--enable-unsafe-swiftshader",
];

export function launch(more = []) {
  return chromium.launch({ executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium", args: [...launchArguments, ...more] });
}

export function example(name) {
  return path.join(root, "examples", name);
}

/** A page with the viewer. It fails the test if the page throws, or asks for anything from the network. */
export async function openViewer(browser, { address = pathToFileURL(viewer).href, ready = true, ...options } = {}) {
  const context = await browser.newContext({ viewport: { width: 1280, height: 800 }, locale: "en-US", acceptDownloads: true, ...options });
  const page = await context.newPage();
  page.errors = [];
  page.requests = [];
  page.on("pageerror", (error) => page.errors.push(String(error)));
  page.on("console", (message) => {
    if (message.type() === "error") page.errors.push(message.text());
  });
  page.on("request", (request) => {
    if (/^(https?|wss?):/.test(request.url())) page.requests.push(request.url());
  });
  await page.goto(address);
  if (ready) await page.waitForSelector("html[data-ready]", { state: "attached" });
  return page;
}

/** Drops files as a user does: a list of paths, or of { name, bytes }. */
export async function drop(page, files) {
  const contents = await Promise.all(files.map(async (file) => typeof file === "string"
    ? { name: path.basename(file), base64: (await readFile(file)).toString("base64") }
    : { name: file.name, base64: Buffer.from(file.bytes).toString("base64") }));
  await page.evaluate((list) => {
    const transfer = new DataTransfer();
    for (const { name, base64 } of list) {
      transfer.items.add(new File([Uint8Array.from(atob(base64), (character) => character.charCodeAt(0))], name));
    }
    const target = document.querySelector(".main-area");
    for (const type of ["dragenter", "dragover", "drop"]) {
      target.dispatchEvent(new DragEvent(type, { bubbles: true, cancelable: true, dataTransfer: transfer }));
    }
  }, contents);
}

/** Waits until the current drawing is shown sharply, or has failed. */
export async function settled(page, state = "ready", timeout = 60000) {
  await page.waitForSelector(`html[data-state="${state}"]`, { state: "attached", timeout });
  await page.waitForSelector('.stage[data-sharp="true"]', { timeout });
  // The next frame shows what was just asked for.
  await page.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))));
  await page.waitForSelector('.stage[data-sharp="true"]', { timeout });
}

/** Waits until the contents of the current drawing are known. */
export async function inspected(page) {
  await page.waitForFunction(() => document.documentElement.dataset.inspected !== undefined);
}

/** The pixels of the picture, as the canvases show it: width, height and RGBA. */
export async function pixels(page, clip) {
  const png = await page.screenshot({ clip });
  return page.evaluate(async (base64) => {
    const bitmap = await createImageBitmap(await (await fetch(`data:image/png;base64,${base64}`)).blob());
    const canvas = new OffscreenCanvas(bitmap.width, bitmap.height), context = canvas.getContext("2d");
    context.drawImage(bitmap, 0, 0);
    return { width: bitmap.width, height: bitmap.height, data: [...context.getImageData(0, 0, bitmap.width, bitmap.height).data] };
  }, png.toString("base64"));
}
