#include "composite/hatch_regions.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

#include "driver/work_budget.h"
#include "platform/path_region.h"

namespace hexlume {

namespace {

// Rectangles. On a row of the region each two edges bound at most one. Rows on which all edges are vertical
// share their rectangles, in combined regions too.

// The place where an edge begins or ends, from the top.
struct EdgeEnd {
  int32_t y;
  int32_t edges;         // 1 where an edge begins, -1 where it ends
  int32_t slantedEdges;  // the same; 0 for a vertical edge
};

void AddEdge(std::vector<EdgeEnd>& ends, const POINT& from, const POINT& to, bool isSlanted) {
  if (from.y == to.y) return;
  ends.push_back({static_cast<int32_t>(std::min(from.y, to.y)), 1, isSlanted ? 1 : 0});
  ends.push_back({static_cast<int32_t>(std::max(from.y, to.y)), -1, isSlanted ? -1 : 0});
}

void AddEdges(std::vector<EdgeEnd>& ends, const HatchPath& path) {
  const std::vector<POINT>& corners = path.corners;
  for (size_t i = 0; i < corners.size(); ++i) {
    const POINT& before = corners[i == 0 ? corners.size() - 1 : i - 1];
    AddEdge(ends, before, corners[i], path.isEllipse || before.x != corners[i].x);
  }
}

// Rectangles of a region of all these paths. Beyond the limit the count isn't complete.
int64_t RectanglesOf(const HatchPath* paths, size_t count) {
  constexpr int64_t stepsOfEdgeEnd = 100;
  size_t edgeCount = 0;
  for (size_t i = 0; i < count; ++i) edgeCount += paths[i].corners.size();
  CountSteps(static_cast<int64_t>(2 * edgeCount) * stepsOfEdgeEnd);
  std::vector<EdgeEnd> ends;
  ends.reserve(2 * edgeCount);
  for (size_t i = 0; i < count; ++i) AddEdges(ends, paths[i]);
  std::sort(ends.begin(), ends.end(), [](const EdgeEnd& a, const EdgeEnd& b) { return a.y < b.y; });
  int64_t rectangles = 0;
  int64_t edges = 0;
  int64_t slantedEdges = 0;
  for (size_t i = 0; i + 1 < ends.size() && rectangles <= hatchRectangleLimit; ++i) {
    edges += ends[i].edges;
    slantedEdges += ends[i].slantedEdges;
    const int64_t rows = int64_t{ends[i + 1].y} - ends[i].y;
    if (rows > 0) rectangles += edges / 2 * (slantedEdges > 0 ? rows : 1);
  }
  return rectangles;
}

// The first paths that have few enough rectangles together.
struct FittingPaths {
  size_t count = 0;
  int64_t rectangles = 0;
};

FittingPaths FindFitting(const std::vector<HatchPath>& paths) {
  FittingPaths fitting;
  size_t tooMany = paths.size() + 1;
  while (fitting.count + 1 < tooMany) {
    // Tries all of them first, as they nearly always fit.
    const size_t tried =
        tooMany > paths.size() ? paths.size() : fitting.count + (tooMany - fitting.count) / 2;
    const int64_t rectangles = RectanglesOf(paths.data(), tried);
    if (rectangles <= hatchRectangleLimit)
      fitting = {tried, rectangles};
    else
      tooMany = tried;
  }
  if (fitting.count < paths.size()) NoteBound(hatchRectanglesBound);
  return fitting;
}

int64_t SideOf(int64_t from, int64_t to) {
  return std::abs(to - from);
}

// Steps to find the region of one path. A scan walks along an ellipse, or along all slanted edges and sorts them in each row:
// each pair of edges can change its order once.
int64_t StepsOfScan(const HatchPath& path) {
  constexpr int64_t stepsOfPixel = 5;
  constexpr int64_t pairsOfStep = 4;
  const std::vector<POINT>& corners = path.corners;
  if (path.isEllipse)
    return (SideOf(corners[0].x, corners[1].x) + SideOf(corners[0].y, corners[1].y)) * stepsOfPixel;
  int64_t rows = 0;
  for (size_t i = 0; i < corners.size(); ++i) {
    const POINT& before = corners[i == 0 ? corners.size() - 1 : i - 1];
    if (before.x != corners[i].x) rows += SideOf(before.y, corners[i].y);
  }
  const auto count = static_cast<int64_t>(corners.size());
  return rows * stepsOfPixel + count * count / pairsOfStep;
}

// All regions are combined in rounds, each of which halves their number, and the result is written.
void CountCombining(const FittingPaths& fitting) {
  constexpr int64_t stepsOfRectangle = 15;
  constexpr int64_t bytesOfRectangle = 16;
  int64_t rounds = 2;
  for (size_t left = fitting.count; left > 1; left = (left + 1) / 2) ++rounds;
  CountWork(fitting.rectangles * rounds * stepsOfRectangle, fitting.rectangles * bytesOfRectangle);
}

HRGN CreateRegion(const HatchPath& path) {
  const std::vector<POINT>& corners = path.corners;
  if (!path.isEllipse) return CreatePathRegion(corners.data(), static_cast<int>(corners.size()));
  return CreateEllipseRegion(corners[0], corners[1]);
}

// Combining.

// The regions are within the limits, so a failure means that there isn't enough memory.
void Combine(const Region& result, const Region& first, const Region& second, int32_t mode) {
  if (CombineRgn(result.get(), first.get(), second.get(), mode) == RGN_ERROR) throw std::bad_alloc();
}

Region EmptyRegion() {
  return Region(CreateRectRgn(0, 0, 0, 0));
}

// Combines all into the first, calling combine(first, second) for two neighbours. As the results grow,
// neighbours are combined in pairs, then the pairs, and so on, instead of one after the other with the whole.
template <typename Combine>
void CombineNeighbours(size_t count, Combine combine) {
  for (size_t apart = 1; apart < count; apart *= 2)
    for (size_t i = 0; i + apart < count; i += 2 * apart) combine(i, i + apart);
}

void CombineByMode(const Region& result, std::vector<Region>& regions, int32_t mode) {
  CombineNeighbours(regions.size(), [&](size_t first, size_t second) {
    Combine(regions[first], regions[first], regions[second], mode);
    regions[second].reset();
  });
  Combine(result, result, regions.front(), mode);
}

// The area covered by exactly one region: the union without what any two share.
void CombineCoveredOnce(const Region& result, std::vector<Region>& regions) {
  const Region common = EmptyRegion();
  std::vector<Region> shared;
  for (size_t i = 0; i < regions.size(); ++i) shared.push_back(EmptyRegion());
  CombineNeighbours(regions.size(), [&](size_t first, size_t second) {
    const Region& all = regions[first];
    Combine(common, all, regions[second], RGN_AND);
    Combine(shared[first], shared[first], shared[second], RGN_OR);
    Combine(shared[first], shared[first], common, RGN_OR);
    Combine(all, all, regions[second], RGN_OR);
    shared[second].reset();
    regions[second].reset();
  });
  Combine(result, regions.front(), shared.front(), RGN_XOR);
}

}  // namespace

bool FitsARegion(const HatchPath& path) {
  for (const POINT& corner : path.corners) {
    for (const int64_t side : {corner.x, corner.y}) {
      if (std::abs(side) <= regionReach) continue;
      NoteBound(hatchReachBound);
      return false;
    }
  }
  if (RectanglesOf(&path, 1) <= hatchRectangleLimit) return true;
  NoteBound(hatchRectanglesBound);
  return false;
}

std::vector<Region> MakeRegions(const std::vector<HatchPath>& paths) {
  std::vector<Region> regions;
  const FittingPaths fitting = FindFitting(paths);
  CountCombining(fitting);
  for (size_t i = 0; i < fitting.count; ++i) {
    CountSteps(StepsOfScan(paths[i]));
    if (IsOverBudget()) return {};
    Region region(CreateRegion(paths[i]));
    if (region) regions.push_back(std::move(region));
  }
  return regions;
}

Region CombineRegions(std::vector<Region>& regions, int32_t combineMode) {
  Region result = EmptyRegion();
  // Without a style the result is empty.
  if (regions.empty() || combineMode == -1) return result;
  if (combineMode == coveredOnce)
    CombineCoveredOnce(result, regions);
  else
    CombineByMode(result, regions, combineMode);
  return result;
}

}  // namespace hexlume
