// The worker: answers the page's requests one after the other.
import { Library, type Room } from "./library";
import { NoMemory } from "./memory";
import type { Conversion, Drawing, Inspection, Options, Reply, Request } from "./protocol";
import { noConversion, noInspection, type OutsideStatus } from "./sentences";

type CallRequest = Extract<Request, { kind: "convert" | "inspect" }>;

const pieceSize = 16 * 1024 * 1024;
const tooLarge = 2 ** 31;

let library: Library | null = null;
let queue: Promise<void> = Promise.resolve();

function post(reply: Reply, transfer: Transferable[] = []): void {
  (self as unknown as { postMessage(message: Reply, transfer: Transferable[]): void }).postMessage(reply, transfer);
}

function start(request: Extract<Request, { kind: "start" }>): void {
  try {
    library = new Library(request.module);
    library.setFonts(request.fonts);
    post({ kind: "ready", version: library.version() });
  } catch (error) {
    library = null;
    post({ kind: "failed", reason: String(error) });
  }
}

// In pieces, so that a large file isn't in memory twice.
async function load(library: Library, drawing: Drawing): Promise<Room | OutsideStatus> {
  const size = drawing instanceof Uint8Array ? drawing.length : drawing.size;
  if (size >= tooLarge) return "too-large";
  try {
    const room = library.reserve(size);
    if (drawing instanceof Uint8Array) library.write(room, 0, drawing);
    else
      for (let at = 0; at < size; at += pieceSize)
        library.write(room, at, new Uint8Array(await drawing.slice(at, at + pieceSize).arrayBuffer()));
    return room;
  } catch (error) {
    library.giveUp();
    return error instanceof NoMemory ? "no-memory" : "not-allowed";
  }
}

function nameOf(drawing: Drawing): string {
  return "name" in drawing && typeof drawing.name === "string" ? drawing.name : "";
}

function noResult(request: CallRequest, status: OutsideStatus): Conversion | Inspection {
  const detail = status === "not-allowed" ? nameOf(request.drawing) : "";
  return request.kind === "convert" ? noConversion(status, detail) : noInspection(status, detail);
}

async function answer(request: CallRequest): Promise<Conversion | Inspection> {
  if (!library) return noResult(request, "fault");
  const room = await load(library, request.drawing);
  if (typeof room === "string") return noResult(request, room);
  const options: Options = request.options;
  const watcher = (progress: Extract<Reply, { kind: "progress" }>["progress"]): void =>
    post({ kind: "progress", id: request.id, progress });
  return request.kind === "convert" ? library.convert(room, options, watcher) : library.inspect(room, options, watcher);
}

async function handle(request: Request): Promise<void> {
  if (request.kind === "start") return start(request);
  if (request.kind === "fonts") return library?.setFonts(request.fonts);
  const result = await answer(request);
  const metafile = result.kind === "conversion" ? result.metafile : null;
  post({ kind: "result", id: request.id, result }, metafile ? [metafile.buffer] : []);
}

self.onmessage = (event: MessageEvent<Request>): void => {
  queue = queue.then(() => handle(event.data));
};
