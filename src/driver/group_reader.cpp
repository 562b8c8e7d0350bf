#include "driver/group_reader.h"

#include <algorithm>
#include <cstring>

#include "driver/conv_state.h"
#include "driver/run_watch.h"
#include "driver/short_value.h"
#include "platform/line_number.h"

namespace hexlume {

namespace {

bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

// The usual form of a code line: only blanks and digits.
struct PlainCode {
  int32_t code;
  int32_t value;  // position of the value line
};

// Finds the code at the stream's position. Returns false if it isn't a plain one, or not fetched as a whole.
bool FindPlainCode(const TextStream& stream, PlainCode& found) {
  constexpr int32_t longestCode = 10;  // nine digits and a line end, so the number fits an int32
  const char* line = stream.bytes + Tell(stream);
  const int32_t length = std::min(stream.size - Tell(stream), longestCode);
  int32_t i = 0;
  while (i < length && line[i] == ' ') ++i;
  const int32_t blanks = i;
  found.code = 0;
  for (; i < length - 1 && IsDigit(line[i]); ++i) found.code = found.code * 10 + (line[i] - '0');
  if (i == blanks) return false;
  if (i < length && line[i] == '\r') ++i;
  if (i >= length || line[i] != '\n') return false;
  found.value = Tell(stream) + i + 1;
  return true;
}

// Returns the length of the value in a value line: it ends at a 0 byte, and excludes the line end and one
// CR before it.
size_t LengthOfValue(const char* line, size_t length) {
  if (const void* zero = std::memchr(line, '\0', length)) length = static_cast<const char*>(zero) - line;
  if (length > 0 && line[length - 1] == '\n') {
    --length;
    if (length > 0 && line[length - 1] == '\r') --length;
  }
  if (length > 0 && line[length - 1] == '\r') --length;
  return length;
}

// Stores the value line at place and moves the stream after it. Returns false if it isn't fetched as a whole.
bool TakeValue(TextStream& stream, int32_t place) {
  const int32_t end = EndOfLine(stream, place, groupLineLimit);
  if (end == notFetched) return false;
  const char* line = stream.bytes + place;
  const size_t length = LengthOfValue(line, static_cast<size_t>(end - place));
  std::memcpy(state.groupValue, line, length);
  state.groupValue[length] = '\0';
  SeekAtHand(stream, end);
  CheckForLoss(stream);
  return true;
}

void DropLineEnd(char* text) {
  size_t length = std::strlen(text);
  if (length > 0 && text[length - 1] == '\n') text[--length] = '\0';
  if (length > 0 && text[length - 1] == '\r') text[--length] = '\0';
}

// Reads a group of any form. If its value is missing, the code line is left in the buffer.
int32_t ReadTwoLines(TextStream& stream) {
  if (!ReadLine(stream, state.groupValue, groupLineLimit)) return 0;
  state.groupCode = Atoi(state.groupValue);
  if (!ReadLine(stream, state.groupValue, groupLineLimit)) return 0;
  DropLineEnd(state.groupValue);
  return 1;
}

int32_t ReadAnyGroup(TextStream& stream) {
  const int32_t more = ReadTwoLines(stream);
  CheckForLoss(stream);
  return more;
}

// Not inlined, so that ReadGroup needs no frame of its own.
[[gnu::noinline]] int32_t TakeNextKept(TextStream& stream) {
  TakeKeptGroup(stream, *stream.nextKept);
  return 1;
}

// Skips groups with a code other than 0, but not the last one that is kept: after it the text may end.
void PassKeptGroups(TextStream& stream) {
  const KeptGroup* group = stream.nextKept;
  if (group->place != Tell(stream)) return;
  while (group->inEntity > 0) group += group->inEntity;
  stream.nextKept = group;
  Seek(stream, group->place);
}

}  // namespace

int32_t ReadGroup(TextStream& stream) {
  if (!MayReadGroup(Tell(stream))) return 0;
  return stream.nextKept->place == Tell(stream) ? TakeNextKept(stream) : ReadTextGroup(stream);
}

int32_t ReadTextGroup(TextStream& stream) {
  state.groupNumberIsKnown = 0;
  state.groupLine = nullptr;
  PlainCode plain;
  if (!FindPlainCode(stream, plain)) return ReadAnyGroup(stream);
  if (!TakeShortValue(stream, plain.value) && !TakeValue(stream, plain.value)) return ReadAnyGroup(stream);
  state.groupCode = plain.code;
  return 1;
}

double NumberInText() {
  double number;
  // Bytes that were lost meanwhile are read as 0, which no number here ends with.
  if (state.groupLine && ReadNumberLine(state.groupLine, number)) return number;
  return Atof(state.groupValue);
}

int32_t PassToEntity(TextStream& stream) {
  int32_t more = 0;
  do {
    PassKeptGroups(stream);
    // The last group isn't skipped, because at the end of the file its value must be in the buffer.
    PlainCode plain;
    while (FindPlainCode(stream, plain) && plain.code != 0) {
      const int32_t end = EndOfLine(stream, plain.value, groupLineLimit);
      if (end == notFetched || end >= stream.size) break;
      SeekAtHand(stream, end);
    }
    more = ReadGroup(stream);
  } while (more && state.groupCode != 0);
  return more;
}

}  // namespace hexlume
