// Asks which layers and line types to leave out.
#pragma once

#include "dialogs/dialog_result.h"

namespace hexlume {

// Offers the layers of layerNames that are shown, and the five dash families, and stores what was unticked in
// the excluded lists and their counts. A sheet that isn't shown leaves nothing out.
DialogResult ShowSelectionSheet();

}  // namespace hexlume
