#include "support/text_groups.h"

#include "support/text_drawing.h"

namespace hexlume {

TextStream StreamOf(const std::string& groups) {
  return StreamOfBytes(DrawingBytes(groups));
}

TextStream StreamOfBytes(const std::string& bytes) {
  TextStream stream;
  stream.complete = true;
  stream.kept.assign(bytes.begin(), bytes.end());
  stream.bytes = stream.kept.data();
  stream.size = static_cast<int32_t>(bytes.size());
  return stream;
}

}  // namespace hexlume
