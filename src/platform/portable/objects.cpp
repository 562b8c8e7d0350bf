// Pens, brushes and stock objects, and how objects of all kinds are selected and deleted.
#include "platform/portable/device_context.h"

#include <array>
#include <cstdint>
#include <new>
#include <utility>

namespace hexlume {

namespace {

// "System" as Windows has it where code page 932 is the ANSI one.
constexpr FontData systemFont = {{18, 8, 0, 0, FW_NORMAL, 0, 0, 0, SHIFTJIS_CHARSET, 0, 0, 0, 34, "System"}};

constexpr int stockObjectCount = SYSTEM_FONT + 1;
using StockObjects = std::array<GdiObject, stockObjectCount>;

void FillIn(StockObjects& objects, int number, ObjectData data) {
  objects[number].data = std::move(data);
  objects[number].stockNumber = number;
}

StockObjects* NewStockObjects() {
  static StockObjects objects;
  FillIn(objects, WHITE_BRUSH, BrushData{BS_SOLID, 0xFFFFFF});
  FillIn(objects, LTGRAY_BRUSH, BrushData{BS_SOLID, 0xC0C0C0});
  FillIn(objects, GRAY_BRUSH, BrushData{BS_SOLID, 0x808080});
  FillIn(objects, DKGRAY_BRUSH, BrushData{BS_SOLID, 0x404040});
  FillIn(objects, BLACK_BRUSH, BrushData{BS_SOLID, 0x000000});
  FillIn(objects, NULL_BRUSH, BrushData{BS_NULL, 0x000000});
  FillIn(objects, WHITE_PEN, PenData{PS_SOLID, 0, 0xFFFFFF});
  FillIn(objects, BLACK_PEN, PenData{PS_SOLID, 0, 0x000000});
  FillIn(objects, NULL_PEN, PenData{PS_NULL, 0, 0x000000});
  FillIn(objects, SYSTEM_FONT, systemFont);
  return &objects;
}

bool IsLiving(HGDIOBJ object) {
  return object && !DataOf<std::monostate>(object);
}

// An object that went while a record still names it keeps its index from being given to another.
void Release(HGDIOBJ object) {
  for (DeviceContext* dc = newestContext; dc && object->recordedIn != 0; dc = dc->older) {
    if (const uint32_t index = dc->handles.IndexOf(object)) {
      dc->handles.Forget(index);
      --object->recordedIn;
    }
  }
  ReleaseObject(object);
}

void Deselect(HGDIOBJ object) {
  if (--object->selectedIn == 0 && object->deletedWhileSelected) Release(object);
}

// The record is appended before anything changes, so that without memory all is as it was.
HGDIOBJ SelectInto(DeviceContext& dc, HGDIOBJ& selected, HGDIOBJ object) {
  const uint32_t index = RecordedIndex(dc, object);
  dc.writer.Append(EmfObjectRecord{emrSelectObject, sizeof(EmfObjectRecord), index});
  const HGDIOBJ before = selected;
  ++object->selectedIn;
  selected = object;
  Deselect(before);
  return before;
}

// An object can always be deleted: without memory the metafile lacks the record, and the index stays taken.
void AppendDelete(DeviceContext& dc, HGDIOBJ object) noexcept {
  const uint32_t index = dc.handles.IndexOf(object);
  if (index == 0) return;
  try {
    dc.writer.Append(EmfObjectRecord{emrDeleteObject, sizeof(EmfObjectRecord), index});
    dc.handles.Free(index);
  } catch (const std::bad_alloc&) {
    dc.handles.Forget(index);
  }
  --object->recordedIn;
}

}  // namespace

void LeaveObjects(DeviceContext& dc) {
  dc.handles.ForEach([](HGDIOBJ object) { --object->recordedIn; });
  for (const HGDIOBJ object : {dc.pen, dc.brush, dc.font}) Deselect(object);
}

}  // namespace hexlume

using namespace hexlume;

// Styles that need more than a style to be told are solid lines.
HPEN CreatePen(int style, int width, COLORREF colour) {
  constexpr int insideFrame = 6;
  if (style == PS_NULL) return GetStockObject(NULL_PEN);
  const bool isKnown = (style >= PS_SOLID && style <= PS_DASHDOTDOT) || style == insideFrame;
  const int magnitude = width < 0 && width != INT32_MIN ? -width : width;
  return NewObject(PenData{isKnown ? style : PS_SOLID, magnitude, colour});
}

HBRUSH CreateSolidBrush(COLORREF colour) {
  return NewObject(BrushData{BS_SOLID, colour});
}

HGDIOBJ GetStockObject(int object) {
  static StockObjects& objects = *NewStockObjects();
  if (object < 0 || object >= stockObjectCount) return nullptr;
  return IsLiving(&objects[object]) ? &objects[object] : nullptr;
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object) {
  if (!IsOpen(dc) || !object) return nullptr;
  if (DataOf<PenData>(object)) return SelectInto(*dc, dc->pen, object);
  if (DataOf<BrushData>(object)) return SelectInto(*dc, dc->brush, object);
  if (DataOf<FontData>(object)) return SelectInto(*dc, dc->font, object);
  if (!DataOf<RegionData>(object)) return nullptr;
  // A region is selected as the clip region, and what comes back is its complexity.
  return reinterpret_cast<HGDIOBJ>(static_cast<intptr_t>(ExtSelectClipRgn(dc, object, RGN_COPY)));
}

BOOL DeleteObject(HGDIOBJ object) {
  if (!IsLiving(object)) return 0;
  if (object->stockNumber != notAStockObject) return 1;
  for (DeviceContext* dc = newestContext; dc && object->recordedIn != 0; dc = dc->older)
    AppendDelete(*dc, object);
  if (object->selectedIn != 0) {
    object->deletedWhileSelected = true;
  } else {
    ReleaseObject(object);
  }
  return 1;
}

// 0 for what is no object, or a deleted one.
DWORD GetObjectType(HGDIOBJ object) {
  constexpr DWORD types[] = {0, OBJ_PEN, OBJ_BRUSH, OBJ_FONT, OBJ_REGION};  // in the order of ObjectData
  return object ? types[object->data.index()] : 0;
}
