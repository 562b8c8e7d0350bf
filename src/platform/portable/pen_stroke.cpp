// The records of a stroke are appended at once, without a pen object. A test compares them with those of the single calls.
#include "platform/pen_stroke.h"

#include <exception>

#include "platform/portable/device_context.h"

namespace hexlume {

namespace {

struct EmfStrokeRecords {
  EmfCreatePenRecord create;
  EmfObjectRecord select;
  EmfPointRecord moveTo;
  EmfPointRecord lineTo;
  EmfObjectRecord selectPrevious;
  EmfObjectRecord remove;
};
constexpr uint32_t strokeRecordCount = 6;

static_assert(sizeof(EmfStrokeRecords) ==
              sizeof(EmfCreatePenRecord) + 3 * sizeof(EmfObjectRecord) + 2 * sizeof(EmfPointRecord));

// Returns false and appends nothing if memory or the metafile has no room, or if the selected pen may need records of its own.
bool StrokeAtOnce(DeviceContext& dc, int width, COLORREF color, POINT start, POINT end) {
  if (dc.pen->stockNumber == notAStockObject) return false;
  try {
    const uint32_t pen = dc.handles.NextIndex();
    const uint32_t previous = stockObjectFlag | static_cast<uint32_t>(dc.pen->stockNumber);
    dc.writer.AppendSeveral(
        EmfStrokeRecords{
            {emrCreatePen, sizeof(EmfCreatePenRecord), pen, PS_SOLID, {PenWidth(width), 0}, color},
            {emrSelectObject, sizeof(EmfObjectRecord), pen},
            {emrMoveToEx, sizeof(EmfPointRecord), start},
            {emrLineTo, sizeof(EmfPointRecord), end},
            {emrSelectObject, sizeof(EmfObjectRecord), previous},
            {emrDeleteObject, sizeof(EmfObjectRecord), pen}},
        strokeRecordCount);
    dc.handles.UseBriefly(pen);
  } catch (const std::exception&) {
    return false;
  }
  AddLogicalBounds(dc, {start.x, start.y, end.x, end.y});
  dc.position = end;
  return true;
}

}  // namespace

void StrokeLine(HDC dc, int width, COLORREF color, POINT start, POINT end) {
  if (!IsOpen(dc) || !StrokeAtOnce(*dc, width, color, start, end))
    StrokeByCalls(dc, width, color, start, end);
}

}  // namespace hexlume
