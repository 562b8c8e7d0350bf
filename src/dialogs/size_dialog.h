// Asks for the scale of a drawing that doesn't fit the largest sheet.
#pragma once

namespace hexlume {

// Sets scaleDenominator. sheetWidth and sheetHeight hold the drawing's size in whole millimetres meanwhile.
// False if the user cancelled.
bool ShowSizeDialog();

}  // namespace hexlume
