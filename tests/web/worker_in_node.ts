// The worker in a thread of Node, which has no "self".
import { parentPort } from "node:worker_threads";

const scope = {
  postMessage: (message: unknown, transfer: ArrayBuffer[]): void => parentPort?.postMessage(message, transfer),
  set onmessage(take: (event: { data: unknown }) => void) {
    parentPort?.on("message", (data: unknown) => take({ data }));
  },
};
Object.assign(globalThis, { self: scope });
await import("../../web/library/worker");
