#include "driver/group_reader.h"

#include <cstring>

#include "driver/conv_state.h"

namespace hexlume {

namespace {

// A longer line isn't an error: its rest is read as the next line, and the groups are out of step from there
// on.
constexpr int32_t lineLimit = 256;

void DropLineEnd(char* text) {
  size_t length = std::strlen(text);
  if (length > 0 && text[length - 1] == '\n') text[--length] = '\0';
  if (length > 0 && text[length - 1] == '\r') text[--length] = '\0';
}

}  // namespace

int32_t ReadGroup(TextStream& stream) {
  if (!ReadLine(stream, state.groupValue, lineLimit)) return 0;
  state.groupCode = Atoi(state.groupValue);
  if (!ReadLine(stream, state.groupValue, lineLimit)) return 0;
  DropLineEnd(state.groupValue);
  return 1;
}

bool AtGroup(int32_t code, const char* value) {
  return state.groupCode == code && std::strcmp(state.groupValue, value) == 0;
}

}  // namespace hexlume
