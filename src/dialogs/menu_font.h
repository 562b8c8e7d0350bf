// The font of the dialogs in font mode 1: the system's menu font.
#pragma once

#include "dialogs/toolkit/gdi_objects.h"

namespace hexlume {

// Creates the menu font in font, which must outlive the window, and sets it for the window and
// all its children.
void UseMenuFont(HWND window, CFont& font);

}  // namespace hexlume
