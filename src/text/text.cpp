#include "text/text.h"

namespace hexlume {

int32_t DrawText(Canvas canvas, TextStream& stream, const ViewRect& view, int32_t wholeTextClip,
                 int32_t halfWidthFont) {
  return 0;
}

int32_t DrawBlockText(Canvas canvas, TextStream& stream, double blockOriginX, double blockOriginY,
                      int32_t insertColor, const ViewRect& view, int32_t wholeTextClip,
                      int32_t halfWidthFont) {
  return 0;
}

int32_t DrawDimText(Canvas canvas, TextStream& stream, double baseX, double baseY, const ViewRect& view,
                    int32_t wholeTextClip, int32_t halfWidthFont) {
  return 0;
}

int32_t DrawDimInsertText(Canvas canvas, TextStream& stream, double baseX, double baseY, const ViewRect& view,
                          int32_t wholeTextClip) {
  return 0;
}

}  // namespace hexlume
