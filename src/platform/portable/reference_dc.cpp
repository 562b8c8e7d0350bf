#include "platform/reference_dc.h"

namespace hexlume {

// There are no printer drivers, so the metafile's own reference device is used.
HDC DefaultPrinterDC() {
  return nullptr;
}

}  // namespace hexlume
