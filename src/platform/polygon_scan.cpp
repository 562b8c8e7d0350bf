#include "platform/polygon_scan.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace hexlume {

namespace {

// A limit on the time: some seconds.
constexpr int64_t mostEdgeSteps = int64_t{1} << 29;

// An edge that isn't horizontal, from its upper end.
struct Edge {
  int64_t top;
  int64_t bottom;
  int direction;  // 1 if the polygon runs downward along the edge, otherwise -1
  // The crossing with the current row is at x + remainder / height, 0 <= remainder < height.
  int64_t x;
  int64_t remainder;
  int64_t stepX;
  int64_t stepRemainder;

  int64_t Height() const { return bottom - top; }
  bool IsUpright() const { return stepX == 0 && stepRemainder == 0; }
  int64_t FirstX() const { return x + (remainder > 0 ? 1 : 0); }

  void Step() {
    x += stepX;
    remainder += stepRemainder;
    if (remainder < Height()) return;
    remainder -= Height();
    ++x;
  }
};

Edge MakeEdge(POINT from, POINT to) {
  const int direction = from.y < to.y ? 1 : -1;
  if (direction < 0) std::swap(from, to);
  Edge edge = {from.y, to.y, direction, from.x, 0, 0, 0};
  const int64_t across = static_cast<int64_t>(to.x) - from.x;
  edge.stepX = across / edge.Height();
  edge.stepRemainder = across % edge.Height();
  if (edge.stepRemainder < 0) {
    edge.stepRemainder += edge.Height();
    --edge.stepX;
  }
  return edge;
}

// Returns the edges sorted by their top, and from left to right if their tops are equal.
std::vector<Edge> EdgesFromTheTop(const POINT* points, int count) {
  std::vector<Edge> edges;
  for (int i = 0; i < count; ++i) {
    const POINT& from = points[i == 0 ? count - 1 : i - 1];
    if (from.y != points[i].y) edges.push_back(MakeEdge(from, points[i]));
  }
  std::sort(edges.begin(), edges.end(),
            [](const Edge& a, const Edge& b) { return a.top != b.top ? a.top < b.top : a.x < b.x; });
  return edges;
}

bool IsTooMuch(const std::vector<Edge>& edges) {
  int64_t steps = 0;
  for (const Edge& edge : edges) steps += edge.IsUpright() ? 0 : edge.Height();
  return steps > mostEdgeSteps;
}

// Collects rectangles row by row and joins a row that equals the one above it.
class RowCollector {
 public:
  explicit RowCollector(std::vector<RECT>& collected) : boxes(collected) {}

  void BeginRow(int64_t rowTop, int64_t rowBottom) {
    top = static_cast<LONG>(rowTop);
    bottom = static_cast<LONG>(rowBottom);
    rowStart = boxes.size();
  }

  void AddSpan(int64_t from, int64_t to) {
    if (from >= to) return;
    if (boxes.size() > rowStart && boxes.back().right >= from) {
      boxes.back().right = std::max(boxes.back().right, static_cast<LONG>(to));
    } else {
      boxes.push_back({static_cast<LONG>(from), top, static_cast<LONG>(to), bottom});
    }
  }

  // Returns false if there are too many rectangles.
  bool EndRow() {
    if (IsLikeTheRowAbove()) {
      for (size_t i = previousStart; i < rowStart; ++i) boxes[i].bottom = bottom;
      boxes.resize(rowStart);
    } else {
      previousStart = rowStart;
    }
    return boxes.size() <= mostRegionBoxes;
  }

 private:
  bool IsLikeTheRowAbove() const {
    const size_t count = boxes.size() - rowStart;
    if (count == 0 || rowStart - previousStart != count || boxes[previousStart].bottom != top) return false;
    return std::equal(boxes.begin() + static_cast<ptrdiff_t>(rowStart), boxes.end(),
                      boxes.begin() + static_cast<ptrdiff_t>(previousStart),
                      [](const RECT& a, const RECT& b) { return a.left == b.left && a.right == b.right; });
  }

  std::vector<RECT>& boxes;
  size_t previousStart = 0;
  size_t rowStart = 0;
  LONG top = 0;
  LONG bottom = 0;
};

using ActiveEdges = std::vector<Edge*>;

// An insertion sort, because the edges are nearly in order from the row above.
void SortByX(ActiveEdges& active) {
  for (size_t i = 1; i < active.size(); ++i) {
    Edge* const edge = active[i];
    size_t place = i;
    while (place > 0 && active[place - 1]->FirstX() > edge->FirstX()) {
      active[place] = active[place - 1];
      --place;
    }
    active[place] = edge;
  }
}

void AddSpans(const ActiveEdges& active, int fillMode, RowCollector& rows) {
  int turns = 0;
  int64_t from = 0;
  for (const Edge* edge : active) {
    const bool wasInside = turns != 0;
    turns = fillMode == WINDING ? turns + edge->direction : turns ^ 1;
    if (!wasInside) from = edge->FirstX();
    if (turns == 0) rows.AddSpan(from, edge->FirstX());
  }
}

// Returns the first row that can differ from row y: the next one, or the next top or bottom of an edge if all
// active edges are vertical.
int64_t NextRow(const ActiveEdges& active, int64_t y, int64_t nextTop) {
  int64_t next = nextTop;
  for (const Edge* edge : active) {
    if (!edge->IsUpright()) return y + 1;
    next = std::min(next, edge->bottom);
  }
  return next;
}

void DropEnded(ActiveEdges& active, int64_t y) {
  active.erase(
      std::remove_if(active.begin(), active.end(), [y](const Edge* edge) { return edge->bottom <= y; }),
      active.end());
}

}  // namespace

bool ScanPolygon(const POINT* points, int count, int fillMode, std::vector<RECT>& boxes) {
  std::vector<Edge> edges = EdgesFromTheTop(points, count);
  if (IsTooMuch(edges)) return false;
  RowCollector rows(boxes);
  ActiveEdges active;
  size_t waiting = 0;
  int64_t y = 0;
  while (waiting < edges.size() || !active.empty()) {
    if (active.empty()) y = edges[waiting].top;
    while (waiting < edges.size() && edges[waiting].top == y) active.push_back(&edges[waiting++]);
    SortByX(active);
    const int64_t next = NextRow(active, y, waiting < edges.size() ? edges[waiting].top : INT64_MAX);
    rows.BeginRow(y, next);
    AddSpans(active, fillMode, rows);
    if (!rows.EndRow()) return false;
    y = next;
    DropEnded(active, y);
    for (Edge* edge : active) edge->Step();
  }
  return true;
}

}  // namespace hexlume
