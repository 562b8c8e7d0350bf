#include "composite/block_dispatch.h"

namespace hexlume {

int32_t DrawBlockEntities(TextStream& stream, int32_t bodyOffset, Canvas canvas, double blockOriginX,
                          double blockOriginY, const HeaderVars& headerVars, int32_t insertColor,
                          const ViewRect& view, int32_t wholeTextClip, int32_t wholeSheet,
                          int32_t halfWidthFont, int32_t byBlockFlag) {
  return 0;
}

int32_t DrawDimInsertEntities(TextStream& stream, int32_t bodyOffset, Canvas canvas, double blockOriginX,
                              double blockOriginY, const HeaderVars& headerVars, const ViewRect& view,
                              int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont,
                              int32_t insertColor) {
  return 0;
}

}  // namespace hexlume
