// The library for the page: starts the worker, numbers the calls, and restarts the worker after a cancel or a death.
import type { Conversion, Drawing, Font, Inspection, Options, Progress, Reply, Request, Result, Sentence, Status } from "./protocol";

/** A call that is waiting or running. */
export interface Call<Answer extends Result> {
  /** Is always fulfilled, never rejected: a cancelled call gives the status "cancelled", a dead worker "fault". */
  readonly result: Promise<Answer>;
  /** Ends the call at once. Does nothing after its result. */
  cancel(): void;
}

export type OnProgress = (progress: Progress) => void;

interface OpenCall {
  request: Request & { id: number };
  onProgress: OnProgress | undefined;
  settle(result: Conversion | Inspection): void;
}

const cancelled: Sentence = { en: "The call was cancelled.", ja: "取り消されました。" };
const dead: Sentence = { en: "The drawing can't be drawn from here on.", ja: "ここから先は描画できません。" };

function emptyResult(kind: "convert" | "inspect", status: Status, sentence: Sentence): Conversion | Inspection {
  const result = {
    status, sentence, line: 0, remarks: [], sheetWidth: 0, sheetHeight: 0, denominator: 1, bytesRead: 0,
    substituted: 0, embedded: 0, milliseconds: 0,
  };
  return kind === "convert"
    ? { ...result, kind: "conversion", strokes: 0, metafile: null }
    : { ...result, kind: "inspection", summary: null, layers: [], lineTypes: [], dimStyles: [], blocks: [], entities: [], texts: [] };
}

export class Client {
  private worker: Worker | null = null;
  private readonly calls: OpenCall[] = [];
  private lastId = 0;

  /** @param startWorker  makes a worker from web/library/worker.ts, for example new Worker(url) */
  constructor(private readonly startWorker: () => Worker, private readonly module: WebAssembly.Module, private fonts: Font[]) {
    this.start();
  }

  /** Converts a drawing. */
  convert(drawing: Drawing, options: Options = {}, onProgress?: OnProgress): Call<Conversion> {
    return this.call({ kind: "convert", id: ++this.lastId, drawing, options }, onProgress) as Call<Conversion>;
  }

  /** Reports what a drawing contains. */
  inspect(drawing: Drawing, options: Options = {}, onProgress?: OnProgress): Call<Inspection> {
    return this.call({ kind: "inspect", id: ++this.lastId, drawing, options }, onProgress) as Call<Inspection>;
  }

  /** Replaces the table of fonts, for the calls after this one. */
  setFonts(fonts: Font[]): void {
    this.fonts = fonts;
    this.post({ kind: "fonts", fonts });
  }

  /** Ends the worker. The open calls are cancelled. */
  close(): void {
    this.worker?.terminate();
    this.worker = null;
    for (const call of this.calls.splice(0)) call.settle(emptyResult(kindOf(call), "cancelled", cancelled));
  }

  private call(request: Request & { id: number; kind: "convert" | "inspect" }, onProgress: OnProgress | undefined): Call<Conversion | Inspection> {
    const result = new Promise<Conversion | Inspection>((settle) => this.calls.push({ request, onProgress, settle }));
    this.post(request);
    return { result, cancel: () => this.cancel(request.id) };
  }

  private cancel(id: number): void {
    this.drop(id, "cancelled", cancelled);
  }

  // The worker can't hear while it works, so it is ended, and the calls that are left go to a new one.
  private drop(id: number, status: Status, sentence: Sentence): void {
    const index = this.calls.findIndex((call) => call.request.id === id);
    const call = this.calls[index];
    if (!call) return;
    this.calls.splice(index, 1);
    this.restart();
    call.settle(emptyResult(kindOf(call), status, sentence));
  }

  private restart(): void {
    this.worker?.terminate();
    this.start();
    for (const call of this.calls) this.post(call.request);
  }

  private start(): void {
    const worker = this.startWorker();
    this.worker = worker;
    worker.onmessage = (event: MessageEvent<Reply>) => this.take(event.data);
    // The worker catches what the library does: this is the browser's own end of it. The call that ran is the first one.
    worker.onerror = () => {
      const first = this.calls[0];
      if (worker === this.worker && first) this.drop(first.request.id, "fault", dead);
    };
    this.post({ kind: "start", module: this.module, fonts: this.fonts });
  }

  private post(request: Request): void {
    this.worker?.postMessage(request);
  }

  private take(reply: Reply): void {
    if (reply.kind === "progress") this.calls.find((call) => call.request.id === reply.id)?.onProgress?.(reply.progress);
    if (reply.kind !== "result") return;
    const index = this.calls.findIndex((call) => call.request.id === reply.id);
    const [call] = index < 0 ? [] : this.calls.splice(index, 1);
    call?.settle(reply.result);
  }
}

function kindOf(call: OpenCall): "convert" | "inspect" {
  return call.request.kind === "inspect" ? "inspect" : "convert";
}
