// The sheet's distances at any resolution.
#pragma once

#include "dialogs/toolkit/property_sheet.h"

namespace hexlume {

// A distance that is told in pixels at 96 dots per inch, beside a page of the sheet. At a higher resolution
// it grows as the page does: with the font of its template.
int AtFontScale(const CPropertyPage& page, int distance);

}  // namespace hexlume
