#include "composite/hatch_lines.h"

namespace hexlume {

void FillHatchLines(TextStream&, Canvas, int32_t, int32_t, int32_t, int32_t, int32_t) {}

}  // namespace hexlume
