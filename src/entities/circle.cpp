#include "entities/circle.h"

namespace hexlume {

int32_t DrawCircle(TextStream& stream, Canvas canvas, double offsetX, double offsetY, const ViewRect& view) {
  return 0;
}

int32_t DrawBlockCircle(TextStream& stream, Canvas canvas, double blockOriginX, double blockOriginY,
                        int32_t insertColor, int32_t byBlockFlag, const ViewRect& view) {
  return 0;
}

int32_t DrawDimInsertCircle(TextStream& stream, Canvas canvas, double blockOriginX, double blockOriginY,
                            const ViewRect& view, int32_t insertColor) {
  return 0;
}

}  // namespace hexlume
