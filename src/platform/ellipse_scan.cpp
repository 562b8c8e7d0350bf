#include "platform/ellipse_scan.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/polygon_scan.h"

namespace hexlume {

namespace {

constexpr int64_t widestEllipse = int64_t{1} << 27;

// A signed integer of 128 bits. Not the compiler's own type, which 32-bit builds don't have.
struct Wide {
  int64_t high = 0;
  uint64_t low = 0;

  Wide() = default;
  explicit Wide(int64_t value) : high(value < 0 ? -1 : 0), low(static_cast<uint64_t>(value)) {}

  Wide& operator+=(const Wide& other) {
    low += other.low;
    high += other.high + (low < other.low ? 1 : 0);
    return *this;
  }
  bool operator<=(const Wide& other) const {
    return high != other.high ? high < other.high : low <= other.low;
  }
};

// Returns a * b, for a < 2 ^ 31 and 0 <= b < 2 ^ 63.
Wide Product(int64_t a, int64_t b) {
  const int64_t upper = a * (b >> 32);
  Wide product(a * (b & 0xffffffff));
  Wide shifted;
  shifted.high = upper >> 32;
  shifted.low = static_cast<uint64_t>(upper) << 32;
  return product += shifted;
}

// Walks from the middle rows to the tips: either a pixel inward, or to the next pair of rows, or both. error
// is the ellipse's equation, in integers, at the corner between the next pixels.
class EllipseWalk {
 public:
  EllipseWalk(int64_t width, int64_t height)
      : right(width - 1), lower(height / 2), upper((height - 1) / 2), rows(height) {
    const int64_t across = width - 1;
    const int64_t down = height - 1;
    const int64_t isEven = down % 2;
    growthAcross = Wide(8 * down * down);
    growthDown = Wide(8 * across * across);
    stepAcross = Product(1 - across, 4 * down * down);
    stepDown = Wide(4 * (isEven + 1) * across * across);
    error = stepAcross;
    error += stepDown;
    error += Wide(isEven * across * across);
  }

  bool IsDone() const { return left > right || lower >= rows; }

  void Step() {
    Wide twice = error;
    twice += error;
    const bool goesDown = twice <= stepDown;
    if (goesDown) {
      ++lower;
      --upper;
      stepDown += growthDown;
      error += stepDown;
    }
    if (stepAcross <= twice || !goesDown) {
      ++left;
      --right;
      stepAcross += growthAcross;
      error += stepAcross;
    }
  }

  int64_t left = 0;
  int64_t right;
  int64_t lower;
  int64_t upper;

 private:
  int64_t rows;
  Wide stepAcross;
  Wide stepDown;
  Wide error;
  Wide growthAcross;
  Wide growthDown;
};

bool WithoutLastPixels(RECT& box) {
  if (box.right == INT32_MIN || box.bottom == INT32_MIN) return false;
  box = OrderedBox(box.left, box.top, box.right - 1, box.bottom - 1);
  return true;
}

}  // namespace

RECT OrderedBox(int left, int top, int right, int bottom) {
  return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
}

bool ScanEllipse(RECT box, std::vector<RECT>& boxes) {
  if (!WithoutLastPixels(box)) return false;
  const int64_t width = static_cast<int64_t>(box.right) - box.left;
  const int64_t height = static_cast<int64_t>(box.bottom) - box.top;
  if (width > widestEllipse || height > static_cast<int64_t>(mostRegionBoxes)) return false;
  if (width == 0 || height == 0) return true;
  boxes.assign(static_cast<size_t>(height), {0, 0, 0, 0});
  const auto setRow = [&](int64_t row, int64_t left, int64_t right) {
    boxes[static_cast<size_t>(row)] = {static_cast<LONG>(box.left + left), static_cast<LONG>(box.top + row),
                                       static_cast<LONG>(box.left + right + 1),
                                       static_cast<LONG>(box.top + row + 1)};
  };
  EllipseWalk walk(width, height);
  int64_t lastRow = walk.lower - 1;
  for (; !walk.IsDone(); walk.Step()) {
    if (walk.lower == lastRow) continue;  // the first span of a row is the widest
    lastRow = walk.lower;
    setRow(walk.lower, walk.left, walk.right);
    setRow(walk.upper, walk.left, walk.right);
  }
  // In a narrow ellipse the walk ends before the tips. The remaining rows are the middle one or two pixels.
  for (int64_t row = lastRow + 1; row < height; ++row) {
    const int64_t left = (width - 1) / 2;
    setRow(row, left, width - 1 - left);
    setRow(height - 1 - row, left, width - 1 - left);
  }
  return true;
}

}  // namespace hexlume
