#include "composite/hatch.h"

namespace hexlume {

int32_t DrawHatch(TextStream&, Canvas) {
  return 0;
}
int32_t DrawDimInsertHatch(TextStream&, Canvas, double, double) {
  return 0;
}

}  // namespace hexlume
