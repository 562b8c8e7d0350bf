#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/path_region.h"

namespace hexlume {

namespace {

constexpr size_t mostBoxesAtOnce = 32;  // the system copies all of them for each one that it adds

HRGN RegionOfFew(const RECT* boxes, size_t count) {
  std::vector<char> bytes(sizeof(RGNDATAHEADER) + count * sizeof(RECT));
  auto* const data = reinterpret_cast<RGNDATA*>(bytes.data());
  const RECT& first = boxes[0];
  const RECT& last = boxes[count - 1];
  data->rdh = {sizeof(RGNDATAHEADER),
               RDH_RECTANGLES,
               static_cast<DWORD>(count),
               0,
               {first.left, first.top, first.right, last.bottom}};
  auto* const places = reinterpret_cast<RECT*>(data->Buffer);
  for (size_t i = 0; i < count; ++i) {
    places[i] = boxes[i];
    data->rdh.rcBound.left = std::min(data->rdh.rcBound.left, boxes[i].left);
    data->rdh.rcBound.right = std::max(data->rdh.rcBound.right, boxes[i].right);
  }
  return ExtCreateRegion(nullptr, static_cast<DWORD>(bytes.size()), data);
}

// Divides the boxes in halves, so that each one is copied only a logarithmic number of times.
HRGN RegionOf(const RECT* boxes, size_t count) {
  if (count <= mostBoxesAtOnce) return RegionOfFew(boxes, count);
  const HRGN upper = RegionOf(boxes, count / 2);
  const HRGN lower = RegionOf(boxes + count / 2, count - count / 2);
  const bool isDone = upper && lower && CombineRgn(upper, upper, lower, RGN_OR) != RGN_ERROR;
  if (lower) DeleteObject(lower);
  if (isDone) return upper;
  if (upper) DeleteObject(upper);
  return nullptr;
}

}  // namespace

HRGN CreateBoxRegion(const std::vector<RECT>& boxes) {
  return boxes.empty() ? CreateRectRgn(0, 0, 0, 0) : RegionOf(boxes.data(), boxes.size());
}

}  // namespace hexlume
