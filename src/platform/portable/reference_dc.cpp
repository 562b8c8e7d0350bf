#include "platform/reference_dc.h"

namespace hexlume {

// There is no printer whose driver could be asked: the metafile's own reference device serves.
HDC DefaultPrinterDC() {
  return nullptr;
}

}  // namespace hexlume
