#include "support/region_area.h"

#include "platform/portable/gdi_object.h"

namespace hexlume {

int64_t AreaOf(HRGN region) {
  int64_t area = 0;
  for (const pixman_box32_t& box : DataOf<RegionData>(region)->Boxes())
    area += (static_cast<int64_t>(box.x2) - box.x1) * (static_cast<int64_t>(box.y2) - box.y1);
  return area;
}

}  // namespace hexlume
