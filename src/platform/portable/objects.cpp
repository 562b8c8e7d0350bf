// Pens, brushes and stock objects; selection and deletion of objects of all kinds.
#include <array>
#include <cstdint>
#include <exception>
#include <new>
#include <utility>

#include "platform/fault_guard.h"
#include "platform/portable/device_context.h"

namespace hexlume {

namespace {

// The system font of Windows when code page 932 is the ANSI code page.
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

// If a metafile still has a record of the object, its index isn't reused.
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

// The record is appended first, so that nothing has changed if memory runs out.
HGDIOBJ SelectInto(DeviceContext& dc, HGDIOBJ& selected, HGDIOBJ object) {
  const uint32_t index = RecordedIndex(dc, object);
  dc.writer.Append(EmfObjectRecord{emrSelectObject, sizeof(EmfObjectRecord), index});
  const HGDIOBJ before = selected;
  ++object->selectedIn;
  selected = object;
  Deselect(before);
  return before;
}

// Deleting never fails. Without room for its record the index isn't reused and the metafile ends before it, so that the next
// record fails.
void AppendDelete(DeviceContext& dc, HGDIOBJ object) noexcept {
  const uint32_t index = dc.handles.IndexOf(object);
  if (index == 0) return;
  try {
    dc.writer.Append(EmfObjectRecord{emrDeleteObject, sizeof(EmfObjectRecord), index});
    dc.handles.Free(index);
  } catch (const std::exception& trouble) {
    if (dynamic_cast<const std::bad_alloc*>(&trouble)) memoryRanOut = true;
    dc.handles.Forget(index);
    dc.writer.EndEarly();
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

// Styles that need more than this call's arguments become solid lines.
HPEN CreatePen(int style, int width, COLORREF color) {
  constexpr int insideFrame = 6;
  if (style == PS_NULL) return GetStockObject(NULL_PEN);
  const bool isKnown = (style >= PS_SOLID && style <= PS_DASHDOTDOT) || style == insideFrame;
  return NewObject(PenData{isKnown ? style : PS_SOLID, PenWidth(width), color});
}

HBRUSH CreateSolidBrush(COLORREF color) {
  return NewObject(BrushData{BS_SOLID, color});
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
  // Selecting a region sets the clip region and returns its complexity.
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the function returns a number in place of the handle
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

// Returns 0 for NULL and for a deleted object.
DWORD GetObjectType(HGDIOBJ object) {
  constexpr DWORD types[] = {0, OBJ_PEN, OBJ_BRUSH, OBJ_FONT, OBJ_REGION};  // in the order of ObjectData
  return object ? types[object->data.index()] : 0;
}
