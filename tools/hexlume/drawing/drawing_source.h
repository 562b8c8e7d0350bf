// Where a drawing comes from: a file that can be read several times, or bytes of a pipe or of standard input.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tools/hexlume/system/system.h"

namespace hexlume {

constexpr const char* standardStream = "-";
constexpr int64_t largestDrawing = 0x7FFFFFFF;  // the library counts bytes in an int32

struct DrawingSource {
  std::string path;                  // as the user gave it
  std::optional<std::string> bytes;  // of what isn't a file
  bool isReadable = true;            // false for a pipe that can't be opened
};

// Reads a pipe or a device to its end, or to one byte more than the library takes. A file stays to be read by others.
DrawingSource OpenDrawing(const std::string& path);

// Reads a file to its end too. Stays without bytes if it can't be read.
DrawingSource ReadDrawing(const std::string& path);

// Whether the drawing is standard input or a pipe, so that it has no folder for an output beside it.
bool IsStream(const std::string& path);

// Reads parts of a drawing in any order.
class DrawingParts {
 public:
  explicit DrawingParts(const DrawingSource& source);

  bool IsOpen() const { return source.bytes || file; }
  int64_t Size() const { return size; }

  // Returns the number of bytes read: fewer only at the end.
  size_t ReadAt(int64_t place, char* buffer, size_t count);

 private:
  const DrawingSource& source;
  File file;
  int64_t size = 0;
  int64_t filePlace = 0;
};

}  // namespace hexlume
