// INSERT, at each place where one can stand: a block is played back from the file at a place, scale and
// angle. Each reader saves the group at hand and the place in the file, lets a dispatcher draw the block, and
// goes back, so that its caller finds the next entity as if nothing had happened.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// In the ENTITIES section. The caller has set the insert's scales to 1 and its angle to 0. Returns the result
// of the dispatcher that it ran, which is 1 always, or 0 if the file ends right behind the insert's name.
int32_t DrawInsert(const HeaderVars& headerVars, TextStream& stream, Canvas canvas, const ViewRect& view,
                   int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont);

// In a block. Scales and angle add up to those of the block around it, and are put back for it afterwards.
// Returns the result of its last ReadGroup.
int32_t DrawBlockInsert(const HeaderVars& headerVars, TextStream& stream, Canvas canvas, double blockOriginX,
                        double blockOriginY, const ViewRect& view, int32_t wholeTextClip, int32_t wholeSheet,
                        int32_t halfWidthFont, int32_t byBlockFlag);

// In the block of a dimension, whose offset and colour it is given. The caller has set the insert's scales to
// 1 and its angle to 0. Returns 1, or 0, as DrawInsert does.
int32_t DrawDimInsert(const HeaderVars& headerVars, TextStream& stream, Canvas canvas, double offsetX,
                      double offsetY, const ViewRect& view, int32_t wholeTextClip, int32_t wholeSheet,
                      int32_t halfWidthFont, int32_t dimensionColor);

// In a block that is inserted in a dimension's block. Returns the result of its last ReadGroup.
int32_t DrawDimInsertInsert(const HeaderVars& headerVars, TextStream& stream, Canvas canvas,
                            double blockOriginX, double blockOriginY, const ViewRect& view,
                            int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont);

}  // namespace hexlume
