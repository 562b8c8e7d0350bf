#include "composite/tolerance.h"

namespace hexlume {

int32_t DrawTolerance(TextStream&, Canvas) {
  return 0;
}
int32_t DrawBlockTolerance(TextStream&, Canvas, double, double) {
  return 0;
}

}  // namespace hexlume
