// The reference device of metafiles.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

// Returns the DC of the default printer, so that text is measured as it will be printed. Returns NULL if
// there is no printer; the display is the reference then. The caller deletes the DC. No dialog is shown.
HDC DefaultPrinterDC();

}  // namespace hexlume
