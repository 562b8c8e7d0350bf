// The boundary of a hatch: the corners of its paths and what they extend over.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "canvas/canvas.h"
#include "composite/hatch_families.h"
#include "composite/hatch_regions.h"
#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// The corners of a path and the paths of a hatch that are kept; those after them are dropped.
constexpr size_t hatchCornerLimit = 30'000;
constexpr size_t hatchPathLimit = 1'000;

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
  std::vector<HatchPath> paths;
  std::vector<Region> regions;  // of the paths
};

// Reads the boundary from the group behind the pattern's name up to the hatch's style, or the next entity's
// name without one, and completes its last path. The regions are in sheet units for a solid fill, in the
// canvas's device units otherwise. Returns the result of its last ReadGroup.
int32_t ReadHatchBoundary(TextStream& stream, Canvas canvas, HatchBoundary& boundary);

}  // namespace hexlume
