#include "support/region_area.h"

#include <cstddef>
#include <vector>

namespace hexlume {

int64_t AreaOf(HRGN region) {
  const DWORD size = GetRegionData(region, 0, nullptr);
  std::vector<RECT> data(size / sizeof(RECT));  // a header of two rectangles' size is before them
  GetRegionData(region, size, reinterpret_cast<RGNDATA*>(data.data()));
  int64_t area = 0;
  for (size_t i = sizeof(RGNDATAHEADER) / sizeof(RECT); i < data.size(); ++i) {
    const RECT& box = data[i];
    area += (static_cast<int64_t>(box.right) - box.left) * (static_cast<int64_t>(box.bottom) - box.top);
  }
  return area;
}

}  // namespace hexlume
