// The outline of a region.
#pragma once

#include "tools/hexlume/metafile/player_canvas.h"

namespace hexlume {

// Returns polygons that cover the same area as the boxes. Boxes that adjoin from one band to the next share a
// polygon, so the path is much shorter than one of all boxes.
PlayerPath OutlineOf(const CanvasBoxes& boxes, const PathLimits& limits);

}  // namespace hexlume
