// The walk over the ENTITIES section.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Entered right behind the section's name: sets up the canvas and draws each entity that has a converter, up
// to the section's end. An unknown entity is passed over group by group. Whatever fails in it comes out as
// `throw faultCode`.
//   wholeTextClip   other than 0: a text that doesn't lie wholly inside the view is dropped
//   wholeSheet      other than 0: the view is the whole sheet, so that arcs needn't be cut to it
//   halfWidthFont   other than 0: text is drawn in half-width cells
void DrawEntities(TextStream& stream, Canvas canvas, HeaderVars& headerVars, const ViewRect& view,
                  int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont);

// Whether the ENTITIES section draws the kind of entity that the group at hand names.
bool DrawsEntity();

}  // namespace hexlume
