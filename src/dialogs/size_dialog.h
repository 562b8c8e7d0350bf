// Asks for the scale of a drawing that doesn't fit the largest sheet.
#pragma once

#include "dialogs/dialog_result.h"

namespace hexlume {

// Sets scaleDenominator, if the user answers with OK. sheetWidth and sheetHeight hold the drawing's size in
// whole millimetres meanwhile.
DialogResult ShowSizeDialog();

}  // namespace hexlume
