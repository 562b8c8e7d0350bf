// The data of a region object.
#pragma once

#include <pixman.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/gdi.h"

namespace hexlume {

// A set of pixels as rectangles in rows, from top to bottom and left to right, right and bottom exclusive.
// Equal rows are joined, except those of an ellipse, which GDI keeps separate until the region is changed by
// a combination. If memory runs out, throws std::bad_alloc and leaves the region unchanged.
class RegionData {
 public:
  RegionData();
  explicit RegionData(const RECT& box);  // an empty box gives an empty region
  enum class Rows { joined, apart };
  explicit RegionData(const std::vector<RECT>& boxes, Rows rows = Rows::joined);
  RegionData(const RegionData& other);
  RegionData(RegionData&& other) noexcept;
  RegionData& operator=(RegionData other) noexcept;
  ~RegionData();

  // Sets this to the combination of first and second, either of which may be this. mode is RGN_AND, RGN_OR,
  // RGN_XOR or RGN_DIFF. Returns false, with nothing changed, for any other mode, or if the result could have
  // far more rectangles than mostRegionBoxes.
  bool Combine(const RegionData& first, const RegionData& second, int mode);

  // Returns NULLREGION, SIMPLEREGION or COMPLEXREGION.
  int Complexity() const;

  RECT Box() const;  // zeros if the region is empty

  std::vector<pixman_box32_t> Boxes() const;
  size_t BoxCount() const;

 private:
  bool IsEmpty() const;
  void Swap(RegionData& other) noexcept;
  bool TakeUnchanged(const RegionData& first, const RegionData& second, int mode);

  pixman_region32_t region;
  Rows rows = Rows::joined;
};

}  // namespace hexlume
