// Pixman is linked.
#include "platform/portable/region_library.h"

namespace hexlume {

const PixmanFunctions& Pixman() {
  static const PixmanFunctions functions = {
      pixman_region32_copy,
      pixman_region32_fini,
      pixman_region32_init,
      pixman_region32_init_rects,
      pixman_region32_init_with_extents,
      pixman_region32_intersect,
      pixman_region32_n_rects,
      pixman_region32_not_empty,
      pixman_region32_rectangles,
      pixman_region32_subtract,
      pixman_region32_union,
  };
  return functions;
}

}  // namespace hexlume
