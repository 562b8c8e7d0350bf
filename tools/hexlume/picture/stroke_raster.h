// Draws straight strokes with round ends on an image. Each is smoothed by the area that it covers of a pixel, as
// cairo does it, but much faster.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tools/hexlume/metafile/player_canvas.h"

namespace hexlume {

// Pixels of 32 bits: 0xRRGGBB.
struct RasterImage {
  uint8_t* pixels;
  int width, height;
  ptrdiff_t stride;  // bytes from one row to the next

  uint32_t* Row(int y) const { return reinterpret_cast<uint32_t*>(pixels + stride * y); }
};

class StrokeRaster {
 public:
  explicit StrokeRaster(const RasterImage& rasterImage);

  void DrawPixel(int x, int y, uint32_t rgb);
  void DrawLine(Point from, Point to, double width, uint32_t rgb);

  // The edges of the boxes are those of pixels.
  void Clip(const CanvasBoxes& boxes);
  void RemoveClip();

 private:
  // The pixels from begin to end, the last one not included.
  struct Stretch {
    int begin, end;
  };
  // One side of a convex polygon, from the top to the bottom.
  struct Side {
    std::vector<Point> corners;
    size_t at;    // index of the current edge's upper corner
    double sign;  // of the area on the right of it
  };

  void SetVisible(const cairo_region_t& region);
  void SetWidth(double width);
  void MakeCapsule(Point from, Point to);
  bool FitCapsule();
  void SplitCapsule();
  void AddSide(Side& side, int row);
  void AddEdge(double x0, double x1, double height);
  template <typename Paint>
  void ForVisible(int row, Stretch stretch, Paint paint) const;
  void PaintRow(int row);
  void PaintStretch(int row, Stretch stretch);

  RasterImage image;
  uint32_t color = 0;

  double radius = 0;
  std::vector<Point> halfCircle;  // of the radius, about the end of a stroke that goes to the right
  std::vector<Point> capsule, clipped;
  Side sides[2];

  std::vector<float> changes;  // of the covered area, from one pixel of the row to the next
  Stretch touched{0, 0};       // of changes

  bool hasClip = false;
  std::vector<Stretch> visible;     // of all rows
  std::vector<size_t> rowsVisible;  // index of each row's first stretch, and the end
};

}  // namespace hexlume
