// The device against which metafiles are measured.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

// The default printer's DC, so that text is measured as it will be printed; NULL without a printer, which
// makes the display the reference. The caller deletes it. No dialog is shown.
HDC DefaultPrinterDC();

}  // namespace hexlume
