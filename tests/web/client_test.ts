// The page's end of the library: web/library/client.ts with the worker in a thread of Node.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import test from "node:test";
import { Worker as Thread } from "node:worker_threads";
import { Client } from "../../web/library/client";
import type { Font, Progress } from "../../web/library/protocol";
import { a3, endless, line } from "./drawings";
import { compileModule, readFonts, startLibrary } from "./node_library";

const folder = process.env.HEXLUME_WEB ?? "build/web";
const workshop = readFileSync("examples/WORKSHOP.dxf");
const module = compileModule(folder);
const slow = a3(line.repeat(300000));

let started = 0;

// A thread with the functions of a page's worker that the client uses, and as small a stack.
function startWorker(): Worker {
  ++started;
  const thread = new Thread(new URL("worker_in_node.mjs", import.meta.url), { resourceLimits: { stackSizeMb: 0.5 } });
  const worker = {
    onmessage: null as ((event: { data: unknown }) => void) | null,
    onerror: null as (() => void) | null,
    postMessage: (message: unknown): void => thread.postMessage(message),
    terminate: (): void => void thread.terminate(),
  };
  thread.on("message", (data: unknown) => worker.onmessage?.({ data }));
  thread.on("error", () => worker.onerror?.());
  return worker as unknown as Worker;
}

async function withClient(use: (client: Client) => Promise<void>, fonts: Font[] = readFonts(folder)): Promise<void> {
  started = 0;
  const client = new Client(startWorker, module, fonts);
  try {
    await use(client);
  } finally {
    client.close();
  }
}

test("a conversion and an inspection through the worker", () =>
  withClient(async (client) => {
    const { metafile, status } = await client.convert(workshop, { monochrome: true }).result;
    assert.equal(status, "ok");
    assert.deepEqual(metafile, startLibrary(folder).convert(workshop, { monochrome: true }).metafile);
    const inspection = await client.inspect(new Blob([workshop])).result;
    assert.equal(inspection.kind, "inspection");
    assert.equal(inspection.status, "ok");
    assert.equal(started, 1);
  }));

test("a file is read in pieces", () =>
  withClient(async (client) => {
    const large = a3(line.repeat(600000)); // 20 MB
    const result = await client.convert(new Blob([large]), { limitStrokes: 10 }).result;
    assert.equal(result.bytesRead, large.length);
    assert.equal(result.status, "limit");
  }));

test("several calls are answered in their order", () =>
  withClient(async (client) => {
    const order: number[] = [];
    const calls = [1, 2, 3, 4].map(async (count) => {
      const result = await client.convert(a3(line.repeat(count))).result;
      assert.equal(result.strokes, count);
      order.push(count);
    });
    await Promise.all(calls);
    assert.deepEqual(order, [1, 2, 3, 4]);
  }));

test("a running call is cancelled, and the others go on", () =>
  withClient(async (client) => {
    let call: ReturnType<Client["convert"]> | null = null;
    const seen: Progress[] = [];
    call = client.convert(slow, {}, (progress) => {
      seen.push(progress);
      call?.cancel();
    });
    const next = client.convert(workshop);
    const cancelled = await call.result;
    assert.equal(cancelled.status, "cancelled");
    assert.equal(cancelled.sentence.ja, "取り消されました。");
    assert.equal(cancelled.metafile, null);
    assert.equal((await next.result).status, "ok");
    assert.equal(seen.length, 1);
    assert.equal(started, 2);
    call.cancel();
    assert.equal(started, 2, "a call that has ended has nothing to cancel");
  }));

test("a waiting call is cancelled without a new worker", () =>
  withClient(async (client) => {
    const first = client.convert(workshop);
    const second = client.inspect(workshop);
    second.cancel();
    assert.equal((await second.result).status, "cancelled");
    assert.equal((await first.result).status, "ok");
    assert.equal(started, 1);
  }));

test("fonts change for the calls after them", () =>
  withClient(async (client) => {
    const text = a3("0 TEXT\n8 0\n10 10\n20 10\n40 5\n1 iiii\n");
    const before = (await client.convert(text).result).metafile;
    client.setFonts(readFonts(folder).slice(1));
    const after = (await client.convert(text).result).metafile;
    assert.notDeepEqual(before, after);
    client.setFonts(readFonts(folder));
    assert.deepEqual((await client.convert(text).result).metafile, before);
  }));

test("a drawing without end keeps the worker alive", () =>
  withClient(async (client) => {
    const result = await client.convert(endless).result;
    assert.equal(result.status, "fault");
    assert.ok(result.metafile, "the module was given up");
    assert.equal((await client.convert(workshop).result).status, "ok");
    assert.equal(started, 1);
  }));

test("closing cancels what is open", async () => {
  const client = new Client(startWorker, module, readFonts(folder));
  const calls = [client.convert(slow).result, client.inspect(workshop).result];
  client.close();
  for (const call of calls) assert.equal((await call).status, "cancelled");
});
