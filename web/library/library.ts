// The library on its WebAssembly module, without a worker. A call that the machine ends, by a trap or at the end of its stack,
// becomes a status, and the next call runs in a new instance of the module.
import { writeArguments } from "./arguments";
import { type Exports, Memory, NoMemory } from "./memory";
import type { Conversion, Font, Inspection, Options, Progress } from "./protocol";
import { readConversion, readInspection } from "./results";
import { noConversion, noInspection, type OutsideStatus } from "./sentences";

/** Is called while a drawing is read. True cancels the call. */
export type Watcher = (progress: Progress) => boolean | void;

/** A drawing in the memory of the module. A call takes it, whatever becomes of the call. */
export interface Room {
  readonly memory: Memory;
  readonly place: number;
  readonly size: number;
}

// The memory of a module never becomes less, so after a large drawing the next call gets a new one.
const mostKeptBytes = 256 * 1024 * 1024;

export class Library {
  private memory: Memory | null = null;
  private fonts: Font[] = [];
  private watcher: Watcher | undefined;

  constructor(private readonly module: WebAssembly.Module) {}

  /** The version, for example "1.0.0". */
  version(): string {
    const number = this.start().exports.hexlume_version();
    return `${Math.floor(number / 10000)}.${Math.floor(number / 100) % 100}.${number % 100}`;
  }

  /** Replaces the table of fonts. What is no font is left out. */
  setFonts(fonts: Font[]): void {
    this.fonts = fonts;
    this.memory = null;
  }

  /** Makes room for the bytes of a drawing, which are then written. Throws NoMemory. */
  reserve(size: number): Room {
    const memory = this.start();
    return { memory, place: memory.allocate(size), size };
  }

  write(room: Room, offset: number, bytes: Uint8Array): void {
    room.memory.bytes(room.place + offset, bytes.length).set(bytes);
  }

  /** Memory of the module. */
  memoryBytes(): number {
    return this.memory?.size ?? 0;
  }

  /** Ends the module. The next call runs in a new one. */
  giveUp(): void {
    this.memory = null;
  }

  convert(drawing: Room | Uint8Array, options: Options = {}, watcher?: Watcher): Conversion {
    return this.run(drawing, options, watcher, "hexlume_convert", readConversion, noConversion);
  }

  inspect(drawing: Room | Uint8Array, options: Options = {}, watcher?: Watcher): Inspection {
    return this.run(drawing, options, watcher, "hexlume_inspect", readInspection, noInspection);
  }

  private run<Answer>(
    drawing: Room | Uint8Array,
    options: Options,
    watcher: Watcher | undefined,
    name: "hexlume_convert" | "hexlume_inspect",
    read: (memory: Memory, result: number) => Answer,
    failed: (status: OutsideStatus) => Answer,
  ): Answer {
    this.watcher = watcher;
    try {
      const room = drawing instanceof Uint8Array ? this.roomOf(drawing) : drawing;
      const answer = call(room, options, watcher !== undefined, name, read);
      if (room.memory.size > mostKeptBytes) this.memory = null;
      return answer ?? failed("no-memory");
    } catch (error) {
      this.memory = null;
      return failed(error instanceof NoMemory ? "no-memory" : "fault");
    }
  }

  private roomOf(bytes: Uint8Array): Room {
    const room = this.reserve(bytes.length);
    this.write(room, 0, bytes);
    return room;
  }

  private start(): Memory {
    if (this.memory) return this.memory;
    const instance = new WebAssembly.Instance(this.module, this.imports());
    this.memory = new Memory(instance.exports as unknown as Exports);
    this.memory.exports._initialize();
    for (const font of this.fonts) addFont(this.memory, font);
    return this.memory;
  }

  // What the module needs of its host: progress and the clock. It also imports what its C library needs for files, which
  // nothing calls.
  private imports(): WebAssembly.Imports {
    const imports: WebAssembly.Imports = {};
    for (const { module, name } of WebAssembly.Module.imports(this.module))
      (imports[module] ??= {})[name] = (): never => {
        throw new Error(`${name} was called`);
      };
    const none = (): number => 0;
    let upperHalf = 0; // of a result of 64 bits
    Object.assign(imports.env ?? {}, {
      emscripten_notify_memory_growth: none,
      getTempRet0: (): number => upperHalf,
      setTempRet0: (value: number): void => void (upperHalf = value),
    });
    Object.assign(imports.page ?? {}, {
      progress: (pass: number, passes: number, done: number, total: number): number =>
        this.watcher?.({ pass, passes, done, total }) === true ? 1 : 0,
    });
    Object.assign(imports.wasi_snapshot_preview1 ?? {}, {
      clock_time_get: (_clock: number, _precision: bigint, place: number): number => this.writeTime(place),
      environ_sizes_get: (count: number, size: number): number => this.writeZeros(count, size),
      environ_get: none,
    });
    return imports;
  }

  private writeTime(place: number): number {
    this.memory?.setLong(place, Math.round(performance.now() * 1e6));
    return 0;
  }

  private writeZeros(...places: number[]): number {
    for (const place of places) this.memory?.setInt(place, 0);
    return 0;
  }
}

function call<Answer>(
  room: Room,
  options: Options,
  withProgress: boolean,
  name: "hexlume_convert" | "hexlume_inspect",
  read: (memory: Memory, result: number) => Answer,
): Answer | null {
  const { memory } = room;
  const given = writeArguments(memory, room.place, room.size, options, withProgress);
  const out = memory.allocateClear(4);
  memory.exports[name](given.input, given.options, out);
  const result = memory.pointer(out);
  const answer = result === 0 ? null : read(memory, result);
  memory.exports.hexlume_result_free(result);
  for (const place of [room.place, out, ...given.places]) memory.exports.free(place);
  return answer;
}

// The table keeps the bytes, so they are never freed.
function addFont(memory: Memory, font: Font): void {
  const families = memory.allocateText(font.families.join("\n"));
  memory.exports.hexlume_fonts_add(memory.allocateBytes(font.bytes), font.bytes.length, families);
  memory.exports.free(families);
}
