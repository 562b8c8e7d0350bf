#include "text/mtext.h"

namespace hexlume {

int32_t DrawMText(Canvas canvas, TextStream& stream, const ViewRect& view, int32_t wholeTextClip,
                  int32_t halfWidthFont) {
  return 0;
}

int32_t DrawBlockMText(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                       const ViewRect& view, int32_t wholeTextClip, int32_t halfWidthFont) {
  return 0;
}

int32_t DrawDimMText(Canvas canvas, TextStream& stream, double baseX, double baseY, const ViewRect& view,
                     int32_t wholeTextClip, int32_t halfWidthFont) {
  return 0;
}

void CountLines(int32_t& count) {}

}  // namespace hexlume
