// The clip region of a metafile, in pixels of the device for which it was recorded.
#pragma once

#include <cairo.h>

#include <memory>
#include <vector>

#include "tools/hexlume/metafile/emf_region.h"
#include "tools/hexlume/metafile/player_canvas.h"
#include "tools/hexlume/metafile/player_mapping.h"

namespace hexlume {

class PlayerClip {
 public:
  enum Mode : uint32_t { intersect = 1, unite, exclusive, subtract, copy };

  // Removes the clip region: RGN_COPY without a region.
  void Clear() { region.reset(); }
  void Combine(const std::vector<EmfRectangle>& rectangles, uint32_t mode);

  void Apply(PlayerCanvas& canvas, const PlayerMapping& mapping) const;

 private:
  struct FreeRegion {
    void operator()(cairo_region_t* object) const { cairo_region_destroy(object); }
  };
  std::unique_ptr<cairo_region_t, FreeRegion> region;  // null: no clipping
};

}  // namespace hexlume
