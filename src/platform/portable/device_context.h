// The state of a device context that records a metafile, and what all recording functions share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>

#include "platform/gdi.h"
#include "platform/portable/emf_writer.h"
#include "platform/portable/gdi_object.h"

// A closed metafile.
struct HENHMETAFILE__ {
  hexlume::EmfBytes bytes;
};

namespace hexlume {

// The display of Windows without a screen: 1024 x 768 pixels at 96 dpi. It is the reference device without a
// printer, so metafiles have the same bytes as those of Windows.
struct ReferenceDevice {
  SIZE pixels;
  SIZE millimetres;
  SIZE micrometres;
};
constexpr ReferenceDevice referenceDevice = {{1024, 768}, {271, 203}, {271000, 203000}};

constexpr RECT emptyBounds = {0, 0, -1, -1};

}  // namespace hexlume

struct DeviceContext {
  hexlume::EmfWriter writer;
  hexlume::EmfHandleTable handles;
  std::unique_ptr<HENHMETAFILE__> metafile;  // allocated in advance, so that closing can't fail
  RECT frame = {};  // hundredths of a millimetre; if right < left, computed from the bounds
  RECT bounds = hexlume::emptyBounds;  // of the drawing so far, device units, right and bottom inclusive
  // The bounds of the drawing since the map mode was set, in logical units. Aligned, because each line waits
  // for the stores of the line before it, which are slow across two cache lines.
  alignas(16) RECT logicalBounds = hexlume::emptyBounds;

  HPEN pen = nullptr;
  HBRUSH brush = nullptr;
  HFONT font = nullptr;

  POINT position = {0, 0};  // logical units
  int mapMode = MM_TEXT;
  int arcDirection = AD_COUNTERCLOCKWISE;
  int polyFillMode = ALTERNATE;
  int bkMode = OPAQUE;
  COLORREF textColor = 0;
  UINT textAlign = TA_LEFT | TA_TOP;
  int textCharacterExtra = 0;
  std::optional<hexlume::RegionData> clip;  // none: nothing is clipped

  DeviceContext* older = nullptr;  // next entry in the list of open contexts
};

namespace hexlume {

// The list of open contexts, newest first. It has no lock, because calls of the library don't overlap.
extern DeviceContext* newestContext;

bool IsOlderContext(HDC dc);

// Whether the handle is that of an open context. False for NULL and for a closed context.
inline bool IsOpen(HDC dc) {
  return dc != nullptr && (dc == newestContext || IsOlderContext(dc));
}

// Rounds to the nearest integer, halves up. The value must be well within the range of int32.
inline int32_t RoundToInt(double value) {
  const double shifted = value + 0.5;
  const int32_t truncated = static_cast<int32_t>(shifted);
  return truncated - (shifted < truncated);
}

// Converts a logical point to the nearest point in device units. In MM_HIMETRIC no int32 comes
// near an overflow.
inline POINT ToDevice(const DeviceContext& dc, POINT logical) {
  // In single precision like GDI's transforms: with more digits, points far out would be rounded differently.
  constexpr float himetricX = 1024.0f / 27100.0f;
  constexpr float himetricY = -768.0f / 20300.0f;
  if (dc.mapMode != MM_HIMETRIC) return logical;
  return {RoundToInt(static_cast<double>(logical.x) * himetricX),
          RoundToInt(static_cast<double>(logical.y) * himetricY)};
}

// Extends bounds by a box with left <= right and top <= bottom.
inline void Widen(RECT& bounds, const RECT& box) {
  if (bounds.left > bounds.right) bounds = box;
  bounds.left = std::min(bounds.left, box.left);
  bounds.top = std::min(bounds.top, box.top);
  bounds.right = std::max(bounds.right, box.right);
  bounds.bottom = std::max(bounds.bottom, box.bottom);
}

// Extends the metafile's bounds by those of a drawing operation, in device units, right and bottom inclusive.
inline void AddBounds(DeviceContext& dc, const RECT& drawn) {
  Widen(dc.bounds, drawn);
}

// Extends the logical bounds by two opposite corners in logical units.
inline void AddLogicalBounds(DeviceContext& dc, const RECT& drawn) {
  Widen(dc.logicalBounds, {std::min(drawn.left, drawn.right), std::min(drawn.top, drawn.bottom),
                           std::max(drawn.left, drawn.right), std::max(drawn.top, drawn.bottom)});
}

// Adds the logical bounds to the bounds in device units. Called when the map mode changes and at the end.
void SettleBounds(DeviceContext& dc);

// Appends the create record of an object that isn't in the metafile yet. Returns its index.
uint32_t RecordNewObject(DeviceContext& dc, HGDIOBJ object);

// Returns the index of a pen, brush or font in records: that of a stock object, the object's existing index,
// or a new one, for which the create record is appended. The object must not be deleted.
inline uint32_t RecordedIndex(DeviceContext& dc, HGDIOBJ object) {
  if (object->stockNumber != notAStockObject)
    return stockObjectFlag | static_cast<uint32_t>(object->stockNumber);
  const uint32_t index = object->recordedIn == 0 ? 0 : dc.handles.IndexOf(object);
  return index != 0 ? index : RecordNewObject(dc, object);
}

// Deselects all objects of a context that is closed or deleted, and drops its records of objects.
void LeaveObjects(DeviceContext& dc);

// Appends the create record of a font with this index. Implemented in text_out.cpp.
void AppendCreateFont(DeviceContext& dc, uint32_t index, const FontData& font);

}  // namespace hexlume
