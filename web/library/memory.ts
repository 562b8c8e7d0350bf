// Reads and writes the structs of hexlume_host.h in the memory of a module: pointers have 4 bytes, and fields of 8 bytes are
// at multiples of 8.

const decoder = new TextDecoder("utf-8");
const encoder = new TextEncoder();

/** The functions of the module. Those that begin with hexlume_result_ take a result, and an index if they give rows. */
export interface Exports {
  memory: WebAssembly.Memory;
  _initialize(): void;
  malloc(size: number): number;
  free(place: number): void;
  hexlume_version(): number;
  hexlume_status_name(status: number): number;
  hexlume_convert(input: number, options: number, result: number): number;
  hexlume_inspect(input: number, options: number, result: number): number;
  hexlume_result_free(result: number): void;
  hexlume_result_status(result: number): number;
  hexlume_result_message(result: number, language: number): number;
  hexlume_result_line(result: number): bigint;
  hexlume_result_metafile(result: number): number;
  hexlume_result_metafile_size(result: number): bigint;
  hexlume_result_number(result: number, number: number): bigint;
  hexlume_result_remark(result: number, index: bigint): number;
  hexlume_result_summary(result: number): number;
  hexlume_result_layer(result: number, index: bigint): number;
  hexlume_result_line_type(result: number, index: bigint): number;
  hexlume_result_dim_style(result: number, index: bigint): number;
  hexlume_result_block(result: number, index: bigint): number;
  hexlume_result_entities(result: number, index: bigint): number;
  hexlume_result_text(result: number, index: bigint): number;
  hexlume_fonts_clear(): void;
  hexlume_fonts_add(bytes: number, size: number, families: number): number;
  hexlume_page_progress_address(): number;
}

/** There is no memory for what the page has to put into the module. */
export class NoMemory extends Error {}

export class Memory {
  private view: DataView;

  constructor(readonly exports: Exports) {
    this.view = new DataView(exports.memory.buffer);
  }

  /** Bytes that were allocated until now: they never become less. */
  get size(): number {
    return this.exports.memory.buffer.byteLength;
  }

  bytes(place: number, count: number): Uint8Array {
    return new Uint8Array(this.exports.memory.buffer, place >>> 0, count);
  }

  allocate(size: number): number {
    const place = this.exports.malloc(Math.max(size, 1)) >>> 0;
    if (place === 0) throw new NoMemory();
    return place;
  }

  allocateClear(size: number): number {
    const place = this.allocate(size);
    this.bytes(place, size).fill(0);
    return place;
  }

  allocateBytes(bytes: Uint8Array): number {
    const place = this.allocate(bytes.length);
    this.bytes(place, bytes.length).set(bytes);
    return place;
  }

  /** A copy of the text with a 0 at its end. The library takes a text up to its first 0. */
  allocateText(text: string): number {
    return this.allocateBytes(encoder.encode(text + "\0"));
  }

  int(place: number): number {
    return this.current().getInt32(place, true);
  }

  setInt(place: number, value: number): void {
    this.current().setInt32(place, value, true);
  }

  long(place: number): number {
    return Number(this.current().getBigInt64(place, true));
  }

  setLong(place: number, value: number): void {
    this.current().setBigInt64(place, BigInt(value), true);
  }

  double(place: number): number {
    return this.current().getFloat64(place, true);
  }

  pointer(place: number): number {
    return this.current().getUint32(place, true);
  }

  /** The text at a place. */
  text(place: number): string {
    const start = place >>> 0;
    if (start === 0) return "";
    const all = new Uint8Array(this.exports.memory.buffer);
    return decoder.decode(all.subarray(start, all.indexOf(0, start)));
  }

  /** The text that a field points to. */
  textField(place: number): string {
    return this.text(this.pointer(place));
  }

  // A view ends with the buffer, which another one replaces when the memory grows.
  private current(): DataView {
    if (this.view.buffer !== this.exports.memory.buffer) this.view = new DataView(this.exports.memory.buffer);
    return this.view;
  }
}
