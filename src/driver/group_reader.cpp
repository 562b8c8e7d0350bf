#include "driver/group_reader.h"

#include <cstring>

#include "driver/conv_state.h"
#include "driver/run_watch.h"

namespace hexlume {

namespace {

void DropLineEnd(char* text) {
  size_t length = std::strlen(text);
  if (length > 0 && text[length - 1] == '\n') text[--length] = '\0';
  if (length > 0 && text[length - 1] == '\r') text[--length] = '\0';
}

}  // namespace

int32_t ReadGroup(TextStream& stream) {
  if (!MayReadGroup(Tell(stream))) return 0;
  if (!ReadLine(stream, state.groupValue, groupLineLimit)) return 0;
  state.groupCode = Atoi(state.groupValue);
  if (!ReadLine(stream, state.groupValue, groupLineLimit)) return 0;
  DropLineEnd(state.groupValue);
  return 1;
}

bool AtGroup(int32_t code, const char* value) {
  return state.groupCode == code && std::strcmp(state.groupValue, value) == 0;
}

}  // namespace hexlume
