#include <utility>
#include <vector>

#include "platform/ellipse_scan.h"
#include "platform/polygon_scan.h"
#include "platform/portable/gdi_object.h"

using namespace hexlume;

HRGN CreatePolygonRgn(const POINT* points, int count, int fillMode) {
  if (!points || count < 0) return nullptr;
  std::vector<RECT> boxes;
  return ScanPolygon(points, count, fillMode, boxes) ? NewObject(RegionData(boxes)) : nullptr;
}

HRGN CreateEllipticRgn(int left, int top, int right, int bottom) {
  std::vector<RECT> boxes;
  if (!ScanEllipse(OrderedBox(left, top, right, bottom), boxes)) return nullptr;
  return NewObject(RegionData(boxes, RegionData::Rows::apart));
}

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
  return NewObject(RegionData(OrderedBox(left, top, right, bottom)));
}

int CombineRgn(HRGN destination, HRGN first, HRGN second, int mode) {
  RegionData* const result = DataOf<RegionData>(destination);
  const RegionData* const a = DataOf<RegionData>(first);
  const RegionData* const b = DataOf<RegionData>(second);
  if (!result || !a) return RGN_ERROR;
  if (mode == RGN_COPY) {
    *result = *a;
    return result->Complexity();
  }
  return b && result->Combine(*a, *b, mode) ? result->Complexity() : RGN_ERROR;
}

int GetRgnBox(HRGN region, RECT* box) {
  const RegionData* const data = DataOf<RegionData>(region);
  if (!data || !box) return RGN_ERROR;
  *box = data->Box();
  return data->Complexity();
}
