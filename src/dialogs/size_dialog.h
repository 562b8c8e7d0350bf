// Asks the user for the scale of a drawing that doesn't fit the largest sheet.
#pragma once

#include <cstdint>

#include "dialogs/dialog_result.h"

namespace hexlume {

// The preselected N of the scale 1:N, and the one used when the dialog isn't shown.
constexpr int32_t defaultDenominator = 100;

// Sets scaleDenominator if the user presses OK. Expects the size of the drawing, in whole millimetres, in
// sheetWidth and sheetHeight.
DialogResult ShowSizeDialog();

}  // namespace hexlume
