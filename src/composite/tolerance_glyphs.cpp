#include "composite/tolerance_glyphs.h"

namespace hexlume {

double DrawToleranceGlyphs(Canvas, char, double) {
  return 0.0;
}
double DrawBlockToleranceGlyphs(Canvas, char, double) {
  return 0.0;
}

}  // namespace hexlume
