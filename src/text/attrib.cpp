#include "text/attrib.h"

namespace hexlume {

int32_t DrawAttrib(Canvas canvas, TextStream& stream, const ViewRect& view, int32_t wholeTextClip) {
  return 0;
}

}  // namespace hexlume
