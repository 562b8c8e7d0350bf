#include "driver/short_value.h"

#include "driver/conv_state.h"
#include "platform/line_copy.h"

namespace hexlume {

bool TakeShortValue(TextStream& stream, int32_t place) {
  if (stream.size - place < shortLineSize) return false;
  char* const value = state.groupValue;
  int32_t length = CopyShortLine(stream.bytes + place, value);
  if (length == noLineEnd || value[length] != '\n') return false;
  Seek(stream, place + length + 1);
  // CR LF is a line end, and one more CR isn't part of the value.
  if (length > 0 && value[length - 1] == '\r') --length;
  if (length > 0 && value[length - 1] == '\r') --length;
  value[length] = '\0';
  return true;
}

}  // namespace hexlume
