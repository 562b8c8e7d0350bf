// ATTRIB in the ENTITIES section, behind the INSERT that it belongs to: a plain text in a fixed font.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Returns the result of its last ReadGroup.
int32_t DrawAttrib(Canvas canvas, TextStream& stream, const ViewRect& view, int32_t wholeTextClip);

}  // namespace hexlume
