#include "support/text_groups.h"

#include "support/text_drawing.h"

namespace hexlume {

TextStream StreamOf(const std::string& groups) {
  const std::string bytes = DrawingBytes(groups);
  TextStream stream;
  stream.complete = true;
  stream.bytes.assign(bytes.begin(), bytes.end());
  return stream;
}

}  // namespace hexlume
