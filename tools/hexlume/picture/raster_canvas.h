// A canvas of pixels, white at first. Straight strokes are drawn by ourselves, everything else by cairo.
#pragma once

#include <cairo.h>

#include <memory>

#include "tools/hexlume/metafile/player_canvas.h"
#include "tools/hexlume/picture/picture_work.h"
#include "tools/hexlume/picture/stroke_raster.h"

namespace hexlume {

class RasterCanvas : public PlayerCanvas {
 public:
  // Throws std::bad_alloc if there isn't enough memory.
  RasterCanvas(int width, int height, PictureWork pictureWork = PictureWork());

  void DrawDot(Point middle, uint32_t color) override;
  void DrawLine(Point from, Point to, const StrokeStyle& style) override;
  void Stroke(const PlayerPath& path, const StrokeStyle& style) override;
  void Fill(const PlayerPath& path, uint32_t color, bool winding) override;
  void FillBoxes(const CanvasBoxes& boxes, uint32_t color) override;
  void DrawGlyphs(const GlyphRun& run) override;
  void Clip(const CanvasBoxes& boxes) override;
  void RemoveClip() override;

  // Returns the pixels once everything is drawn. Throws what cairo says.
  const RasterImage& Finish();

 private:
  void CountLine(Point from, Point to, double width);
  void CountBoxes(const CanvasBoxes& boxes);
  struct FreeCairo {
    void operator()(cairo_t* object) const { cairo_destroy(object); }
    void operator()(cairo_surface_t* object) const { cairo_surface_destroy(object); }
  };

  cairo_t* Cairo();

  std::unique_ptr<cairo_surface_t, FreeCairo> surface;
  std::unique_ptr<cairo_t, FreeCairo> context;
  RasterImage image;
  StrokeRaster strokes;
  PictureWork work;
  bool hasClip = false, isClipStale = false;  // stale: cairo doesn't have it yet
  CanvasBoxes clip;
};

}  // namespace hexlume
