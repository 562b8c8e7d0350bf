// Where drawings come from: buttons, dropped files and folders, the address, and the page itself.

export interface Source {
  name: string;
  data: Blob;
}

const drawingName = /\.dxf$/i;

/** Of many files those that are drawings. Files that were chosen one by one are taken as they are. */
export function drawingsOf(files: readonly File[]): Source[] {
  const named = files.filter((file) => drawingName.test(file.name));
  return (named.length > 0 ? named : files.length === 1 ? files : []).map((file) => ({ name: file.name, data: file }));
}

function fileOf(entry: FileSystemFileEntry): Promise<File | null> {
  return new Promise((settle) => entry.file(settle, () => settle(null)));
}

/** Folders below a folder that are looked at. */
const deepest = 8;

/** A folder gives its entries in pieces. */
async function entriesOf(folder: FileSystemDirectoryEntry): Promise<FileSystemEntry[]> {
  const reader = folder.createReader(),
    all: FileSystemEntry[] = [];
  for (;;) {
    const some = await new Promise<FileSystemEntry[]>((settle) => reader.readEntries(settle, () => settle([])));
    if (some.length === 0) return all;
    all.push(...some);
  }
}

async function filesBelow(entry: FileSystemEntry, depth: number): Promise<File[]> {
  if (entry.isFile) {
    const file = await fileOf(entry as FileSystemFileEntry);
    return file ? [file] : [];
  }
  if (depth > deepest) return [];
  const entries = await entriesOf(entry as FileSystemDirectoryEntry);
  const files = await Promise.all(
    entries.sort((a, b) => a.name.localeCompare(b.name)).map((each) => filesBelow(each, depth + 1)),
  );
  return files.flat();
}

/** The newer way to folders, which works on pages that were opened from a file as well. */
type Handle = FileSystemFileHandle | FileSystemDirectoryHandle;
type HandleItem = DataTransferItem & { getAsFileSystemHandle?: () => Promise<Handle | null> };

async function filesOfHandle(handle: Handle, depth: number): Promise<File[]> {
  if (handle.kind === "file") return [await handle.getFile()];
  if (depth > deepest) return [];
  const inside: Handle[] = [];
  for await (const each of (handle as unknown as { values(): AsyncIterable<Handle> }).values()) inside.push(each);
  inside.sort((a, b) => a.name.localeCompare(b.name));
  return (await Promise.all(inside.map((each) => filesOfHandle(each, depth + 1)))).flat();
}

export async function droppedDrawings(transfer: DataTransfer): Promise<Source[]> {
  // The list is empty once the event has ended, so all of it is taken first.
  const items = [...transfer.items],
    plain = [...transfer.files];
  const entries = items.map((item) => item.webkitGetAsEntry?.() ?? null);
  if (!entries.some((entry) => entry?.isDirectory)) return drawingsOf(plain);
  const handles = items.map((item: HandleItem) => item.getAsFileSystemHandle?.().catch(() => null) ?? null);
  const files = await Promise.all(
    entries.map(async (entry, i) => {
      const handle = await handles[i];
      return handle ? filesOfHandle(handle, 0) : entry ? filesBelow(entry, 0) : [];
    }),
  );
  return drawingsOf(files.flat().filter((file) => drawingName.test(file.name)));
}

export function chooseFiles(): Promise<Source[]> {
  return new Promise((settle) => {
    const input = document.createElement("input");
    input.type = "file";
    input.multiple = true;
    input.accept = ".dxf,.DXF";
    input.addEventListener("change", () => settle(drawingsOf([...(input.files ?? [])])));
    input.addEventListener("cancel", () => settle([]));
    input.click();
  });
}

/** A drawing that is in the page: <script type="application/octet-stream" id="drawing" data-name="NAME">BASE64</script>.
 * hexlume.sh --view makes such a copy of the page. */
export function drawingInPage(): Source | null {
  const holder = document.getElementById("drawing");
  const text = holder?.textContent?.trim() ?? "";
  if (!holder || text === "") return null;
  holder.remove();
  const binary = atob(text),
    bytes = new Uint8Array(binary.length);
  for (let i = 0; i < binary.length; ++i) bytes[i] = binary.charCodeAt(i);
  return { name: holder.dataset["name"] ?? "drawing.dxf", data: new Blob([bytes]) };
}

/** The drawings of ?file=, relative to the page. */
export function namedInAddress(): string[] {
  return new URLSearchParams(location.search).getAll("file").filter((name) => name !== "");
}

export async function fetchDrawing(name: string): Promise<Source> {
  const response = await fetch(new URL(name, location.href));
  if (!response.ok) throw new Error(`${response.status} ${response.statusText}`.trim());
  return { name: decodeURIComponent(name.split(/[\\/]/).pop() ?? name), data: await response.blob() };
}
