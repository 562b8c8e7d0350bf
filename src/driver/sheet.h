// The sheet: its size, the drawing's place on it and its scale.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"

namespace hexlume {

// Fits the measured drawing to a sheet of at most A0 and writes the sheet geometry of the record. Where the
// drawing doesn't fit at its own scale, showDialog other than 0 asks the user for the denominator; otherwise
// presetDenominator is taken, 0 for 100. fullSize 1 keeps the model at full size. Returns 0, or
// HEXLUME_CANCELLED, or HEXLUME_NOT_A_DRAWING if the drawing has neither limits nor extents.
int32_t SetupSheet(HeaderVars& headerVars, int32_t showDialog, int32_t presetDenominator, int32_t fullSize);

}  // namespace hexlume
