// The sheet: its size, its scale and the position of the drawing on it.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"

namespace hexlume {

// Fits the measured drawing to a sheet of at most A0 and sets the sheet geometry. If it doesn't fit at its
// own scale, the user is asked for the denominator (showDialog other than 0), otherwise presetDenominator is
// used, or defaultDenominator if that is 0. With fullSize 1 the model keeps its full size. Returns 0,
// HEXLUME_CANCELLED, or HEXLUME_NOT_A_DRAWING if the drawing has neither limits nor extents.
int32_t SetupSheet(HeaderVars& headerVars, int32_t showDialog, int32_t presetDenominator, int32_t fullSize);

}  // namespace hexlume
