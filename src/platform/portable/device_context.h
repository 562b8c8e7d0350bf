// What a device context that records a metafile knows, and the steps that all its recording functions share.
#pragma once

#include "platform/gdi.h"
#include "platform/portable/emf_writer.h"
#include "platform/portable/gdi_object.h"

#include <algorithm>
#include <cstdint>
#include <memory>

// A closed metafile.
struct HENHMETAFILE__ {
  hexlume::EmfBytes bytes;
};

namespace hexlume {

// The display that Windows claims where there is no screen: 1024 x 768 points at 96 dpi. It is the reference
// where there is no printer, and with it the metafiles are the same bytes as from Windows.
struct ReferenceDevice {
  SIZE pixels;
  SIZE millimetres;
  SIZE micrometres;
};
constexpr ReferenceDevice referenceDevice = {{1024, 768}, {271, 203}, {271000, 203000}};

constexpr RECT emptyBounds = {0, 0, -1, -1};

// A clip region that isn't there lets everything through.
struct Clip {
  bool isSet = false;
  RegionData region;
};

}  // namespace hexlume

struct DeviceContext {
  hexlume::EmfWriter writer;
  hexlume::EmfHandleTable handles;
  std::unique_ptr<HENHMETAFILE__> metafile;  // made in advance, so that closing can't fail
  RECT frame = {};                     // in hundredths of a millimetre; right < left: made from the bounds
  RECT bounds = hexlume::emptyBounds;  // of the drawing so far, in device units, right and bottom inclusive
  // Of the drawing since the map mode was set, in logical units. Aligned, as every line waits for the one
  // before it to have stored them: across two cache lines that takes as long as all the rest.
  alignas(16) RECT logicalBounds = hexlume::emptyBounds;

  HPEN pen = nullptr;
  HBRUSH brush = nullptr;
  HFONT font = nullptr;

  POINT position = {0, 0};  // in logical units
  int mapMode = MM_TEXT;
  int arcDirection = AD_COUNTERCLOCKWISE;
  int polyFillMode = ALTERNATE;
  int bkMode = OPAQUE;
  COLORREF textColour = 0;
  UINT textAlign = TA_LEFT | TA_TOP;
  int textCharacterExtra = 0;
  hexlume::Clip clip;

  DeviceContext* older = nullptr;  // the next in the list of open contexts
};

namespace hexlume {

// The open contexts, newest first. There is no lock: calls of the library don't overlap.
extern DeviceContext* newestContext;

bool IsOlderContext(HDC dc);

// Whether the handle is that of an open context. Neither NULL nor one that was closed is.
inline bool IsOpen(HDC dc) {
  return dc != nullptr && (dc == newestContext || IsOlderContext(dc));
}

// The nearest integer, a half rounded up, of a number well within int32.
inline int32_t RoundToInt(double value) {
  const double shifted = value + 0.5;
  const int32_t truncated = static_cast<int32_t>(shifted);
  return truncated - (shifted < truncated);
}

// A logical point in device units: the nearest. No int32 in HIMETRIC comes near the limits of one.
inline POINT ToDevice(const DeviceContext& dc, POINT logical) {
  // In single precision, as GDI keeps its transforms: with more digits a point far out lands elsewhere.
  constexpr float himetricX = 1024.0f / 27100.0f;
  constexpr float himetricY = -768.0f / 20300.0f;
  if (dc.mapMode != MM_HIMETRIC) return logical;
  return {RoundToInt(static_cast<double>(logical.x) * himetricX),
          RoundToInt(static_cast<double>(logical.y) * himetricY)};
}

// Widens bounds by a box with left <= right and top <= bottom.
inline void Widen(RECT& bounds, const RECT& box) {
  if (bounds.left > bounds.right) bounds = box;
  bounds.left = std::min(bounds.left, box.left);
  bounds.top = std::min(bounds.top, box.top);
  bounds.right = std::max(bounds.right, box.right);
  bounds.bottom = std::max(bounds.bottom, box.bottom);
}

// Widens the metafile's bounds by a drawing's, in device units with left <= right and top <= bottom, all
// inclusive.
inline void AddBounds(DeviceContext& dc, const RECT& drawn) {
  Widen(dc.bounds, drawn);
}

// The same for two opposite corners in logical units.
inline void AddLogicalBounds(DeviceContext& dc, const RECT& drawn) {
  Widen(dc.logicalBounds, {std::min(drawn.left, drawn.right), std::min(drawn.top, drawn.bottom),
                           std::max(drawn.left, drawn.right), std::max(drawn.top, drawn.bottom)});
}

// Adds the bounds in logical units to those in device units: when the map mode changes, and when all is
// drawn.
void SettleBounds(DeviceContext& dc);

// Appends the creating record of an object that the metafile doesn't know yet. Returns its index.
uint32_t RecordNewObject(DeviceContext& dc, HGDIOBJ object);

// The index under which records name the object: that of a stock object, that which it has, or a new one,
// whose creating record is appended then. The object is a living pen, brush or font.
inline uint32_t RecordedIndex(DeviceContext& dc, HGDIOBJ object) {
  if (object->stockNumber != notAStockObject)
    return stockObjectFlag | static_cast<uint32_t>(object->stockNumber);
  const uint32_t index = object->recordedIn == 0 ? 0 : dc.handles.IndexOf(object);
  return index != 0 ? index : RecordNewObject(dc, object);
}

// Deselects all objects of a context that goes and forgets which ones it recorded.
void LeaveObjects(DeviceContext& dc);

// Appends the creating record of a font under an index (text's part of the recorder).
void AppendCreateFont(DeviceContext& dc, uint32_t index, const FontData& font);

}  // namespace hexlume
