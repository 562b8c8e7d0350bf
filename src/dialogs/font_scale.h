// Scales the sheet's distances to the screen resolution.
#pragma once

#include "dialogs/toolkit/property_sheet.h"

namespace hexlume {

// Scales a distance in pixels at 96 dpi to the resolution of the page, in proportion to the font of
// the page's template.
int AtFontScale(const CPropertyPage& page, int distance);

}  // namespace hexlume
