// The boundary of a hatch. GDI's regions do its geometry: each path becomes one, and the hatch's style tells
// how they are combined.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

#include "canvas/canvas.h"
#include "composite/hatch_families.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// The corners of a path and the regions of a hatch that are kept; those behind them are dropped.
constexpr size_t hatchCornerLimit = 30'000;
constexpr size_t hatchRegionLimit = 1'000;

// How far a region may reach from the sheet's origin, and how many rows its edges may cross, each edge its
// own, in sheet units. A path beyond makes no region: it would take minutes and all memory.
constexpr int32_t regionReach = (1 << 26) - 1;
constexpr int64_t regionRowLimit = 1 << 26;

// An object that is deleted whichever way the hatch ends.
struct ObjectDeleter {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
template <typename Handle>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, ObjectDeleter>;
using Region = Owned<HRGN>;

// What the groups of a boundary have told so far.
struct HatchBoundary {
  bool solidFill = false;
  int32_t edgeType = -1;      // group 72: 1 line, 2 arc, 3 ellipse, 4 spline; a polyline's flag of bulges too
  int32_t closedFlag = 0;     // group 73: of a polyline; the sense of an arc too
  int32_t combineMode = -1;   // from group 75
  double bulge = 0.0;         // of the edge that comes next
  double prevX = 0.0;         // where that edge starts, model units times 100
  double prevY = 0.0;         //
  double arcStart = 0.0;      // groups 50 and 51, degrees
  double arcEnd = 0.0;        //
  double arcStartRad = 0.0;   // the same in radians
  double arcEndRad = 0.0;     //
  std::vector<POINT> points;  // corners on the sheet; a new path takes their places from the first one again
  size_t pointCount = 0;      // of the path at hand
  HatchExtent extent = {};    // of all corners
  std::vector<Region> regions;
};

// Reads the boundary from the group behind the pattern's name up to the hatch's style, or the next entity's
// name without one, and completes its last path. The regions are in sheet units for a solid fill, in the
// canvas's device units otherwise. Returns the result of its last ReadGroup.
int32_t ReadHatchBoundary(TextStream& stream, Canvas canvas, HatchBoundary& boundary);

// What the hatch covers. Uses up the boundary's regions.
Region CombineRegions(HatchBoundary& boundary);

}  // namespace hexlume
