#include "platform/portable/region_data.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <utility>

#include "platform/polygon_scan.h"
#include "platform/portable/region_library.h"

namespace hexlume {

namespace {

constexpr int64_t mostCombinedBoxes = 2 * static_cast<int64_t>(mostRegionBoxes);

// Iterates over the rows of a region from top to bottom.
struct RowWalk {
  explicit RowWalk(const pixman_region32_t& region) {
    int count = 0;
    next = Pixman().rectangles(&region, &count);
    end = next + count;
    Step();
  }

  bool IsDone() const { return boxes == 0; }

  void Step() {
    row = next;
    while (next != end && next->y1 == row->y1) ++next;
    boxes = next - row;
  }

  // Moves down to y, which must not be below the end of the current row.
  void MoveTo(int32_t y) {
    top = y;
    if (!IsDone() && row->y2 <= y) Step();
  }

  // Returns where the content changes next below top.
  int32_t Bottom() const {
    if (IsDone()) return INT32_MAX;
    return top < row->y1 ? row->y1 : row->y2;
  }

  int64_t BoxesAtTop() const { return IsDone() || top < row->y1 ? 0 : boxes; }

  const pixman_box32_t* row = nullptr;
  const pixman_box32_t* next = nullptr;
  const pixman_box32_t* end = nullptr;
  int64_t boxes = 0;  // number of rectangles in the row
  int32_t top = INT32_MIN;
};

// The result changes only where one of the two regions does, and a row of it has at most the rectangles of
// both, so their sum is an upper limit.
bool CanCombine(const pixman_region32_t& first, const pixman_region32_t& second) {
  RowWalk a(first);
  RowWalk b(second);
  int64_t boxes = 0;
  while (!a.IsDone() || !b.IsDone()) {
    boxes += a.BoxesAtTop() + b.BoxesAtTop();
    if (boxes > mostCombinedBoxes) return false;
    const int32_t bottom = std::min(a.Bottom(), b.Bottom());
    a.MoveTo(bottom);
    b.MoveTo(bottom);
  }
  return true;
}

bool DoOverlap(const pixman_box32_t& a, const pixman_box32_t& b) {
  return a.x1 < b.x2 && b.x1 < a.x2 && a.y1 < b.y2 && b.y1 < a.y2;
}

void Check(pixman_bool_t isDone) {
  if (!isDone) throw std::bad_alloc();
}

}  // namespace

RegionData::RegionData() {
  Pixman().init(&region);
}

RegionData::RegionData(const RECT& box) {
  pixman_box32_t rectangle = {box.left, box.top, box.right, box.bottom};
  if (box.left < box.right && box.top < box.bottom) {
    Pixman().initWithExtents(&region, &rectangle);
  } else {
    Pixman().init(&region);
  }
}

RegionData::RegionData(const std::vector<RECT>& boxes, Rows howRows) : rows(howRows) {
  static_assert(sizeof(RECT) == sizeof(pixman_box32_t) &&
                offsetof(RECT, bottom) == offsetof(pixman_box32_t, y2));
  const auto* const same = reinterpret_cast<const pixman_box32_t*>(boxes.data());
  Check(Pixman().initRects(&region, same, static_cast<int>(boxes.size())));
}

RegionData::RegionData(const RegionData& other) : RegionData() {
  if (!Pixman().copy(&region, &other.region)) {
    Pixman().fini(&region);
    throw std::bad_alloc();
  }
  rows = other.rows;
}

RegionData::RegionData(RegionData&& other) noexcept : RegionData() {
  Swap(other);
}

RegionData& RegionData::operator=(RegionData other) noexcept {
  Swap(other);
  return *this;
}

RegionData::~RegionData() {
  Pixman().fini(&region);
}

void RegionData::Swap(RegionData& other) noexcept {
  std::swap(region, other.region);
  std::swap(rows, other.rows);
}

// If the result equals one of the two regions, that one is used without change, so that its rows
// may remain apart.
bool RegionData::TakeUnchanged(const RegionData& first, const RegionData& second, int mode) {
  const bool isFirst = (mode != RGN_AND && second.IsEmpty()) ||
                       (mode == RGN_DIFF && !DoOverlap(first.region.extents, second.region.extents));
  const bool isSecond = (mode == RGN_OR || mode == RGN_XOR) && first.IsEmpty();
  if (isFirst && this != &first) *this = first;
  if (!isFirst && isSecond) *this = second;
  return isFirst || isSecond;
}

bool RegionData::Combine(const RegionData& first, const RegionData& second, int mode) {
  if (mode < RGN_AND || mode > RGN_DIFF) return false;
  if (TakeUnchanged(first, second, mode)) return true;
  if (!CanCombine(first.region, second.region)) return false;
  RegionData result;
  if (mode == RGN_AND) Check(Pixman().intersect(&result.region, &first.region, &second.region));
  if (mode == RGN_OR) Check(Pixman().unite(&result.region, &first.region, &second.region));
  if (mode == RGN_DIFF) Check(Pixman().subtract(&result.region, &first.region, &second.region));
  if (mode == RGN_XOR) {
    RegionData common;
    Check(Pixman().intersect(&common.region, &first.region, &second.region));
    Check(Pixman().unite(&result.region, &first.region, &second.region));
    Check(Pixman().subtract(&result.region, &result.region, &common.region));
  }
  Swap(result);
  return true;
}

int RegionData::Complexity() const {
  const size_t count = BoxCount();
  return count == 0 ? NULLREGION : count == 1 ? SIMPLEREGION : COMPLEXREGION;
}

RECT RegionData::Box() const {
  if (IsEmpty()) return {0, 0, 0, 0};
  const pixman_box32_t& extents = region.extents;
  return {extents.x1, extents.y1, extents.x2, extents.y2};
}

bool RegionData::IsEmpty() const {
  return !Pixman().isNotEmpty(&region);
}

// Separate rows are those of an ellipse, with one rectangle each.
std::vector<pixman_box32_t> RegionData::Boxes() const {
  int count = 0;
  const pixman_box32_t* const joined = Pixman().rectangles(&region, &count);
  if (rows == Rows::joined) return {joined, joined + count};
  std::vector<pixman_box32_t> boxes;
  boxes.reserve(BoxCount());
  for (int i = 0; i < count; ++i) {
    for (int32_t y = joined[i].y1; y < joined[i].y2; ++y)
      boxes.push_back({joined[i].x1, y, joined[i].x2, y + 1});
  }
  return boxes;
}

size_t RegionData::BoxCount() const {
  if (IsEmpty()) return 0;
  if (rows == Rows::joined) return static_cast<size_t>(Pixman().rectangleCount(&region));
  return static_cast<size_t>(region.extents.y2 - region.extents.y1);
}

}  // namespace hexlume
