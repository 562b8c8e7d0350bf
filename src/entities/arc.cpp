#include "entities/arc.h"

namespace hexlume {

int32_t DrawArc(TextStream& stream, Canvas canvas, double offsetX, double offsetY, const ViewRect& view,
                int32_t wholeSheet) {
  return 0;
}

int32_t DrawBlockArc(TextStream& stream, Canvas canvas, double blockOriginX, double blockOriginY,
                     int32_t insertColor, int32_t byBlockFlag, const ViewRect& view) {
  return 0;
}

int32_t DrawDimInsertArc(TextStream& stream, Canvas canvas, double blockOriginX, double blockOriginY,
                         const ViewRect& view, int32_t wholeSheet, int32_t insertColor) {
  return 0;
}

}  // namespace hexlume
