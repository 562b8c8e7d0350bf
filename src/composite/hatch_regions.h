// The regions of a hatch's paths. GDI does the geometry; the hatch's style decides how the
// regions are combined.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// The largest coordinate of a region, in its own units.
constexpr int32_t regionReach = (1 << 26) - 1;

// The most rectangles of all regions of a hatch and their combination, which take up to 128 MB.
constexpr int64_t hatchRectangleLimit = 1 << 23;

// The combineMode of a style for which CombineRgn has no mode. CombineRgn's own mode 4 isn't used.
constexpr int32_t coveredOnce = 4;

// A GDI object that is deleted when the hatch ends, also by an exception.
struct ObjectDeleter {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
template <typename Handle>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, ObjectDeleter>;
using Region = Owned<HRGN>;

// In the units of its region: the corners of a polygon, or two opposite corners of an ellipse's box.
struct HatchPath {
  bool isEllipse = false;
  std::vector<POINT> corners;
};

// Whether a path can be converted to a region.
bool FitsARegion(const HatchPath& path);

// Creates the regions of paths, each of which fits by itself, in their order. Starting with the path that
// would exceed the rectangles of a hatch, paths are left out. None is created if that would exceed the budget
// of the conversion.
std::vector<Region> MakeRegions(const std::vector<HatchPath>& paths);

// Returns the area that the hatch covers. Clears the regions.
Region CombineRegions(std::vector<Region>& regions, int32_t combineMode);

}  // namespace hexlume
