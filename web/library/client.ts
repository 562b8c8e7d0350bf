// The library for the page: starts the worker, numbers the calls, and restarts the worker after a cancel or a death.
import type { Conversion, Drawing, Font, Inspection, Options, Progress, Reply, Request, Result } from "./protocol";
import { noConversion, noInspection, type OutsideStatus } from "./sentences";

/** A call that is waiting or running. */
export interface Call<Answer extends Result> {
  /** Is always fulfilled, never rejected: a cancelled call gives the status "cancelled", a dead worker "fault". */
  readonly result: Promise<Answer>;
  /** Ends the call at once. Does nothing after its result. */
  cancel(): void;
}

export type OnProgress = (progress: Progress) => void;

type CallRequest = Extract<Request, { kind: "convert" | "inspect" }>;

interface OpenCall {
  request: CallRequest;
  onProgress: OnProgress | undefined;
  settle(result: Conversion | Inspection): void;
}

function noResult(kind: "convert" | "inspect", status: OutsideStatus): Conversion | Inspection {
  return kind === "convert" ? noConversion(status) : noInspection(status);
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

  /** Replaces the table of fonts, for the calls that haven't begun. */
  setFonts(fonts: Font[]): void {
    this.fonts = fonts;
    this.post({ kind: "fonts", fonts });
  }

  /** Ends the worker. The open calls are cancelled. */
  close(): void {
    this.worker?.terminate();
    this.worker = null;
    for (const call of this.calls.splice(0)) call.settle(noResult(call.request.kind, "cancelled"));
  }

  private call(request: CallRequest, onProgress: OnProgress | undefined): Call<Conversion | Inspection> {
    const result = new Promise<Conversion | Inspection>((settle) => this.calls.push({ request, onProgress, settle }));
    if (this.calls.length === 1) this.begin();
    return { result, cancel: () => this.drop(request.id, "cancelled") };
  }

  // The worker has one call at a time, the first: the others can be dropped without it.
  private begin(): void {
    if (this.calls[0]) this.post(this.calls[0].request);
  }

  // A worker can't hear while it works, so it is ended.
  private drop(id: number, status: OutsideStatus): void {
    const index = this.calls.findIndex((call) => call.request.id === id);
    const [call] = index < 0 ? [] : this.calls.splice(index, 1);
    if (!call) return;
    if (index === 0) this.restart();
    call.settle(noResult(call.request.kind, status));
  }

  private restart(): void {
    this.worker?.terminate();
    this.start();
    this.begin();
  }

  private start(): void {
    const worker = this.startWorker();
    this.worker = worker;
    worker.onmessage = (event: MessageEvent<Reply>) => this.take(event.data);
    // What the library does is caught in the worker. This is what the browser does to it.
    worker.onerror = () => {
      if (worker === this.worker && this.calls[0]) this.drop(this.calls[0].request.id, "fault");
    };
    this.post({ kind: "start", module: this.module, fonts: this.fonts });
  }

  private post(request: Request): void {
    this.worker?.postMessage(request);
  }

  private take(reply: Reply): void {
    const call = this.calls[0];
    if (!call || !("id" in reply) || reply.id !== call.request.id) return;
    if (reply.kind === "progress") return call.onProgress?.(reply.progress);
    this.calls.shift();
    this.begin();
    call.settle(reply.result);
  }
}
