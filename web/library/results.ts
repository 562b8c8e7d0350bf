// Results of the module: hexlume_result and what it has.
import { type Memory } from "./memory";
import type {
  Block, Box, Conversion, Entities, Inspection, Layer, LineType, Remark, Result, Status, Summary, Text,
} from "./protocol";

const numbers = {
  sheetWidth: 0, sheetHeight: 1, denominator: 2, strokes: 3, bytesRead: 4, substituted: 5, embedded: 6, milliseconds: 7,
};

export function readConversion(memory: Memory, result: number): Conversion {
  return {
    ...readResult(memory, result),
    kind: "conversion",
    strokes: numberOf(memory, result, numbers.strokes),
    metafile: readMetafile(memory, result),
  };
}

export function readInspection(memory: Memory, result: number): Inspection {
  const { exports } = memory;
  const rowsOf = <Row>(at: (result: number, index: bigint) => number, read: (memory: Memory, place: number) => Row): Row[] =>
    readRows(memory, (index) => at(result, index), read);
  return {
    ...readResult(memory, result),
    kind: "inspection",
    summary: readSummary(memory, exports.hexlume_result_summary(result)),
    layers: rowsOf(exports.hexlume_result_layer, readLayer),
    lineTypes: rowsOf(exports.hexlume_result_line_type, readLineType),
    dimStyles: rowsOf(exports.hexlume_result_dim_style, (memory, place) => memory.textField(place + 8)),
    blocks: rowsOf(exports.hexlume_result_block, readBlock),
    entities: rowsOf(exports.hexlume_result_entities, readEntities),
    texts: rowsOf(exports.hexlume_result_text, readText),
  };
}

function readResult(memory: Memory, result: number): Result {
  const { exports } = memory;
  const status = memory.text(exports.hexlume_status_name(exports.hexlume_result_status(result)));
  return {
    status: status as Status,
    sentence: {
      en: memory.text(exports.hexlume_result_message(result, 0)),
      ja: memory.text(exports.hexlume_result_message(result, 1)),
    },
    line: Number(exports.hexlume_result_line(result)),
    remarks: readRows(memory, (index) => exports.hexlume_result_remark(result, index), readRemark),
    sheetWidth: numberOf(memory, result, numbers.sheetWidth),
    sheetHeight: numberOf(memory, result, numbers.sheetHeight),
    denominator: numberOf(memory, result, numbers.denominator),
    bytesRead: numberOf(memory, result, numbers.bytesRead),
    substituted: numberOf(memory, result, numbers.substituted),
    embedded: numberOf(memory, result, numbers.embedded),
    milliseconds: numberOf(memory, result, numbers.milliseconds),
  };
}

function numberOf(memory: Memory, result: number, number: number): number {
  return Number(memory.exports.hexlume_result_number(result, number));
}

// A copy, because the module frees its own.
function readMetafile(memory: Memory, result: number): Uint8Array | null {
  const place = memory.exports.hexlume_result_metafile(result);
  const size = Number(memory.exports.hexlume_result_metafile_size(result));
  return place === 0 ? null : memory.bytes(place, size).slice();
}

function readRows<Row>(memory: Memory, at: (index: bigint) => number, read: (memory: Memory, place: number) => Row): Row[] {
  const rows: Row[] = [];
  for (let index = 0n; ; ++index) {
    const place = at(index) >>> 0;
    if (place === 0) return rows;
    rows.push(read(memory, place));
  }
}

function readRemark(memory: Memory, place: number): Remark {
  return {
    name: memory.textField(place + 24),
    line: memory.long(place + 8),
    count: memory.long(place + 16),
    detail: memory.textField(place + 28),
    sentence: { en: memory.textField(place + 32), ja: memory.textField(place + 36) },
  };
}

function readSummary(memory: Memory, given: number): Summary | null {
  const place = given >>> 0;
  if (place === 0) return null;
  return {
    version: memory.textField(place + 96),
    scale: memory.double(place + 24),
    sheetWidth: memory.int(place + 12),
    sheetHeight: memory.int(place + 16),
    denominator: memory.int(place + 20),
    limits: memory.int(place + 4) ? readBox(memory, place + 32) : null,
    extents: memory.int(place + 8) ? readBox(memory, place + 64) : null,
  };
}

function readBox(memory: Memory, place: number): Box {
  return [memory.double(place), memory.double(place + 8), memory.double(place + 16), memory.double(place + 24)];
}

function readLayer(memory: Memory, place: number): Layer {
  return {
    name: memory.textField(place + 16),
    color: memory.int(place + 4),
    lineType: memory.textField(place + 20),
    shown: memory.int(place + 8) !== 0,
  };
}

function readLineType(memory: Memory, place: number): LineType {
  return { name: memory.textField(place + 8), elements: memory.int(place + 4) };
}

function readBlock(memory: Memory, place: number): Block {
  return { name: memory.textField(place + 24), entities: memory.long(place + 8), line: memory.long(place + 16) };
}

function readEntities(memory: Memory, place: number): Entities {
  return {
    kind: memory.textField(place + 32),
    layer: memory.textField(place + 36),
    count: memory.long(place + 16),
    countInBlocks: memory.long(place + 24),
    drawn: memory.int(place + 4) !== 0,
    drawnInBlocks: memory.int(place + 8) !== 0,
  };
}

function readText(memory: Memory, place: number): Text {
  return {
    kind: memory.textField(place + 48) as Text["kind"],
    layer: memory.textField(place + 52),
    block: memory.textField(place + 56),
    text: memory.textField(place + 60),
    x: memory.double(place + 16),
    y: memory.double(place + 24),
    height: memory.double(place + 32),
    angle: memory.double(place + 40),
    line: memory.long(place + 8),
  };
}
