// A drawing that takes several seconds, and nearly 1 GB.
#pragma once

#include <string>

#include "host/host_drawings.h"

namespace hexlume {

// Block 0 is a line, each further one inserts the one before it twice: 2^25 lines in all. Without the comments before them the
// budget of a conversion would be used up too soon: it grows with the drawing.
inline std::string EndlessDrawing() {
  std::string blocks = "0 BLOCK\n2 B0\n10 0\n20 0\n3 B0\n" + Line() + "0 ENDBLK\n";
  for (int32_t level = 1; level <= 25; ++level) {
    const std::string inner = "0 INSERT\n2 B" + std::to_string(level - 1) + "\n10 0\n20 0\n";
    blocks += "0 BLOCK\n2 B" + std::to_string(level) + "\n10 0\n20 0\n3 x\n" + inner + inner + "0 ENDBLK\n";
  }
  const std::string comment = "999\n" + std::string(245, 'x') + '\n';
  std::string comments;
  for (int32_t i = 0; i < 120'000; ++i) comments += comment;
  return DrawingBytes(a3Header) + comments +
         DrawingBytes("0 SECTION\n2 BLOCKS\n" + blocks + "0 ENDSEC\n0 SECTION\n2 ENTITIES\n" +
                      "0 INSERT\n2 B25\n10 0\n20 0\n" + end);
}

}  // namespace hexlume
