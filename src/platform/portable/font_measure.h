// How large a context's font comes out on the device.
#pragma once

#include "platform/gdi.h"
#include "platform/portable/device_context.h"
#include "platform/portable/font_face.h"

namespace hexlume {

// In pixels of the device.
struct FontMeasure {
  const FontFace* face;
  int ppem;  // pixels of an em
  int ascent;
  int descent;
  int internalLeading;
  int naturalWidth;  // the average width as the height alone makes it
  int averageWidth;  // and as it is drawn
  int maxWidth;
};

// The measure of the context's font, as GDI finds it:
// - The height is turned to whole pixels, the fraction cut; where none is left it is 16. A positive height is
// the whole
//   cell's and gives the em that comes nearest, but none whose cell would be higher; a negative one is the
//   em's. An em above 65535 pixels becomes one of 1.
// - Each measure is the face's at that em, rounded by itself.
// - A width, cut to pixels by the scale of heights too, of at most 100 times the cell's height stretches the
// characters to
//   that average width.
FontMeasure MeasureFont(const DeviceContext& dc);

// A character's advance in pixels. In a face of fixed pitch a character as wide as the em takes an even
// number of them.
int CharacterPixels(const FontMeasure& measure, char16_t character);

// Pixels in the context's logical units, rounded.
LONG LogicalWidth(const DeviceContext& dc, int pixels);
LONG LogicalHeight(const DeviceContext& dc, int pixels);

}  // namespace hexlume
