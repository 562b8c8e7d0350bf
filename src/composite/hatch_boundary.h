// The boundary of a hatch: the corners of its paths and their extent.
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

// The most corners of a path and the most paths of a hatch. Further ones are dropped.
constexpr size_t hatchCornerLimit = 30'000;
constexpr size_t hatchPathLimit = 1'000;

// The most corners of all paths together. The path that exceeds it and all after it are left out.
constexpr size_t hatchCornerSumLimit = 3'000'000;

// The groups of a boundary read so far.
struct HatchBoundary {
  bool solidFill = false;
  int32_t edgeType = -1;      // group 72: 1 line, 2 arc, 3 ellipse, 4 spline; a polyline's flag of bulges too
  int32_t closedFlag = 0;     // group 73: closed flag of a polyline, direction of an arc
  int32_t combineMode = -1;   // from group 75
  double bulge = 0.0;         // bulge of the next edge
  double prevX = 0.0;         // start of that edge, model units times 100
  double prevY = 0.0;         //
  double arcStart = 0.0;      // groups 50 and 51, degrees
  double arcEnd = 0.0;        //
  double arcStartRad = 0.0;   // the same in radians
  double arcEndRad = 0.0;     //
  std::vector<POINT> points;  // corners on the sheet; each path starts at place 0 again
  size_t pointCount = 0;      // number of corners of the current path
  HatchExtent extent = {};    // extent of all corners
  std::vector<HatchPath> paths;
  size_t cornerSum = 0;         // of all paths
  std::vector<Region> regions;  // regions of the paths
};

// Reads the boundary, from the group after the pattern's name up to the hatch's style or, without one, the
// name of the next entity, and completes its last path. The regions are in sheet units for a solid fill,
// otherwise in the canvas's device units. Returns the result of its last ReadGroup.
int32_t ReadHatchBoundary(TextStream& stream, Canvas canvas, HatchBoundary& boundary);

}  // namespace hexlume
