#include "composite/dimension.h"

namespace hexlume {

int32_t DrawDimension(TextStream&, Canvas, const HeaderVars&, const ViewRect&, int32_t, int32_t, int32_t) {
  return 0;
}

}  // namespace hexlume
