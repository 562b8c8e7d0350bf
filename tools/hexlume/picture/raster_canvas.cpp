#include "tools/hexlume/picture/raster_canvas.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <string>

#include "tools/hexlume/metafile/player_face.h"
#include "tools/hexlume/picture/picture.h"

namespace hexlume {
namespace {

constexpr double stepsOfRecord = 50;

constexpr PathLimits pixelLimits = {65536, 0.02};

uint32_t RgbOf(uint32_t color) {
  return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

void SetColor(cairo_t* context, uint32_t color) {
  cairo_set_source_rgb(context, (color & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0,
                       (color >> 16 & 0xFF) / 255.0);
}

struct CairoPathWriter {
  cairo_t* context;

  void MoveTo(Point to) const { cairo_move_to(context, to.x, to.y); }
  void LineTo(Point to) const { cairo_line_to(context, to.x, to.y); }
  void CurveTo(Point a, Point b, Point to) const { cairo_curve_to(context, a.x, a.y, b.x, b.y, to.x, to.y); }
  void Close() const { cairo_close_path(context); }
};

void SetPath(cairo_t* context, const PlayerPath& path) {
  cairo_new_path(context);
  path.WriteTo(CairoPathWriter{context});
}

// Strokes a long path in pieces: cairo looks for all places where it crosses itself, so a path takes time with the square of
// its length. The ends of pieces are round, as are the joints.
struct PieceStroker {
  static constexpr size_t mostSteps = 100;

  cairo_t* context;
  size_t steps = 0;
  Point start = {0, 0};

  void MoveTo(Point to) {
    cairo_move_to(context, to.x, to.y);
    start = to;
  }
  void LineTo(Point to) {
    cairo_line_to(context, to.x, to.y);
    CountStep(to);
  }
  void CurveTo(Point a, Point b, Point to) {
    cairo_curve_to(context, a.x, a.y, b.x, b.y, to.x, to.y);
    CountStep(to);
  }
  void Close() { LineTo(start); }
  void CountStep(Point to) {
    if (++steps % mostSteps != 0) return;
    cairo_stroke(context);
    cairo_move_to(context, to.x, to.y);
  }
};

void SetPath(cairo_t* context, const CanvasBoxes& boxes) {
  cairo_new_path(context);
  for (const CanvasBox& box : boxes)
    cairo_rectangle(context, box.left, box.top, box.right - box.left, box.bottom - box.top);
}

void Require(cairo_status_t status) {
  if (status == CAIRO_STATUS_SUCCESS) return;
  if (status == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
  throw PictureError(std::string("cairo says: ") + cairo_status_to_string(status));
}

}  // namespace

RasterCanvas::RasterCanvas(int width, int height, PictureWork pictureWork)
    : PlayerCanvas({static_cast<double>(width), static_cast<double>(height), 1, true, pixelLimits}),
      surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
      context(cairo_create(surface.get())),
      image{cairo_image_surface_get_data(surface.get()), width, height,
            cairo_image_surface_get_stride(surface.get())},
      strokes(image),
      work(pictureWork) {
  Require(cairo_surface_status(surface.get()));
  // Not painted by cairo, which leaves the sheet black, and says nothing, if it gets no memory for that.
  cairo_surface_flush(surface.get());
  constexpr uint8_t white = 0xFF;
  std::fill_n(
      cairo_image_surface_get_data(surface.get()),
      static_cast<size_t>(cairo_image_surface_get_stride(surface.get())) * static_cast<size_t>(height),
      white);
  cairo_surface_mark_dirty(surface.get());
}

// Prepares cairo to draw on what we have drawn.
cairo_t* RasterCanvas::Cairo() {
  cairo_surface_mark_dirty(surface.get());
  if (isClipStale) {
    cairo_reset_clip(context.get());
    if (hasClip) {
      SetPath(context.get(), clip);
      cairo_clip(context.get());
    }
    isClipStale = false;
  }
  return context.get();
}

void RasterCanvas::DrawDot(Point middle, uint32_t color) {
  work.Count(stepsOfRecord);
  cairo_surface_flush(surface.get());
  strokes.DrawPixel(static_cast<int>(std::floor(middle.x)), static_cast<int>(std::floor(middle.y)),
                    RgbOf(color));
}

// A line is drawn row by row: the parts of its rows that it covers.
void RasterCanvas::CountLine(Point from, Point to, double width) {
  constexpr double stepsOfLine = 300, stepsOfRow = 45, stepsOfPixel = 2;
  const double right = image.width, bottom = image.height;
  const double across = LengthWithin(from.x, to.x, right), down = LengthWithin(from.y, to.y, bottom);
  const double rows = std::min(down + width, bottom);
  work.Count(stepsOfLine + rows * stepsOfRow +
             std::min((across + down + width) * (1 + width), right * rows) * stepsOfPixel);
}

void RasterCanvas::DrawLine(Point from, Point to, const StrokeStyle& style) {
  if (style.dashes.empty()) {
    CountLine(from, to, style.width);
    cairo_surface_flush(surface.get());
    strokes.DrawLine(from, to, style.width, RgbOf(style.color));
  } else {
    PlayerPath path(pixelLimits);
    path.MoveTo(from);
    path.LineTo(to);
    Stroke(path, style);
  }
}

void RasterCanvas::Stroke(const PlayerPath& path, const StrokeStyle& style) {
  constexpr double stepsOfStroke = 7000, stepsOfPixel = 80, stepsOfDashedPixel = 200;
  const double length = path.WayWithin(image.height).length;
  work.Count(stepsOfStroke + length * (style.dashes.empty() ? stepsOfPixel : stepsOfDashedPixel));
  cairo_t* const cairo = Cairo();
  SetColor(cairo, style.color);
  cairo_set_line_width(cairo, style.width);
  cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
  cairo_set_dash(cairo, style.dashes.data(), static_cast<int>(style.dashes.size()), 0);
  cairo_set_line_cap(cairo, style.dashes.empty() ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
  constexpr size_t longest = 500;  // that is stroked at once
  if (path.StepCount() <= longest || !style.dashes.empty()) {
    SetPath(cairo, path);
  } else {
    constexpr double stepsOfCurve = 5000;  // in addition to its length
    work.Count(static_cast<double>(path.StepCount()) * stepsOfCurve);
    cairo_new_path(cairo);
    path.WriteTo(PieceStroker{cairo});
  }
  cairo_stroke(cairo);
}

void RasterCanvas::Fill(const PlayerPath& path, uint32_t color, bool winding) {
  constexpr double stepsOfFill = 2000, stepsOfRow = 50;
  const double rows = path.WayWithin(image.height).height;
  work.Count(stepsOfFill + rows * stepsOfRow +
             std::min(rows * image.width, 1.0 * image.width * image.height));
  cairo_t* const cairo = Cairo();
  SetPath(cairo, path);
  SetColor(cairo, color);
  cairo_set_fill_rule(cairo, winding ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
  cairo_fill(cairo);
}

void RasterCanvas::CountBoxes(const CanvasBoxes& boxes) {
  constexpr double stepsOfBox = 100, stepsOfRow = 10, stepsOfPixel = 0.5;
  double pixels = 0;
  for (const CanvasBox& box : boxes)
    pixels +=
        (std::clamp<double>(box.right, 0, image.width) - std::clamp<double>(box.left, 0, image.width)) *
        (std::clamp<double>(box.bottom, 0, image.height) - std::clamp<double>(box.top, 0, image.height));
  work.Count(static_cast<double>(boxes.size()) * stepsOfBox + image.height * stepsOfRow +
             pixels * stepsOfPixel);
}

void RasterCanvas::FillBoxes(const CanvasBoxes& boxes, uint32_t color) {
  CountBoxes(boxes);
  cairo_t* const cairo = Cairo();
  SetPath(cairo, boxes);
  SetColor(cairo, color);
  cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_WINDING);
  cairo_fill(cairo);
}

void RasterCanvas::DrawGlyphs(const GlyphRun& run) {
  constexpr double stepsOfText = 2000, stepsOfGlyph = 500;
  const double area = std::min(std::fabs(run.width * run.height), 1.0 * image.width * image.height);
  work.Count(stepsOfText + static_cast<double>(run.glyphs.size()) * (stepsOfGlyph + area));
  cairo_t* const cairo = Cairo();
  std::vector<cairo_glyph_t> glyphs;
  glyphs.reserve(run.glyphs.size());
  for (const PlacedGlyph& glyph : run.glyphs) glyphs.push_back({glyph.index, glyph.at.x, glyph.at.y});
  cairo_matrix_t matrix;
  cairo_matrix_init(&matrix, run.width * run.along.x, run.width * run.along.y, -run.height * run.along.y,
                    run.height * run.along.x, 0, 0);
  SetColor(cairo, run.color);
  cairo_set_font_face(cairo, run.face.Cairo());
  cairo_set_font_matrix(cairo, &matrix);
  cairo_show_glyphs(cairo, glyphs.data(), static_cast<int>(glyphs.size()));
}

void RasterCanvas::Clip(const CanvasBoxes& boxes) {
  CountBoxes(boxes);
  strokes.Clip(boxes);
  clip = boxes;
  hasClip = isClipStale = true;
}

void RasterCanvas::RemoveClip() {
  strokes.RemoveClip();
  clip.clear();
  isClipStale = hasClip || isClipStale;
  hasClip = false;
}

const RasterImage& RasterCanvas::Finish() {
  Require(cairo_status(context.get()));
  cairo_surface_flush(surface.get());
  return image;
}

}  // namespace hexlume
