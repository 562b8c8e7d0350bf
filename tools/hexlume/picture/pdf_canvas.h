// Writes the contents of a page of a PDF file while it is drawn on.
#pragma once

#include <optional>
#include <string>

#include "tools/hexlume/metafile/metafile_player.h"
#include "tools/hexlume/metafile/player_canvas.h"
#include "tools/hexlume/picture/pdf_file.h"
#include "tools/hexlume/picture/pdf_fonts.h"
#include "tools/hexlume/picture/picture_work.h"

namespace hexlume {

// A hundredth of a millimetre in points, the unit of pages.
constexpr double pointsInAHundredth = 72 / 2540.0;

class PdfCanvas : public PlayerCanvas {
 public:
  // Writes into the file's current stream.
  PdfCanvas(const MetafileFrame& frame, PdfFile& pdfFile, PdfFonts& pdfFonts, PictureWork pictureWork);

  void DrawDot(Point middle, uint32_t color) override;
  void DrawLine(Point from, Point to, const StrokeStyle& style) override;
  void Stroke(const PlayerPath& path, const StrokeStyle& style) override;
  void Fill(const PlayerPath& path, uint32_t color, bool winding) override;
  void FillBoxes(const CanvasBoxes& boxes, uint32_t color) override;
  void DrawGlyphs(const GlyphRun& run) override;
  void Clip(const CanvasBoxes& boxes) override;
  void RemoveClip() override;

  void Finish();

 private:
  // What operators have set.
  struct Graphics {
    std::optional<uint32_t> strokeColor, fillColor;
    std::optional<double> width;
    std::vector<double> dashes;
  };

  void ContinueStrokes(const StrokeStyle& style);
  void EndPath();
  void SetStyle(const StrokeStyle& style);
  void SetFillColor(uint32_t color);
  void AppendGlyphs(const GlyphRun& run);
  void Pass();

  PdfFile& file;
  PdfFonts& fonts;
  PictureWork work;
  std::string text;  // not passed on yet
  Graphics graphics, unclipped;

  // The path at the end of the text, which takes further strokes of its style, or dots of its colour.
  std::optional<StrokeStyle> openStyle;
  std::optional<uint32_t> dotColor;
  std::optional<Point> openEnd;  // of the last line in it
  size_t openStart = 0;
  bool isClipped = false;
};

}  // namespace hexlume
