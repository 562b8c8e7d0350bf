// A drawing's file, read as text.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "driver/text_source.h"

namespace hexlume {

// The C runtime's text mode loses count of its own position on files with LF line ends, and playing a block
// back hangs on that position. So the bytes are kept, fetched from the file as far as the reading has come,
// and a position is simply an index into them.
struct TextStream {
  std::unique_ptr<TextSource> source;
  std::vector<char> bytes;  // what has been fetched, without the text's end mark
  bool complete = false;    // the whole text has been fetched
  int32_t position = 0;     // index of the next byte to be read
};

// Opens a file for reading, from its start. False if it can't be read. As positions are int32, a text ends at
// 2 GB.
bool OpenText(TextStream& stream, const char* path);

// Reads one line, as fgets does: up to and with its line feed, at most limit - 1 characters, closed by a 0.
// CR LF counts as one line feed and a byte 0x1A ends the text. False, with line as it was, at the end of the
// text.
bool ReadLine(TextStream& stream, char* line, int32_t limit);

constexpr int32_t notFetched = -1;

// The place after the line that ReadLine would read at this place, with the same limit of at least 2.
// notFetched if the bytes fetched so far don't hold all of it; so it is at the end of the text for a last
// line without a line feed.
int32_t EndOfLine(const TextStream& stream, int32_t place, int32_t limit);

// The place of the next byte, for Seek on the same stream.
int32_t Tell(const TextStream& stream);
void Seek(TextStream& stream, int32_t position);

}  // namespace hexlume
