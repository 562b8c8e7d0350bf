// Asks which layers and line types to leave out.
#pragma once

namespace hexlume {

// Offers the layers of layerNames that are shown, and the five dash families, and stores what was unticked in
// the excluded lists and their counts. False if the user cancelled.
bool ShowSelectionSheet();

}  // namespace hexlume
