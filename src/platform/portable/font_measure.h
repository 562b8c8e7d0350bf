// The size of a context's font on the device.
#pragma once

#include "platform/gdi.h"
#include "platform/portable/device_context.h"
#include "platform/portable/font_face.h"

namespace hexlume {

// In device pixels.
struct FontMeasure {
  const FontFace* face;
  int ppem;  // pixels per em
  int ascent;
  int descent;
  int internalLeading;
  int naturalWidth;  // average width at this height, not stretched
  int averageWidth;  // average width as drawn
  int maxWidth;
};

// Measures the context's font as GDI does:
//
// - The height is truncated to whole pixels; 0 becomes 16. A positive height is that of the cell: the em is
//   the nearest one whose cell isn't higher. A negative height is that of the em. An em above 65535 pixels
//   becomes 1.
// - Each measure of the face is scaled to that em and rounded separately.
// - The width is truncated to pixels, with the vertical scale. If it isn't 0 and at most 100 times the height
//   of the cell, the characters are stretched to this average width. The width INT32_MIN isn't compared and stays.
FontMeasure MeasureContextFont(const DeviceContext& dc);

// Returns a character's advance in pixels. In a face of fixed pitch, a character as wide as the em gets
// an even number.
int CharacterPixels(const FontMeasure& measure, char16_t character);

// Convert pixels to the context's logical units, rounded.
LONG LogicalWidth(const DeviceContext& dc, int pixels);
LONG LogicalHeight(const DeviceContext& dc, int pixels);

}  // namespace hexlume
