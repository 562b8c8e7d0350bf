#include "entities/ellipse.h"

namespace hexlume {

int32_t DrawEllipse(Canvas canvas, TextStream& stream, const ViewRect& view) {
  return 0;
}

int32_t DrawBlockEllipse(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                         int32_t insertColor, const ViewRect& view, int32_t byBlockFlag) {
  return 0;
}

}  // namespace hexlume
