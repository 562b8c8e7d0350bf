// The text of a drawing's file.
#pragma once

#include <cstdint>
#include <memory>

#include "driver/kept_groups.h"
#include "driver/text_source.h"
#include "driver/uncleared_bytes.h"

namespace hexlume {

// What replaces the bytes that aren't kept.
struct PassingChunk {
  bool isUsed = false;
  int32_t keptSize = 0;  // the bytes from this position on aren't kept
  UnclearedBytes bytes;  // the chunk that was read last
  int32_t start = 0;     // its position
  int32_t size = 0;      // position after it
  bool complete = false;
  int32_t furthest = 0;     // position after all bytes that were ever read
  bool endIsKnown = false;  // the text ends there
};

// The text mode of the C runtime reports wrong positions for files with LF line ends, and blocks are read
// again by position. So the bytes are kept in memory, fetched as far as needed, and a position is an
// index into them.
//
// After KeepNoMore only the chunk that was read last is kept as well. Then bytes + position is the next byte as
// before, but there may be no bytes before start.
struct TextStream {
  std::unique_ptr<TextSource> source;  // null if all of the text is in kept
  UnclearedBytes kept;                 // what was read, if the source itself isn't in memory
  const char* bytes = nullptr;         // at hand, without the end mark
  int32_t start = 0;                   // position of the first one
  int32_t size = 0;                    // position after the last one
  bool complete = false;               // the text ends there
  int32_t position = 0;                // index of the next byte to be read
  PassingChunk passing;                // unused before KeepNoMore

  KeptGroups keptGroups;
  const KeptGroup* nextKept = &noKeptGroup;  // read next, if it is at the position
};

// Opens a file at its start. Returns false if it can't be read. Positions are int32, so the text ends
// at 2 GB.
bool OpenText(TextStream& stream, const char* path);

// Keeps none of the bytes that are fetched from now on, if the source can read them again: they would be read
// once only, into new memory.
void KeepNoMore(TextStream& stream);

// Undoes it: reads again what wasn't kept. Throws faultCode if it isn't there any more.
void KeepAll(TextStream& stream);

// Reads one line as fgets does: up to and including its line feed, at most limit - 1 characters, with a
// terminating 0. CR LF is read as one line feed, and a byte 0x1A ends the text. At the end of the text
// returns false and leaves line unchanged.
bool ReadLine(TextStream& stream, char* line, int32_t limit);

// Throws faultCode if the bytes read last may have been lost, because another program has shortened the file. To be called
// by readers that have found a 0 byte or no line end.
void CheckForLoss(const TextStream& stream);

constexpr int32_t notFetched = -1;

// Returns the position after the line that ReadLine would read from place with the same limit (at least
// 2). Returns notFetched if the fetched bytes don't contain the whole line. That includes a last line
// without a line feed.
int32_t EndOfLine(const TextStream& stream, int32_t place, int32_t limit);

// Returns the position of the next byte, for Seek on the same stream.
inline int32_t Tell(const TextStream& stream) {
  return stream.position;
}
void SeekOutside(TextStream& stream, int32_t position);
inline void Seek(TextStream& stream, int32_t position) {
  stream.position = position;
  if (position < stream.start || position > stream.size) SeekOutside(stream, position);
}

// Seek to a place that is known to be among the bytes at hand, or directly after them.
inline void SeekAtHand(TextStream& stream, int32_t position) {
  stream.position = position;
}

}  // namespace hexlume
