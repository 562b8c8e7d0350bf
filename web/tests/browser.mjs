// Opens the viewer in Debian's Chromium, without a network.
import { chromium } from "playwright-core";
import { existsSync } from "node:fs";
import { readFile } from "node:fs/promises";
import path from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

export const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../..");
export const viewer = process.env.HEXLUME_VIEWER ?? path.join(root, "build/web/hexlume-viewer.html");

const launchArguments = [
  "--no-sandbox",
  "--disable-gpu",
  "--disable-quic",
  "--no-first-run",
  "--disable-background-networking",
  "--disable-component-update",
  "--disable-sync",
  "--enable-unsafe-swiftshader",
];

export function launch(more = []) {
  return chromium.launch({
    executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: [...launchArguments, ...more],
  });
}

export function example(name) {
  return path.join(root, "examples", name);
}

/** The native tool, if it was built. */
export function nativeTool() {
  const tool = process.env.HEXLUME_TOOL ?? path.join(root, "build/linux/bin/hexlume");
  return existsSync(tool) ? tool : undefined;
}

/** A page with the viewer. It fails the test if the page throws, or asks for anything from the network. */
export async function openViewer(browser, { address = pathToFileURL(viewer).href, ready = true, ...options } = {}) {
  const context = await browser.newContext({
    viewport: { width: 1280, height: 800 },
    locale: "en-US",
    acceptDownloads: true,
    ...options,
  });
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
  await page.bringToFront();
  await page.goto(address);
  if (ready) await page.waitForSelector("html[data-ready]", { state: "attached" });
  return page;
}

/** Drops files as a user does: a list of paths, or of { name, bytes }. */
export async function drop(page, files) {
  const contents = await Promise.all(
    files.map(async (file) =>
      typeof file === "string"
        ? { name: path.basename(file), base64: (await readFile(file)).toString("base64") }
        : { name: file.name, base64: Buffer.from(file.bytes).toString("base64") },
    ),
  );
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

/** Counts pixels with ink in two PNG files, and those without ink near them in the other one. */
export function compareInk(page, first, second) {
  return page.evaluate(
    async (files) => {
      const inks = [];
      let width = 0,
        height = 0;
      for (const file of files) {
        const bytes = Uint8Array.from(atob(file), (character) => character.charCodeAt(0));
        const bitmap = await createImageBitmap(new Blob([bytes], { type: "image/png" }));
        if (width !== 0 && (bitmap.width !== width || bitmap.height !== height))
          return { sizes: "differ", first: [width, height], second: [bitmap.width, bitmap.height] };
        ({ width, height } = bitmap);
        const context = new OffscreenCanvas(width, height).getContext("2d");
        context.drawImage(bitmap, 0, 0);
        const { data } = context.getImageData(0, 0, width, height);
        inks.push(
          Float32Array.from(
            { length: width * height },
            (_, i) => 255 - (data[4 * i] + data[4 * i + 1] + data[4 * i + 2]) / 3,
          ),
        );
      }
      const near = (ink, i) => {
        const x = i % width,
          y = Math.floor(i / width);
        let most = 0;
        for (let v = Math.max(0, y - 1); v <= Math.min(height - 1, y + 1); ++v) {
          for (let u = Math.max(0, x - 1); u <= Math.min(width - 1, x + 1); ++u)
            most = Math.max(most, ink[v * width + u]);
        }
        return most;
      };
      const strong = 100,
        weak = 40;
      const only = ([a, b]) => a.reduce((sum, ink, i) => sum + Number(ink > strong && near(b, i) < weak), 0);
      const count = (ink) => ink.reduce((sum, value) => sum + Number(value > strong), 0);
      return {
        first: count(inks[0]),
        second: count(inks[1]),
        onlyFirst: only(inks),
        onlySecond: only([inks[1], inks[0]]),
      };
    },
    [first.toString("base64"), second.toString("base64")],
  );
}
