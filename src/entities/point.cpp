#include "entities/point.h"

namespace hexlume {

int32_t DrawPoint(TextStream& stream, Canvas canvas, const HeaderVars& headerVars) {
  return 0;
}

int32_t DrawBlockPoint(TextStream& stream, Canvas canvas, const HeaderVars& headerVars, double blockOriginX,
                       double blockOriginY, int32_t insertColor) {
  return 0;
}

}  // namespace hexlume
