#include "fuzz/drawing_input.h"

#include <cstring>
#include <string>

#include "fuzz/target.h"

namespace hexlume {

namespace {

// In the heads: sheet and switches, what is left out, limits, and the part of the sheet.
enum HeadByte { sheetByte, switchByte, familyByte, scaleByte, limitByte, cancelByte, stepByte, sidesByte };

const char* const layerNames[] = {"0", "A", "\xE5\xA4\x96\xE5\xBD\xA2\xE7\xB7\x9A", "no such layer"};

void TakeSheet(const uint8_t* head, hexlume_options& options) {
  options.sheet = head[sheetByte] % 3;
  // Seldom: the adapter, which has a target of its own, takes a third of the time of a small drawing.
  const bool isAdapted = (head[sheetByte] >> 2 & 1) && head[switchByte] >> 4 == 0;
  options.format = isAdapted ? HEXLUME_FORMAT_AUTO : HEXLUME_FORMAT_AS_IS;
  options.monochrome = head[sheetByte] >> 3 & 1;
  options.half_width = head[sheetByte] >> 4 & 1;
  options.fit = head[sheetByte] >> 5 & 1;
  const bool isPart = options.sheet == HEXLUME_SHEET_PART;
  options.turned = !isPart && (head[sheetByte] >> 6 & 1);
  options.whole_texts = isPart && (head[sheetByte] >> 6 & 1);
  options.denominator = head[scaleByte] * 4 % 1001;
  // Each side of the part is -128 to 127 steps of 1 to 2^23.
  const int32_t step = int32_t{1} << head[stepByte] % 24;
  const auto side = [&](int32_t i) { return static_cast<int8_t>(head[sidesByte + i]) * step; };
  options.left = side(0);
  options.top = side(1);
  options.right = side(2);
  options.bottom = side(3);
}

void TakeLeftOut(const uint8_t* head, hexlume_options& options) {
  options.skip_off_layers = head[switchByte] & 1;
  options.hidden_layer_count = head[switchByte] >> 1 & 1 ? head[switchByte] >> 2 & 3 : 0;
  options.hidden_layers = layerNames;
  options.hidden_line_types = head[familyByte] & 31;
}

// A drawing of some groups can have millions of strokes, and blocks that contain each other take time without any.
void TakeLimits(const uint8_t* head, hexlume_options& options) {
  constexpr int64_t strokes[] = {4000, 4000, 4000, 1, 20, 300, 50000, 4000};
  constexpr int64_t bytes[] = {0, 0, 0, 1, 100, 500, 5000, 100000};
  options.limit_strokes = strokes[head[limitByte] & 7];
  options.limit_bytes = bytes[head[limitByte] >> 3 & 7];
  options.limit_milliseconds = 10;
}

uint32_t WordAt(const uint8_t* bytes, int64_t place) {
  uint32_t word;
  std::memcpy(&word, bytes + place, sizeof word);
  return word;
}

// The records fill the metafile and agree with the size and the count in the header.
void CheckRecords(const uint8_t* bytes, int64_t size) {
  constexpr uint32_t headerType = 1, endType = 14;
  constexpr int64_t smallestHeader = 100;
  Check(size >= smallestHeader, "the metafile has no header");
  Check(WordAt(bytes, 0) == headerType && WordAt(bytes, 48) == size, "the header has another size");
  int64_t place = 0;
  uint32_t count = 0;
  uint32_t type = 0;
  while (place < size) {
    Check(size - place >= 8, "a record is cut off");
    Check(type != endType, "there is a record after the end");
    type = WordAt(bytes, place);
    const uint32_t length = WordAt(bytes, place + 4);
    Check(length >= 8 && length % 4 == 0 && length <= size - place, "a record has no valid size");
    place += length;
    ++count;
  }
  Check(type == endType, "the metafile has no end");
  Check(WordAt(bytes, 52) == count, "the header has another number of records");
}

void CheckText(const char* text) {
  Check(text && std::strlen(text) < 100000, "a text is missing");
}

void CheckRemarks(const hexlume_result* result) {
  for (int64_t i = 0; const hexlume_remark* remark = hexlume_result_remark(result, i); ++i)
    for (const char* text : {remark->name, remark->detail, remark->english, remark->japanese})
      CheckText(text);
}

void CheckRows(const hexlume_result* result) {
  for (int64_t i = 0; const hexlume_layer* row = hexlume_result_layer(result, i); ++i)
    for (const char* text : {row->name, row->line_type}) CheckText(text);
  for (int64_t i = 0; const hexlume_line_type* row = hexlume_result_line_type(result, i); ++i)
    CheckText(row->name);
  for (int64_t i = 0; const hexlume_dim_style* row = hexlume_result_dim_style(result, i); ++i)
    CheckText(row->name);
  for (int64_t i = 0; const hexlume_block* row = hexlume_result_block(result, i); ++i) CheckText(row->name);
  for (int64_t i = 0; const hexlume_entities* row = hexlume_result_entities(result, i); ++i) {
    Check(row->count >= 0 && row->count_in_blocks >= 0 && row->count + row->count_in_blocks > 0,
          "no entities are counted");
    for (const char* text : {row->kind, row->layer}) CheckText(text);
  }
  for (int64_t i = 0; const hexlume_text* row = hexlume_result_text(result, i); ++i)
    for (const char* text : {row->kind, row->layer, row->block, row->text}) CheckText(text);
}

// The options and the input are valid, and the drawing is in memory.
void CheckStatus(const DrawingInput& input, int32_t status) {
  Check(hexlume_status_name(status) != nullptr, "there is no such status");
  Check(status != HEXLUME_STATUS_BAD_ARGUMENT, "valid arguments are refused");
  Check(status != HEXLUME_STATUS_NOT_FOUND && status != HEXLUME_STATUS_NOT_A_FILE &&
            status != HEXLUME_STATUS_NOT_ALLOWED && status != HEXLUME_STATUS_TOO_LARGE &&
            status != HEXLUME_STATUS_NO_MEMORY,
        "a status of files for a small drawing in memory");
  Check((status == HEXLUME_STATUS_EMPTY) == (input.drawing.byte_count == 0), "the status of empty drawings");
  Check(status != HEXLUME_STATUS_CANCELLED || input.callsToCancel >= 0, "cancelled by nobody");
}

}  // namespace

bool TakeDrawing(const uint8_t* bytes, size_t size, DrawingInput& input) {
  if (size < headSize) return false;
  input = {};
  input.drawing.size = sizeof input.drawing;
  input.drawing.bytes = bytes + headSize;
  input.drawing.byte_count = static_cast<int64_t>(size - headSize);
  hexlume_options_init(&input.options, sizeof input.options);
  TakeSheet(bytes, input.options);
  TakeLeftOut(bytes, input.options);
  TakeLimits(bytes, input.options);
  const bool cancels = bytes[cancelByte] >= 0xF0;
  input.callsToCancel = cancels ? bytes[cancelByte] & 7 : -1;
  // Not with progress, which depends on the clock, as the time limit does.
  input.lists = bytes[cancelByte] % 16 == 2;
  input.convertsTwice = !cancels && bytes[cancelByte] % 16 == 1;
  return true;
}

void CheckResult(const DrawingInput& input, int32_t status, const hexlume_result* result) {
  Check(result != nullptr, "there is no result");
  Check(status == hexlume_result_status(result), "the result has another status");
  CheckStatus(input, status);
  for (const int32_t language : {HEXLUME_ENGLISH, HEXLUME_JAPANESE})
    CheckText(hexlume_result_message(result, language));
  Check(hexlume_result_line(result) >= 0, "a line below 0");
  for (int32_t number = 0; number <= HEXLUME_NUMBER_MILLISECONDS + 1; ++number)
    hexlume_result_number(result, number);
  Check(hexlume_result_number(result, HEXLUME_NUMBER_BYTES_READ) == input.drawing.byte_count,
        "not all bytes are counted");
  CheckRemarks(result);
  CheckRows(result);
  const int64_t size = hexlume_result_metafile_size(result);
  const uint8_t* const metafile = hexlume_result_metafile(result);
  Check((metafile != nullptr) == (size > 0), "a metafile without a size");
  if (!metafile) return;
  Check(input.options.limit_bytes == 0 || size <= input.options.limit_bytes,
        "the metafile exceeds its limit");
  CheckRecords(metafile, size);
}

}  // namespace hexlume
