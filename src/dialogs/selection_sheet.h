// Asks the user which layers and line types to leave out.
#pragma once

#include "dialogs/dialog_result.h"

namespace hexlume {

// Offers the shown layers of layerNames and the five dash families, and stores the unticked ones in the
// excluded lists and their counts. If the sheet can't be shown, nothing is left out.
DialogResult ShowSelectionSheet();

}  // namespace hexlume
