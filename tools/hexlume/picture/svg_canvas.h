// Writes an SVG file while it is drawn on.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "tools/hexlume/metafile/metafile_player.h"
#include "tools/hexlume/metafile/player_canvas.h"
#include "tools/hexlume/picture/byte_sink.h"
#include "tools/hexlume/picture/picture_work.h"

namespace hexlume {

// Appends the data of paths, with coordinates relative to the point before.
class SvgPathData {
 public:
  explicit SvgPathData(std::string& pathText) : text(pathText) {}

  // Begins the data of another path.
  void Begin();

  void MoveTo(Point to);
  void LineTo(Point to);
  void CurveTo(Point control1, Point control2, Point to);
  void Close();

 private:
  // A place in tenths.
  struct Place {
    int64_t x, y;
  };

  static Place PlaceOf(Point point);
  void Append(char letter);
  void Append(int64_t tenths);
  void AppendStepTo(Place to);

  std::string& text;
  Place current{0, 0}, start{0, 0};
  char letter = 0;          // of the step before
  bool needsBlank = false;  // whether a number would run into the one before
};

class SvgCanvas : public PlayerCanvas {
 public:
  // With keepsTexts texts are elements of the file, otherwise outlines.
  SvgCanvas(const MetafileFrame& frame, bool keepsTexts, const ByteSink& byteSink,
            PictureWork pictureWork = PictureWork());

  void DrawDot(Point middle, uint32_t color) override;
  void DrawLine(Point from, Point to, const StrokeStyle& style) override;
  void Stroke(const PlayerPath& path, const StrokeStyle& style) override;
  void Fill(const PlayerPath& path, uint32_t color, bool winding) override;
  void FillBoxes(const CanvasBoxes& boxes, uint32_t color) override;
  void DrawGlyphs(const GlyphRun& run) override;
  void Clip(const CanvasBoxes& boxes) override;
  void RemoveClip() override;

  // Ends the file.
  void Finish();

 private:
  void ContinueStrokes(const StrokeStyle& style);
  void ContinueDots(uint32_t color);
  void EndPath();
  void AppendFilledPath(const PlayerPath& path, const char* attributes);
  void AppendOutlines(const GlyphRun& run);
  void AppendText(const GlyphRun& run);
  int NumberOf(const PlayerFace& face, unsigned long glyph);
  void Pass();

  const ByteSink& sink;
  bool textsAreKept;
  PictureWork work;
  std::string text;  // not passed on yet
  SvgPathData data;

  // The path element at the end of the text, which takes further strokes of its style, or dots of its colour.
  std::optional<StrokeStyle> openStyle;
  size_t openStart = 0;
  std::optional<Point> openEnd;      // of the last line in it
  std::optional<uint32_t> dotColor;  // of the dots in it, if it has dots instead of strokes

  int clips = 0;
  bool isClipped = false;
  std::map<std::pair<const PlayerFace*, unsigned long>, int> glyphNumbers;  // of the outlines in the file
};

}  // namespace hexlume
