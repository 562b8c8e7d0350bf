// A look at a drawing before and after its conversion, which costs little: its start and its end are read, all of it only
// where it must be.
#pragma once

#include "tools/hexlume/drawing/drawing_source.h"

namespace hexlume {

enum class Encoding {
  codePage932,  // also for what is no drawing
  utf8,         // a recent version, and all of it is UTF-8
  notUtf8,      // a recent version, but not all of it is UTF-8
};

// A drawing of version AC1021 or later ($ACADVER), or one that begins with the byte order mark of UTF-8, is recent.
Encoding EncodingOf(DrawingParts& drawing);

// Whether the drawing has the group "EOF" that ends it.
bool HasEndMark(DrawingParts& drawing);

// Whether all bytes are UTF-8. Takes a text in pieces of any size.
class Utf8Check {
 public:
  // False after the first byte that doesn't fit.
  bool Take(const char* bytes, size_t count);
  bool IsComplete() const { return valid && missing == 0; }

 private:
  bool TakeByte(unsigned char byte);

  bool valid = true;
  int missing = 0;                          // bytes of the character at hand that are to come
  unsigned char least = 0x80, most = 0xBF;  // of the next of them
};

}  // namespace hexlume
