// The measuring pass: finds the size and the layers of a drawing.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"

namespace hexlume {

// Reads a drawing as far as needed to fill headerVars, layerNames and layerCount. Returns 1, or 0 if the file
// can't be read or ends within the layer table.
int32_t ScanDrawing(const char* path, HeaderVars& headerVars);

// Whether the extents are no wider and no higher than the limits. A box that the header doesn't have
// counts as zeros.
bool ExtentsFitLimits(const HeaderVars& headerVars);

}  // namespace hexlume
