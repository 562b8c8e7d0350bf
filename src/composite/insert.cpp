#include "composite/insert.h"

namespace hexlume {

int32_t DrawInsert(const HeaderVars& headerVars, TextStream& stream, Canvas canvas, const ViewRect& view,
                   int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont) {
  return 0;
}

int32_t DrawBlockInsert(const HeaderVars& headerVars, TextStream& stream, Canvas canvas, double blockOriginX,
                        double blockOriginY, const ViewRect& view, int32_t wholeTextClip, int32_t wholeSheet,
                        int32_t halfWidthFont, int32_t byBlockFlag) {
  return 0;
}

int32_t DrawDimInsert(const HeaderVars& headerVars, TextStream& stream, Canvas canvas, double offsetX,
                      double offsetY, const ViewRect& view, int32_t wholeTextClip, int32_t wholeSheet,
                      int32_t halfWidthFont, int32_t dimensionColor) {
  return 0;
}

int32_t DrawDimInsertInsert(const HeaderVars& headerVars, TextStream& stream, Canvas canvas,
                            double blockOriginX, double blockOriginY, const ViewRect& view,
                            int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont) {
  return 0;
}

}  // namespace hexlume
