#include "platform/portable/region_library.h"

#include "platform/portable/loaded_library.h"

namespace hexlume {

namespace {

PixmanFunctions Load() {
  const LoadedLibrary library("libpixman-1.so.0");
  PixmanFunctions functions;
  library.Find("pixman_region32_copy", functions.copy);
  library.Find("pixman_region32_fini", functions.fini);
  library.Find("pixman_region32_init", functions.init);
  library.Find("pixman_region32_init_rects", functions.initRects);
  library.Find("pixman_region32_init_with_extents", functions.initWithExtents);
  library.Find("pixman_region32_intersect", functions.intersect);
  library.Find("pixman_region32_n_rects", functions.rectangleCount);
  library.Find("pixman_region32_not_empty", functions.isNotEmpty);
  library.Find("pixman_region32_rectangles", functions.rectangles);
  library.Find("pixman_region32_subtract", functions.subtract);
  library.Find("pixman_region32_union", functions.unite);
  return functions;
}

}  // namespace

const PixmanFunctions& Pixman() {
  static const PixmanFunctions functions = Load();
  return functions;
}

}  // namespace hexlume
