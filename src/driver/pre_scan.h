// The measuring pass: how large is the drawing, and which layers has it?
#pragma once

#include <cstdint>

#include "driver/conv_state.h"

namespace hexlume {

// Reads a drawing as far as needed to fill headerVars, layerNames and layerCount. Returns 1, or 0 if the file
// can't be read or its layers end with the file.
int32_t ScanDrawing(const char* path, HeaderVars& headerVars);

// Whether the extents fit inside the limits, in both directions, as the drawing's own numbers tell.
bool ExtentsFitLimits(const HeaderVars& headerVars);

}  // namespace hexlume
