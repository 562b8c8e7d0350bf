// Reads metafiles: small ones at once, large ones in a worker, so that the page stays alive.
import workerSource from "worker:./sheet_worker.ts";
import { readMetafile } from "./emf";
import type { Sheet } from "./sheet";
import type { SheetReply } from "./sheet_worker";

const largest = 4 << 20;

/** Null if the metafile is malformed, or too large for the memory. */
export async function readSheet(bytes: Uint8Array): Promise<Sheet | null> {
  if (bytes.length > largest) return readInWorker(bytes);
  try {
    return readMetafile(bytes);
  } catch {
    return null;
  }
}

function readInWorker(bytes: Uint8Array): Promise<Sheet | null> {
  const url = URL.createObjectURL(new Blob([workerSource], { type: "text/javascript" }));
  const worker = new Worker(url);
  // Some browsers load the worker a little later.
  setTimeout(() => URL.revokeObjectURL(url), 20000);
  return new Promise((settle) => {
    const finish = (sheet: Sheet | null): void => {
      worker.terminate();
      settle(sheet);
    };
    worker.onmessage = (event: MessageEvent<SheetReply>) => finish(event.data.sheet);
    worker.onerror = () => finish(null);
    worker.postMessage({ id: 1, bytes }, [bytes.buffer]);
  });
}
