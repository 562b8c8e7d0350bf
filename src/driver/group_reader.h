// Reads the groups of a drawing.
//
// All readers and converters follow these rules, which make a single pass over the file possible:
//
// - Entry: the group that names the entity (code 0) is in the buffer. The reader first calls ReadGroup.
// - Look-ahead: the reader goes on up to the next group with code 0 or the end of the file, leaves that group
//   in the buffer, and returns the result of its last ReadGroup. The caller checks the buffer first.
// - Early return: a reader that stops in the middle of its entity returns at once, with the current group in
//   the buffer. The caller skips the rest of the entity.
// - Re-entry: a reader that needs another part of the file saves groupValue and Tell, lets the inner reader
//   seek and read, and then seeks back and restores groupValue. groupCode is 0 before and after.
#pragma once

#include <cstdint>
#include <cstring>

#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Bytes of a line with its terminating 0. Longer lines aren't an error: the rest is read as the next line, so codes and values
// are out of step from there on.
constexpr int32_t groupLineLimit = 256;

// Reads the next group into state.groupCode and state.groupValue. Returns 1, or 0 at the end of the file and
// once the run has ended. If the file ends within a group, groupCode is that of the incomplete group.
int32_t ReadGroup(TextStream& stream);

// Atof(state.groupValue), but faster from the text.
double NumberInText();

// The value of the group read last as a number: Atof(state.groupValue). The numbers of kept groups aren't converted again.
inline double GroupNumber() {
  return state.groupNumberIsKnown ? state.groupNumber : NumberInText();
}

// The same as Hundredths(state.groupValue).
inline double GroupHundredths() {
  return GroupNumber() * 100.0;
}

// The slow form of ReadGroup: reads the group from the text, kept or not, and doesn't ask the host.
int32_t ReadTextGroup(TextStream& stream);

// The fast form: takes a kept group, and goes on after it.
inline void TakeKeptGroup(TextStream& stream, const KeptGroup& group) {
  state.groupCode = group.code;
  state.groupNumber = group.number;
  state.groupNumberIsKnown = 1;
  if (group.length < shortKeptValue)
    std::memcpy(state.groupValue, group.value, shortKeptValue);
  else
    std::memcpy(state.groupValue, group.value, static_cast<size_t>(group.length) + 1);
  stream.nextKept = &group + 1;
  Seek(stream, group.end);
}

// Reads up to the next group with code 0. Equivalent to repeated calls of ReadGroup, but faster, because
// skipped groups aren't copied. Returns 1, or 0 at the end of the file.
int32_t PassToEntity(TextStream& stream);

// Returns whether the current group has this code and exactly this value.
inline bool AtGroup(int32_t code, const char* value) {
  return state.groupCode == code && std::strcmp(state.groupValue, value) == 0;
}

}  // namespace hexlume
