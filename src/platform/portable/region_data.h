// What a region object holds.
#pragma once

#include <pixman.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// A set of pixels as rectangles in rows, from the top and in each row from the left. Right and bottom are
// exclusive. Equal rows are one, but GDI leaves the rows of an ellipse apart until the region is combined
// with another that changes it. Whatever needs memory throws std::bad_alloc without it and leaves the region
// as it was.
class RegionData {
 public:
  RegionData() noexcept;
  explicit RegionData(const RECT& box) noexcept;  // an empty box makes an empty region
  enum class Rows { joined, apart };
  explicit RegionData(const std::vector<RECT>& boxes, Rows rows = Rows::joined);
  RegionData(const RegionData& other);
  RegionData(RegionData&& other) noexcept;
  RegionData& operator=(RegionData other) noexcept;
  ~RegionData();

  // Makes this first and second by one of the RGN_ modes but RGN_COPY; each of them may be this. False, with
  // nothing changed, for another mode or if the result could get far more rectangles than a region may have.
  bool Combine(const RegionData& first, const RegionData& second, int mode);

  // NULLREGION, SIMPLEREGION or COMPLEXREGION.
  int Complexity() const;

  RECT Box() const;  // zeros if it is empty

  std::vector<pixman_box32_t> Boxes() const;
  size_t BoxCount() const;

 private:
  bool IsEmpty() const { return !pixman_region32_not_empty(&region); }
  void Swap(RegionData& other) noexcept;
  bool TakeUnchanged(const RegionData& first, const RegionData& second, int mode);

  pixman_region32_t region;
  Rows rows = Rows::joined;
};

}  // namespace hexlume
