// The rules that ARC and CIRCLE share. GDI doesn't clip arcs: the library estimates the angles at which the
// edges of the view cut the circle, and draws the rest.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "canvas/primitive_steps.h"
#include "driver/conv_state.h"
#include "entities/converter_rules.h"

namespace hexlume {

// A circle on the sheet with two corners of its bounding box.
struct SheetCircle {
  POINT centre, leftTop, rightBottom;
  int32_t radius;
};

// A range of angles in degrees, counter-clockwise from the X axis of the drawing. sweep can be negative.
struct AngleRange {
  double start, sweep;
};

// A pen and the hollow brush that are selected while an entity is drawn, and what they have replaced.
struct PenAndBrush {
  SelectedPen pen;
  HGDIOBJ brush, previousBrush;
};

// Group 6 outside of blocks: compares whole names, ignoring case.
void ResolveWholeLinetype(const char* value, LineStyle& style);

// Group 62 outside of blocks: 0 keeps the layer's colour.
void ResolveColorUnlessZero(const char* value, int32_t& color);

// Places a circle on the sheet. Centre and radius are in model units times 100.
SheetCircle PlaceCircle(double x, double y, double radius);

// Returns the part of a circle that is in the view, or uncut if no edge cuts the circle or if the cut is NaN.
// radius is in model units times 100.
AngleRange CutCircleToView(const ViewRect& view, const SheetCircle& circle, double radius,
                           const AngleRange& uncut);

// Draws a range of the circle, solid or dashed according to the style.
void DrawAngleRange(Canvas canvas, const SheetCircle& circle, const AngleRange& range, const LineStyle& style,
                    int32_t color);

// The dash family is used as the pen's style, which shows only in strokes that GDI dashes itself.
PenAndBrush SelectPenAndBrush(Canvas canvas, int32_t family, int32_t width, int32_t color);
void RestorePenAndBrush(Canvas canvas, const PenAndBrush& selected);

}  // namespace hexlume
