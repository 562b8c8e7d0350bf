// Large drawings, many drawings, long conversions. Times are printed, not judged, but for generous bounds.
import assert from "node:assert/strict";
import { readFileSync, statSync } from "node:fs";
import { mkdtemp, open, rm, writeFile } from "node:fs/promises";
import os from "node:os";
import path from "node:path";
import { after, before, test } from "node:test";
import { pathToFileURL } from "node:url";
import { compareInk, drop, example, inspected, launch, openViewer, settled, viewer } from "./browser.mjs";
import { drawing, line, manyLines } from "./drawings.mjs";

let browser;
let scratch;
before(async () => {
  browser = await launch();
  scratch = await mkdtemp(path.join(os.tmpdir(), "hexlume-load-"));
});
after(async () => {
  await browser.close();
  await rm(scratch, { recursive: true });
});

async function openFile(page, file, timeout = 120000) {
  const [chooser] = await Promise.all([page.waitForEvent("filechooser"), page.click("#open")]);
  await chooser.setFiles(file);
  await settled(page, "ready", timeout);
}

test("the file has less than 6 MB and is ready soon; a drawing is shown soon after it was dropped", async (context) => {
  const megabytes = statSync(viewer).size / 1e6;
  context.diagnostic(`${megabytes.toFixed(2)} MB`);
  assert.ok(megabytes < 6);
  const page = await openViewer(browser);
  const ready = await page.evaluate(() => performance.getEntriesByName("ready")[0].startTime);
  await drop(page, [example("WORKSHOP.dxf")]);
  await settled(page);
  const times = [];
  for (let i = 0; i < 5; ++i) {
    await page.evaluate(() => performance.clearMarks("shown"));
    await drop(page, [example("WORKSHOP.dxf")]);
    await settled(page);
    times.push(
      await page.evaluate(
        () =>
          performance.getEntriesByName("shown").at(-1).startTime -
          performance.getEntriesByName("opened").at(-1).startTime,
      ),
    );
  }
  context.diagnostic(
    `ready after ${ready.toFixed(0)} ms; WORKSHOP.dxf shown after ${times.map((time) => time.toFixed(0)).join(", ")} ms`,
  );
  assert.ok(ready < 10000 && Math.min(...times) < 5000);
  assert.deepEqual(page.errors, []);
  await page.context().close();
});

/** Moves and zooms for some seconds, as fast as the browser asks for frames. */
function framesWhile(page, way) {
  return page.evaluate(async (kind) => {
    const stage = document.querySelector(".stage"),
      box = stage.getBoundingClientRect();
    const wheel = (deltaY, shiftKey) =>
      stage.dispatchEvent(
        new WheelEvent("wheel", {
          deltaY,
          shiftKey,
          clientX: box.x + box.width / 2,
          clientY: box.y + box.height / 2,
          bubbles: true,
          cancelable: true,
        }),
      );
    if (kind === "near") for (let i = 0; i < 10; ++i) wheel(-200, false);
    const start = performance.now();
    let frames = 0;
    const pictures = Number(stage.dataset.pictures);
    while (performance.now() - start < 3000) {
      await new Promise(requestAnimationFrame);
      ++frames;
      if (kind === "zoom") wheel(Math.sin(frames / 20) * 60, false);
      else wheel(Math.sin(frames / 15) * 20, true);
    }
    const seconds = (performance.now() - start) / 1000;
    return {
      frames: Math.round(frames / seconds),
      pictures: Math.round((Number(stage.dataset.pictures) - pictures) / seconds),
    };
  }, way);
}

for (const [count, least] of [
  [20000, 5],
  [1000000, 2],
]) {
  test(`${count} strokes are moved and zoomed`, async (context) => {
    const page = await openViewer(browser),
      file = path.join(scratch, "lines.dxf");
    await writeFile(file, manyLines(count));
    await openFile(page, file);
    await inspected(page);
    await page.waitForTimeout(500);
    for (const way of ["move", "zoom", "near"]) {
      const { frames, pictures } = await framesWhile(page, way);
      context.diagnostic(`${way}: ${frames} frames a second, ${pictures} of them with strokes drawn anew`);
      assert.ok(frames >= least);
      await settled(page);
    }
    await page.keyboard.press("d");
    const box = await page.locator(".stage").boundingBox();
    await page.mouse.click(box.x + box.width / 2, box.y + box.height / 2);
    await page.mouse.click(box.x + box.width / 2 + 60, box.y + box.height / 2);
    assert.equal(await page.locator(".measured").count(), 1);
    assert.deepEqual(page.errors, []);
    await page.context().close();
  });
}

/** Megabytes of the largest process that shows a page. */
async function pageMemory() {
  const session = await browser.newBrowserCDPSession(),
    { processInfo } = await session.send("SystemInfo.getProcessInfo");
  await session.detach();
  const sizes = processInfo
    .filter(({ type }) => type === "renderer")
    .map(({ id }) => {
      try {
        return Number(/VmRSS:\s+(\d+)/.exec(readFileSync(`/proc/${id}/status`, "utf8"))[1]) / 1000;
      } catch {
        return 0; // It has just ended.
      }
    });
  return Math.max(...sizes);
}

test("a hundred drawings, one after the other, at constant memory", async (context) => {
  const page = await openViewer(browser),
    session = await page.context().newCDPSession(page);
  const names = ["WORKSHOP", "PART", "CURVES", "HATCHES", "SHAPES", "TEXT", "TOLERANCE", "FIRST"];
  const memory = async () => {
    await session.send("HeapProfiler.collectGarbage");
    return pageMemory();
  };
  let early = 0;
  for (let i = 0; i < 100; ++i) {
    await drop(page, [example(`${names[i % names.length]}.dxf`)]);
    await settled(page);
    if (i % 2 === 1) await page.keyboard.press("x");
    if (i === 39) early = await memory();
  }
  const late = await memory();
  context.diagnostic(`${early.toFixed(0)} MB after 40 drawings, ${late.toFixed(0)} MB after 100`);
  assert.ok(late < early + 100);
  assert.deepEqual(page.errors, []);
  await page.context().close();
});

test("a long conversion is cancelled and can be begun again", async () => {
  const page = await openViewer(browser),
    file = path.join(scratch, "long.dxf");
  await writeFile(file, manyLines(600000));
  const [chooser] = await Promise.all([page.waitForEvent("filechooser"), page.click("#open")]);
  await chooser.setFiles(file);
  await page.click("#cancel");
  await page.waitForSelector("#again");
  assert.match(await page.textContent(".strip"), /cancelled/);
  await openFile(page, example("PART.dxf"));
  await page.click(".tab:nth-child(1)");
  await page.click("#again");
  await settled(page, "ready", 120000);
  await page.waitForFunction(() => /600,000 strokes/.test(document.querySelector("#message").textContent));
  assert.deepEqual(page.errors, []);
  await page.context().close();
});

test("a drawing of 200 MB doesn't kill the page", async (context) => {
  const file = path.join(scratch, "200.dxf"),
    [start, end] = drawing(["MARK"]).split("MARK\r\n");
  const handle = await open(file, "w");
  await handle.write(start);
  const block =
    Array.from({ length: 20000 }, (_, i) =>
      line((i % 400) + 5, Math.floor(i / 400) * 5, (i % 400) + 9, Math.floor(i / 400) * 5 + 3).join("\r\n"),
    ).join("\r\n") + "\r\n";
  for (let size = 0; size < 200e6; size += block.length) await handle.write(block);
  await handle.write(end);
  await handle.close();
  const page = await openViewer(browser);
  const before = Date.now();
  await openFile(page, file, 240000);
  context.diagnostic(
    `${(statSync(file).size / 1e6).toFixed(0)} MB shown after ${((Date.now() - before) / 1000).toFixed(1)} s: ${await page.textContent("#message")}`,
  );
  await openFile(page, example("PART.dxf"));
  assert.match(await page.textContent("#message"), /strokes/);
  assert.deepEqual(page.errors, []);
  await page.context().close();
});

test("without a graphics card the processor draws; with WebGL the same picture comes out, also from near", async () => {
  const pictures = { software: [], gl: [] };
  for (const renderer of ["software", "gl"]) {
    const page = await openViewer(browser, { address: `${pathToFileURL(viewer).href}?renderer=${renderer}` });
    await drop(page, [example("WORKSHOP.dxf")]);
    await settled(page);
    const clip = await page.locator(".stage").boundingBox(),
      scale = Math.min((clip.width - 48) / 420, (clip.height - 48) / 297);
    pictures[renderer].push(await page.screenshot({ clip }));
    // The bore's edge on its centre line, 26 mm from the axis, which a circle of 52 and two lines cross.
    await page.mouse.move(
      clip.x + clip.width / 2 + (132 - 210) * scale,
      clip.y + clip.height / 2 + (122.5 + 26 - 148.5) * scale,
    );
    for (let i = 0; i < 6; ++i) await page.mouse.wheel(0, -250);
    await page.waitForTimeout(400);
    await settled(page);
    pictures[renderer].push(await page.screenshot({ clip }));
    assert.deepEqual(page.errors, []);
    await page.context().close();
  }
  const page = await openViewer(browser);
  for (const [i, least] of [10000, 500].entries()) {
    const { first, second, onlyFirst, onlySecond } = await compareInk(page, pictures.software[i], pictures.gl[i]);
    assert.ok(first > least && Math.abs(first - second) < first / 5, `${first} and ${second} pixels of ink`);
    assert.ok(onlyFirst + onlySecond < first / 100, `${onlyFirst} and ${onlySecond} pixels differ`);
  }
  await page.context().close();
});
