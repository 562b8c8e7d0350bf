// What a metafile is played on. Coordinates are in the canvas's own units; Y grows downward.
#pragma once

#include <cstdint>
#include <vector>

#include "tools/hexlume/metafile/player_path.h"

namespace hexlume {

class PlayerFace;
struct PlayerFont;

struct CanvasMeasures {
  double width, height;  // the frame fills them
  double hairline;       // width of the thinnest pen
  // Whether the units are pixels. If so, the edges of regions are rounded to the edges of pixels, and thin
  // horizontal and vertical lines to their middle.
  bool hasPixels;
  PathLimits limits;
};

// Colours are COLORREFs.
struct StrokeStyle {
  uint32_t color;
  double width;
  std::vector<double> dashes;  // empty: unbroken, with round ends

  bool operator==(const StrokeStyle& other) const {
    return color == other.color && width == other.width && dashes == other.dashes;
  }
  bool operator!=(const StrokeStyle& other) const { return !(*this == other); }
};

struct CanvasBox {
  double left, top, right, bottom;
};

// Boxes that don't overlap, in bands from top to bottom: those of a band have the same top and bottom.
using CanvasBoxes = std::vector<CanvasBox>;

struct PlacedGlyph {
  unsigned long index;
  uint32_t codePoint;
  Point at;
};

// A text: the glyphs of one face in one size.
struct GlyphRun {
  const PlayerFace& face;
  const PlayerFont& font;  // for which the face was chosen
  std::vector<PlacedGlyph> glyphs;
  double width, height;  // the em
  Point along;           // unit vector of the baseline
  uint32_t color;
};

class PlayerCanvas {
 public:
  explicit PlayerCanvas(const CanvasMeasures& canvasMeasures) : measures(canvasMeasures) {}
  virtual ~PlayerCanvas() = default;
  PlayerCanvas(const PlayerCanvas&) = delete;
  PlayerCanvas& operator=(const PlayerCanvas&) = delete;

  const CanvasMeasures& Measures() const { return measures; }

  // A square as wide as the thinnest pen. On pixels it is one.
  virtual void DrawDot(Point middle, uint32_t color) = 0;
  virtual void DrawLine(Point from, Point to, const StrokeStyle& style) = 0;
  virtual void Stroke(const PlayerPath& path, const StrokeStyle& style) = 0;
  virtual void Fill(const PlayerPath& path, uint32_t color, bool winding) = 0;
  virtual void FillBoxes(const CanvasBoxes& boxes, uint32_t color) = 0;
  virtual void DrawGlyphs(const GlyphRun& run) = 0;

  // Replaces the clip region. Without boxes nothing is visible.
  virtual void Clip(const CanvasBoxes& boxes) = 0;
  virtual void RemoveClip() = 0;

 private:
  CanvasMeasures measures;
};

}  // namespace hexlume
