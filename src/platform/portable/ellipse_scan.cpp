#include "platform/portable/ellipse_scan.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/polygon_scan.h"

namespace hexlume {

namespace {

constexpr int64_t widestEllipse = int64_t{1} << 26;

__extension__ typedef __int128 Wide;

// Walks from the ends of the row or the two rows in the middle to the tips, inwards by a pixel and to the
// next pair of rows by turns. The error is the ellipse's equation, in whole numbers, at the corner between
// the next pixels.
class EllipseWalk {
 public:
  EllipseWalk(int64_t width, int64_t height)
      : right(width - 1), lower(height / 2), upper((height - 1) / 2), rows(height) {
    const Wide across = width - 1;
    const Wide down = height - 1;
    const Wide isEven = (height - 1) % 2;
    stepAcross = 4 * (1 - across) * down * down;
    stepDown = 4 * (isEven + 1) * across * across;
    error = stepAcross + stepDown + isEven * across * across;
    growthAcross = 8 * down * down;
    growthDown = 8 * across * across;
  }

  bool IsDone() const { return left > right || lower >= rows; }

  void Step() {
    const Wide twice = 2 * error;
    const bool goesDown = twice <= stepDown;
    if (goesDown) {
      ++lower;
      --upper;
      stepDown += growthDown;
      error += stepDown;
    }
    if (twice >= stepAcross || !goesDown) {
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

}  // namespace

bool ScanEllipse(const RECT& box, std::vector<RECT>& boxes) {
  const int64_t width = static_cast<int64_t>(box.right) - box.left;
  const int64_t height = static_cast<int64_t>(box.bottom) - box.top;
  if (width > widestEllipse || height > static_cast<int64_t>(mostRegionBoxes)) return false;
  if (width == 0 || height == 0) return true;
  boxes.assign(static_cast<size_t>(height), {0, 0, 0, 0});
  const auto setRow = [&](int64_t row, int64_t left, int64_t right) {
    boxes[static_cast<size_t>(row)] = {
        static_cast<int32_t>(box.left + left), static_cast<int32_t>(box.top + row),
        static_cast<int32_t>(box.left + right + 1), static_cast<int32_t>(box.top + row + 1)};
  };
  EllipseWalk walk(width, height);
  int64_t lastRow = walk.lower - 1;
  for (; !walk.IsDone(); walk.Step()) {
    if (walk.lower == lastRow) continue;  // only the first, the widest
    lastRow = walk.lower;
    setRow(walk.lower, walk.left, walk.right);
    setRow(walk.upper, walk.left, walk.right);
  }
  // The walk of a narrow ellipse meets itself before the tips, which are as wide as what it came to last.
  for (int64_t row = lastRow + 1; row < height; ++row) {
    const int64_t left = (width - 1) / 2;
    setRow(row, left, width - 1 - left);
    setRow(height - 1 - row, left, width - 1 - left);
  }
  return true;
}

}  // namespace hexlume
