#include "platform/path_region.h"

namespace hexlume {

// Ours passes over rows that upright edges have in common.
HRGN CreatePathRegion(const POINT* points, int count) {
  return CreatePolygonRgn(points, count, ALTERNATE);
}

}  // namespace hexlume
