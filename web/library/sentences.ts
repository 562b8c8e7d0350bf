// Sentences of the library for what ends a call outside of it, as in src/host/status_text.cpp.
import type { Conversion, Inspection, Result, Sentence, Status } from "./protocol";

export type OutsideStatus = "cancelled" | "fault" | "no-memory" | "not-allowed" | "too-large";

const sentences: Record<OutsideStatus, Sentence> = {
  cancelled: { en: "The call was cancelled.", ja: "取り消されました。" },
  fault: { en: "The drawing can't be drawn from here on.", ja: "ここから先は描画できません。" },
  "no-memory": { en: "There isn't enough memory.", ja: "メモリが足りません。" },
  "not-allowed": { en: "The file can't be opened or read: ", ja: "ファイルを開くことも読むこともできません: " },
  "too-large": { en: "The drawing has 2 GB or more.", ja: "図面が 2 GB 以上あります。" },
};

/** @param detail  what the sentence ends with, for example the name of a file */
function resultOf(status: OutsideStatus, detail: string): Result {
  const { en, ja } = sentences[status];
  return {
    status: status satisfies Status,
    sentence: { en: en + detail, ja: ja + detail },
    line: 0,
    remarks: [],
    sheetWidth: 0,
    sheetHeight: 0,
    denominator: 1,
    bytesRead: 0,
    substituted: 0,
    embedded: 0,
    milliseconds: 0,
  };
}

export function noConversion(status: OutsideStatus, detail = ""): Conversion {
  return { ...resultOf(status, detail), kind: "conversion", strokes: 0, metafile: null };
}

export function noInspection(status: OutsideStatus, detail = ""): Inspection {
  return {
    ...resultOf(status, detail),
    kind: "inspection",
    summary: null,
    layers: [],
    lineTypes: [],
    dimStyles: [],
    blocks: [],
    entities: [],
    texts: [],
  };
}
