// The regions of a hatch's paths. GDI does their geometry, and the hatch's style says how they are combined.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// How far a region may reach from the origin, in its own units.
constexpr int32_t regionReach = (1 << 26) - 1;

// The rectangles that all regions of a hatch, and what they are combined to, may have: 128 MB of them.
constexpr int64_t hatchRectangleLimit = 1 << 23;

// The combineMode of a style that CombineRgn has no mode for; its own 4 isn't used.
constexpr int32_t coveredOnce = 4;

// An object that is deleted whichever way the hatch ends.
struct ObjectDeleter {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
template <typename Handle>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, ObjectDeleter>;
using Region = Owned<HRGN>;

// In the units of its region: the corners of a polygon, or two opposite ones of an ellipse's box.
struct HatchPath {
  bool isEllipse = false;
  std::vector<POINT> corners;
};

// Whether a path can have a region at all.
bool FitsARegion(const HatchPath& path);

// Those of paths that fit by themselves, in their order. From the path on that would bring the hatch beyond
// its rectangles they are left out.
std::vector<Region> MakeRegions(const std::vector<HatchPath>& paths);

// What the hatch covers. Uses up the regions.
Region CombineRegions(std::vector<Region>& regions, int32_t combineMode);

}  // namespace hexlume
