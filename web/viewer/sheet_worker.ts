// Reads large metafiles beside the page.
import { readMetafile } from "./emf";
import type { Sheet } from "./sheet";

export interface SheetReply {
  id: number;
  /** Null if the metafile is malformed. */
  sheet: Sheet | null;
}

const scope = self as unknown as {
  onmessage: (event: MessageEvent<{ id: number; bytes: Uint8Array }>) => void;
  postMessage(message: SheetReply, transfer: Transferable[]): void;
};

scope.onmessage = ({ data: { id, bytes } }) => {
  try {
    const sheet = readMetafile(bytes);
    scope.postMessage({ id, sheet }, [
      sheet.kinds.buffer,
      sheet.pens.buffer,
      sheet.data.buffer,
      sheet.curves.buffer,
    ] as ArrayBuffer[]);
  } catch {
    scope.postMessage({ id, sheet: null }, []);
  }
};
