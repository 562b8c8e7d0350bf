// The short path of ReadGroup, for the values of nearly all groups. Inline, as a call takes a tenth of its time.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"
#include "driver/text_stream.h"
#include "platform/line_copy.h"
#include "platform/line_number.h"

namespace hexlume {

// Stores the value line at place in state.groupValue and moves the stream after it. Returns false, and moves nothing, if the
// line is long, has a 0 byte, or is near the end of the fetched bytes. state.groupValue is undefined then.
inline bool TakeShortValue(TextStream& stream, int32_t place) {
  if (stream.size - place < shortLineSize) return false;
  const char* const line = stream.bytes + place;
  int32_t length = CopyShortLine(line, state.groupValue);
  if (length == noLineEnd || line[length] != '\n') return false;
  static_assert(shortLineSize >= numberLineSize);
  state.groupLine = line;
  SeekAtHand(stream, place + length + 1);
  // CR LF is a line end, and one more CR isn't part of the value.
  if (length > 0 && line[length - 1] == '\r') --length;
  if (length > 0 && line[length - 1] == '\r') --length;
  state.groupValue[length] = '\0';
  return true;
}

}  // namespace hexlume
