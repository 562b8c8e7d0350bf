// The font step: dialogs in the system's menu font, where the host wants it.
#pragma once

#include "dialogs/toolkit/gdi_objects.h"

namespace hexlume {

// Gives the window and all windows within it the menu font, which goes to font.
void UseMenuFont(HWND window, CFont& font);

}  // namespace hexlume
