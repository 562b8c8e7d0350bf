#include "composite/hatch_regions.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

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

// The sum of the rows of all edges: an upper bound that needs no sorting.
int64_t RowsOf(const HatchPath& path) {
  int64_t rows = 0;
  const std::vector<POINT>& corners = path.corners;
  for (size_t i = 0; i < corners.size(); ++i) {
    const POINT& before = corners[i == 0 ? corners.size() - 1 : i - 1];
    rows += std::abs(int64_t{corners[i].y} - before.y);
  }
  return rows;
}

bool HaveFewRows(const HatchPath* paths, size_t count) {
  int64_t rows = 0;
  for (size_t i = 0; i < count; ++i) rows += RowsOf(paths[i]);
  return rows <= 2 * hatchRectangleLimit;
}

bool HaveFewRectangles(const HatchPath* paths, size_t count) {
  if (HaveFewRows(paths, count)) return true;
  std::vector<EdgeEnd> ends;
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
  return rectangles <= hatchRectangleLimit;
}

// How many paths, from the first on, have few enough rectangles.
size_t CountFitting(const std::vector<HatchPath>& paths) {
  size_t fitting = 0;
  size_t tooMany = paths.size() + 1;
  while (fitting + 1 < tooMany) {
    // Tries all of them first, as they nearly always fit.
    const size_t tried = tooMany > paths.size() ? paths.size() : fitting + (tooMany - fitting) / 2;
    (HaveFewRectangles(paths.data(), tried) ? fitting : tooMany) = tried;
  }
  return fitting;
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
      if (std::abs(side) > regionReach) return false;
    }
  }
  return HaveFewRectangles(&path, 1);
}

std::vector<Region> MakeRegions(const std::vector<HatchPath>& paths) {
  std::vector<Region> regions;
  const size_t count = CountFitting(paths);
  for (size_t i = 0; i < count; ++i) {
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
