// What ARC and CIRCLE share. Arcs aren't clipped by GDI: the library estimates by which angles the view cuts
// the circle, and draws only the rest.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "canvas/primitive_steps.h"
#include "driver/conv_state.h"
#include "entities/converter_rules.h"

namespace hexlume {

// A circle on the sheet, with two corners of its box.
struct SheetCircle {
  POINT centre, leftTop, rightBottom;
  int32_t radius;
};

// A range of angles in degrees, counter-clockwise from the X axis as in the drawing. It can run backwards.
struct AngleRange {
  double start, sweep;
};

// A pen and the hollow brush, selected around an entity's own strokes.
struct PenAndBrush {
  SelectedPen pen;
  HGDIOBJ brush, previousBrush;
};

// Group 6 outside of blocks: whole names in any case.
void ResolveWholeLinetype(const char* value, LineStyle& style);

// Group 62 outside of blocks: 0 leaves the layer's colour.
void ResolveColorUnlessZero(const char* value, int32_t& color);

// The circle of a centre and a radius of the model, in model units times 100.
SheetCircle PlaceCircle(double x, double y, double radius);

// What the view leaves of a circle; uncut where no edge cuts it, or where the cut is no number. The radius is
// the model's.
AngleRange CutCircleToView(const ViewRect& view, const SheetCircle& circle, double radius,
                           const AngleRange& uncut);

// The strokes of a range of the circle, solid or dashed as the style has it.
void DrawAngleRange(Canvas canvas, const SheetCircle& circle, const AngleRange& range, const LineStyle& style,
                    int32_t color);

// The dash family serves as the pen's style. It shows only in strokes that are left to GDI.
PenAndBrush SelectPenAndBrush(Canvas canvas, int32_t family, int32_t width, int32_t color);
void RestorePenAndBrush(Canvas canvas, const PenAndBrush& selected);

}  // namespace hexlume
