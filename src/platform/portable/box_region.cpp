#include "platform/path_region.h"
#include "platform/portable/gdi_object.h"

namespace hexlume {

HRGN CreateBoxRegion(const std::vector<RECT>& boxes) {
  return NewObject(RegionData(boxes));
}

}  // namespace hexlume
