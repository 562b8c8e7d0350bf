#include "text/stacked_fraction.h"

namespace hexlume {

void DrawStackedFraction(Canvas canvas, int32_t height, int32_t width, int32_t escapement, int32_t attach,
                         double angle, double x, double y, int32_t halfWidthFont) {}

double ParseStackHeight() {
  return 0;
}

void AnchorStackPart(int32_t height, int32_t attach, double total, double angle, double& x, double& y) {}

}  // namespace hexlume
