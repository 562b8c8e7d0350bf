#include "platform/portable/device_context.h"

namespace hexlume {

namespace {

void AppendCreate(DeviceContext& dc, uint32_t index, HGDIOBJ object) {
  if (const PenData* pen = DataOf<PenData>(object)) {
    dc.writer.Append(EmfCreatePenRecord{emrCreatePen,
                                        sizeof(EmfCreatePenRecord),
                                        index,
                                        static_cast<uint32_t>(pen->style),
                                        {pen->width, 0},
                                        pen->color});
  } else if (const BrushData* brush = DataOf<BrushData>(object)) {
    dc.writer.Append(EmfCreateBrushRecord{emrCreateBrushIndirect, sizeof(EmfCreateBrushRecord), index,
                                          brush->style, brush->color, 0});
  } else if (const FontData* font = DataOf<FontData>(object)) {
    AppendCreateFont(dc, index, *font);
  }
}

}  // namespace

DeviceContext* newestContext = nullptr;

bool IsOlderContext(HDC dc) {
  for (const DeviceContext* open = newestContext; open; open = open->older) {
    if (open == dc) return true;
  }
  return false;
}

void SettleBounds(DeviceContext& dc) {
  const RECT drawn = dc.logicalBounds;
  if (drawn.left > drawn.right) return;
  const POINT first = ToDevice(dc, {drawn.left, drawn.top});
  const POINT second = ToDevice(dc, {drawn.right, drawn.bottom});
  AddBounds(dc, {std::min(first.x, second.x), std::min(first.y, second.y), std::max(first.x, second.x),
                 std::max(first.y, second.y)});
  dc.logicalBounds = emptyBounds;
}

uint32_t RecordNewObject(DeviceContext& dc, HGDIOBJ object) {
  const uint32_t index = dc.handles.NextIndex();
  AppendCreate(dc, index, object);
  dc.handles.Take(index, object);
  ++object->recordedIn;
  return index;
}

}  // namespace hexlume
