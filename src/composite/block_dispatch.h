// The walks over a block's body: one for the blocks that an INSERT plays back, one for a dimension's block
// and one for those that are inserted there. Whatever fails in them comes out as `throw faultCode`; so does a
// block that contains itself, while there is still room on the stack, and a drawing whose blocks don't come
// to an end.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// How many groups the walks of one conversion look at before they give up; a long entity counts for several.
// A stroke takes nearly 100 bytes of a metafile, which holds less than 4 GB, so a drawing that can be shown
// doesn't get there; one whose blocks double from level to level does, within a minute or two.
constexpr int64_t blockStepLimit = 100'000'000;

// Draws each entity of the block that has a converter in this scope, up to the block's end. bodyOffset is
// that of a BlockEntry; with noBody nothing is drawn. The origin is the insertion point in model units times
// 100, from which the block's scaled base point is subtracted here. Always 1.
int32_t DrawBlockEntities(TextStream& stream, int32_t bodyOffset, Canvas canvas, double blockOriginX,
                          double blockOriginY, const HeaderVars& headerVars, int32_t insertColor,
                          const ViewRect& view, int32_t wholeTextClip, int32_t wholeSheet,
                          int32_t halfWidthFont, int32_t byBlockFlag);

// The same in the scope of a dimension's inserted block. No base point is subtracted here. Always 1.
int32_t DrawDimInsertEntities(TextStream& stream, int32_t bodyOffset, Canvas canvas, double blockOriginX,
                              double blockOriginY, const HeaderVars& headerVars, const ViewRect& view,
                              int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont,
                              int32_t insertColor);

// The same for the block of a dimension, moved by an offset in model units times 100. Only the inserts in it
// are given the dimension's colour. A processor fault is left to the guard around the ENTITIES section.
void DrawDimBlock(int32_t bodyOffset, double offsetX, double offsetY, const HeaderVars& headerVars,
                  const ViewRect& view, int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont,
                  int32_t color, TextStream& stream, Canvas canvas);

// Whether blocks draw the kind of entity that the group at hand names.
bool DrawsBlockEntity();

}  // namespace hexlume
